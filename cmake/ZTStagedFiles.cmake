# Run by CPack on what it is about to pack: takes the search paths, which only an unpacked
# installation needs, out of programs and libraries, and writes the list of symbols.

file(GLOB_RECURSE files LIST_DIRECTORIES OFF "${CPACK_TEMPORARY_DIRECTORY}/*")
foreach(file IN LISTS files)
  if(NOT IS_SYMLINK "${file}" AND file MATCHES "/bin/|/lib/.*\\.so")
    file(RPATH_REMOVE FILE "${file}")
  endif()
endforeach()

# Names come and go with a minor version alone: all of them date from its first release.
list(GET CPACK_ZT_SYMBOLS 0 symbols)
list(GET CPACK_ZT_SYMBOLS 1 package)
list(GET CPACK_ZT_SYMBOLS 2 since)
file(GLOB libraries "${CPACK_TEMPORARY_DIRECTORY}/runtime/usr/lib/*/lib*.so.${CPACK_PACKAGE_VERSION}")
if(libraries)
  list(TRANSFORM libraries PREPEND "-e" OUTPUT_VARIABLE named)
  execute_process(
    COMMAND dpkg-gensymbols "-p${package}" "-v${since}" -P. ${named} "-O${symbols}"
    WORKING_DIRECTORY "${CPACK_TEMPORARY_DIRECTORY}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()
