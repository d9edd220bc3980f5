# Compiler settings that hold for everything this project builds.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

# Where Debian keeps libraries, under any prefix: packages go to /usr, whatever was configured.
if(EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE)
  set(CMAKE_INSTALL_LIBDIR "lib/${CMAKE_LIBRARY_ARCHITECTURE}" CACHE PATH "Folder of the libraries")
endif()
include(GNUInstallDirs)
file(RELATIVE_PATH ZT_BIN_TO_LIB "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
set(CMAKE_INSTALL_RPATH "$ORIGIN/${ZT_BIN_TO_LIB}")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(ZT_CCACHE ccache)
if(ZT_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # The same sources are known again in another folder. What is known is asked by the bytes of all
  # files read (DEPEND), never by what the preprocessor makes of them: a precompiled header keeps the
  # sizes of its headers, and one made before a comment changed lets them in a second time.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_DEPEND=1 CCACHE_NOHASHDIR=1
    CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_SLOPPINESS=pch_defines,time_macros "${ZT_CCACHE}")
endif()

add_library(zt_settings INTERFACE)
target_compile_definitions(zt_settings INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_DISABLE_DEPRECATED_BEFORE=0x050e00)
target_compile_options(zt_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow
  # Mark paths are exact to the last bit on every target: no fused multiply-add.
  -ffp-contract=off)
target_link_options(zt_settings INTERFACE -Wl,--as-needed)
find_program(ZT_LLD ld.lld)
if(ZT_LLD)
  target_link_options(zt_settings INTERFACE -fuse-ld=lld) # a quarter of the time of the other
endif()
if(NOT ZT_SANITIZE)
  target_link_options(zt_settings INTERFACE -Wl,--no-undefined)
endif()
if(ZT_BUILD_FUZZ)
  # The fuzzer must see which branches of the library an input takes.
  target_compile_options(zt_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(ZT_WERROR)
  target_compile_options(zt_settings INTERFACE -Werror)
endif()
if(ZT_SANITIZE)
  target_compile_options(zt_settings INTERFACE
    -fsanitize=${ZT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zt_settings INTERFACE -fsanitize=${ZT_SANITIZE})
endif()

# The Qt headers that nearly every source pulls in, parsed once a target. Sources include what they
# use all the same: the checks compile without these.
option(ZT_PRECOMPILE "Precompile the Qt headers" ON)
set(ZT_CORE_HEADERS <QtCore/QObject> <QtCore/QString> <QtCore/QVector> <QtCore/QVariant>
  <QtCore/QDataStream> <QtCore/QFile> <QtCore/QDir> <vector> <memory> <algorithm> <functional>)
set(ZT_WIDGET_HEADERS ${ZT_CORE_HEADERS} <QtGui/QPainterPath> <QtGui/QPainter> <QtWidgets/QWidget>
  <QtWidgets/QGraphicsItem> <QtWidgets/QGraphicsScene> <QtWidgets/QUndoStack>)
function(zt_precompile target)
  if(ZT_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
      # Made again from the same headers it has the same bytes: a compiler cache knows what uses it.
      target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
  endif()
endfunction()
