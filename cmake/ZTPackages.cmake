# Debian packages, by CPack: tools/packages.sh. To be included last: it takes
# up what is installed.

set(soversion "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
set(release 1)
set(whole "${PROJECT_VERSION}-${release}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ztdrawengine)
set(CPACK_PACKAGE_VENDOR "ZTDrawEngineLib")
set(CPACK_PACKAGE_CONTACT "The ZTDrawEngineLib makers <makers@ztdrawengine.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/ZTStagedFiles.cmake")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${release})
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# Describes the package of COMPONENT: its NAME, SUMMARY, more lines of DESCRIPTION, its SECTION and
# what it DEPENDS on beside what the linker knows; ANY_MACHINE for one without machine code.
macro(zt_package component)
  cmake_parse_arguments(arg "ANY_MACHINE" "NAME;SUMMARY;DESCRIPTION;SECTION;DEPENDS;RECOMMENDS" "" ${ARGN})
  string(TOUPPER ${component} upper)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${arg_NAME})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${arg_SECTION})
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${arg_SUMMARY}\n${arg_DESCRIPTION}")
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${arg_SUMMARY}\n${arg_DESCRIPTION}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${arg_DEPENDS}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_RECOMMENDS "${arg_RECOMMENDS}")
  if(arg_ANY_MACHINE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS OFF)
  endif()
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${arg_NAME}" COMPONENT ${component})
  zt_install_compressed("${PROJECT_SOURCE_DIR}/packaging/changelog" changelog.Debian.gz
    ${arg_NAME} ${component})
  zt_install_compressed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" changelog.gz ${arg_NAME} ${component})
endmacro()

# Installs a text, compressed, among the documents of PACKAGE.
function(zt_install_compressed text name package component)
  if(ZT_GZIP)
    set(file "${PROJECT_BINARY_DIR}/packaging/${name}")
    execute_process(COMMAND "${ZT_GZIP}" -9nc "${text}" OUTPUT_FILE "${file}" COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${text}")
    install(FILES "${file}" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}"
      COMPONENT ${component})
  endif()
endfunction()
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/packaging")

set(library "libztdrawengine${soversion}")
zt_package(runtime NAME ${library} SECTION libs
  SUMMARY "drawing surface and mark paths for laser marking (library)"
  DESCRIPTION "Shapes in millimetres, hatched, edited with undo on a Qt widget, and\nturned into the ordered straight paths that a marking head follows."
  RECOMMENDS "ztdrawengine-fonts")
zt_package(dev NAME libztdrawengine-dev SECTION libdevel
  SUMMARY "drawing surface for laser marking (development files)"
  DESCRIPTION "Headers, CMake package, pkg-config files, and the kits for what every\nhost does once: drawing files, imports, codes, jobs."
  DEPENDS "${library} (= ${whole}), qtbase5-dev, zlib1g-dev, libpolyclipping-dev, libzint-dev, libzxing-dev")
zt_package(doc NAME libztdrawengine-doc SECTION doc ANY_MACHINE
  SUMMARY "drawing surface for laser marking (documentation)"
  DESCRIPTION "Guides, reference, manual of the studio and examples, as pages to read\nand as Qt help.")
zt_package(fonts NAME ztdrawengine-fonts SECTION fonts ANY_MACHINE
  SUMMARY "stroke fonts for laser marking"
  DESCRIPTION "Single-line fonts for letters of Europe, Greek, Cyrillic and Chinese,\nwhich a laser marks in one stroke.")
zt_package(ztmark NAME ztmark SECTION graphics
  SUMMARY "mark paths and machine files from drawings (command line)"
  DESCRIPTION "Turns drawings, SVG, DXF and plotter files, texts and codes into mark\npaths, pictures and machine files. Makes stroke fonts, too."
  DEPENDS "${library} (= ${whole})" RECOMMENDS "ztdrawengine-fonts")
zt_package(ztstudio NAME ztstudio SECTION graphics
  SUMMARY "drawing and marking studio for lasers"
  DESCRIPTION "Draw what a laser marks, import it, fill in texts and serial numbers,\nand write the files that machines run."
  DEPENDS "${library} (= ${whole}), libqt5sql5-sqlite" # by which Qt help is read
  RECOMMENDS "ztdrawengine-fonts, libqt5svg5, qttranslations5-l10n")
if(TARGET ztdesigner)
  zt_package(designer NAME ztdrawengine-designer SECTION devel
    SUMMARY "drawing surface for laser marking (plugin for Qt Designer)"
    DESCRIPTION "The document widget, the object tree, the property grid and the rulers,\nin the widget box of Qt Designer."
    DEPENDS "${library} (= ${whole})")
endif()
file(WRITE "${PROJECT_BINARY_DIR}/packaging/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_BINARY_DIR}/packaging/symbols"
  "${PROJECT_BINARY_DIR}/packaging/triggers")
set(CPACK_ZT_SYMBOLS "${PROJECT_BINARY_DIR}/packaging/symbols" "${library}"
  "${soversion}.0" "${PROJECT_VERSION}")
file(TOUCH "${PROJECT_BINARY_DIR}/packaging/symbols") # written when the libraries are staged

# What a reader of documents looks for.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples" "${PROJECT_SOURCE_DIR}/samples"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libztdrawengine-doc" COMPONENT doc)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/build/docs/html"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libztdrawengine-doc" COMPONENT doc OPTIONAL)
install(FILES "${PROJECT_SOURCE_DIR}/build/docs/ztdrawengine.qch"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libztdrawengine-doc" COMPONENT doc OPTIONAL)

include(CPack)
