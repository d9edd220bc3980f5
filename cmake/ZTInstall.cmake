# Installation: headers as they stand in the tree, exported targets, a .pc file per library. Each
# file belongs to the component of the package that it goes into (ZTPackages.cmake).

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(ZT_INSTALLED_FONTS "${CMAKE_INSTALL_DATADIR}/ztdrawengine/font")

# Installs library TARGET with its public headers; PC_REQUIRES names its pkg-config requirements.
function(zt_install_library target)
  cmake_parse_arguments(arg "" "DESCRIPTION" "PC_REQUIRES" ${ARGN})
  set_target_properties(${target} PROPERTIES
    INSTALL_RPATH "$ORIGIN" # its sisters stand beside it
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  install(TARGETS ${target} EXPORT ZTDrawEngineLibTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${target}
    COMPONENT dev
    FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE
    # Folders without a public header.
    PATTERN "types" EXCLUDE PATTERN "editors" EXCLUDE PATTERN "hatch" EXCLUDE
    PATTERN "resources" EXCLUDE)
  list(JOIN arg_PC_REQUIRES " " ZT_PC_REQUIRES)
  # Relative, so that the package may be moved.
  file(RELATIVE_PATH ZT_PC_TO_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  set(ZT_PC_NAME ${target})
  set(ZT_PC_DESCRIPTION "${arg_DESCRIPTION}")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/library.pc.in"
                 "${PROJECT_BINARY_DIR}/pkgconfig/${target}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/pkgconfig/${target}.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endfunction()

# Makes the static library TARGET a component of the package that hosts ask for by its name. What it
# links stands in ZTDrawEngineLibConfig.cmake.in.
function(zt_install_kit target)
  add_library(ZTDrawEngineLib::${target} ALIAS ${target})
  target_include_directories(${target} PUBLIC
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/libs>"
    "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  install(TARGETS ${target} EXPORT ZTDrawEngineLib-${target}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
  install(EXPORT ZTDrawEngineLib-${target} NAMESPACE ZTDrawEngineLib::
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/ZTDrawEngineLib" COMPONENT dev)
  install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${target}
    COMPONENT dev
    FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE PATTERN "resources" EXCLUDE)
endfunction()

function(zt_install_package)
  set(destination "${CMAKE_INSTALL_LIBDIR}/cmake/ZTDrawEngineLib")
  install(EXPORT ZTDrawEngineLibTargets NAMESPACE ZTDrawEngineLib:: DESTINATION "${destination}"
    COMPONENT dev)
  configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/ZTDrawEngineLibConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/ZTDrawEngineLibConfig.cmake"
    INSTALL_DESTINATION "${destination}")
  write_basic_package_version_file("${PROJECT_BINARY_DIR}/ZTDrawEngineLibConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
  install(FILES
    "${PROJECT_BINARY_DIR}/ZTDrawEngineLibConfig.cmake"
    "${PROJECT_BINARY_DIR}/ZTDrawEngineLibConfigVersion.cmake"
    DESTINATION "${destination}" COMPONENT dev)
endfunction()
