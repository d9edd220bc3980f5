# What comes with an installed program: its manual pages and what shells complete after its name,
# all made by the program itself from its table of commands.

find_program(ZT_GZIP gzip)

# Installs program TARGET into the component of its package; TRANSLATED for one whose help is in
# Chinese, too.
function(zt_install_program target component)
  cmake_parse_arguments(arg "TRANSLATED" "" "" ${ARGN})
  install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
  if(ZT_SANITIZE OR ZT_COVERAGE OR NOT ZT_GZIP)
    return()
  endif()
  set(folder "${PROJECT_BINARY_DIR}/program-pages/${target}")
  file(MAKE_DIRECTORY "${folder}")
  set(made)
  macro(_make file destination name)
    add_custom_command(OUTPUT "${folder}/${file}"
      COMMAND ${target} ${ARGN} > "${folder}/${file}"
      DEPENDS ${target} VERBATIM)
    list(APPEND made "${folder}/${file}")
    install(FILES "${folder}/${file}" DESTINATION "${CMAKE_INSTALL_DATADIR}/${destination}"
      RENAME "${name}" COMPONENT ${component})
  endmacro()
  _make(bash bash-completion/completions ${target} --completion bash)
  _make(zsh zsh/vendor-completions _${target} --completion zsh)
  _make(fish fish/vendor_completions.d ${target}.fish --completion fish)
  _make(en.gz man/man1 ${target}.1.gz --man-page | "${ZT_GZIP}" -9n)
  if(arg_TRANSLATED)
    _make(zh.gz man/zh_CN/man1 ${target}.1.gz
      --language zh --man-page | "${ZT_GZIP}" -9n)
  endif()
  add_custom_target(${target}_pages ALL DEPENDS ${made})
endfunction()
