# Translations: a catalogue is compiled with lrelease and built into a library's resources.

# Makes TARGET carry the catalogue CATALOGUE.ts as the resource ":/CATALOGUE.qm".
function(zt_add_catalogue target source)
  get_target_property(qmake Qt5::qmake IMPORTED_LOCATION)
  get_filename_component(qt_tools "${qmake}" DIRECTORY)
  find_program(ZT_LRELEASE NAMES lrelease lrelease-qt5 HINTS "${qt_tools}" REQUIRED)

  get_filename_component(name "${source}" NAME_WE)
  set(input "${CMAKE_CURRENT_SOURCE_DIR}/${source}")
  set(compiled "${CMAKE_CURRENT_BINARY_DIR}/${name}.qm")
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc")
  add_custom_command(OUTPUT "${compiled}"
    COMMAND "${ZT_LRELEASE}" -silent "${input}" -qm "${compiled}"
    DEPENDS "${input}" VERBATIM)
  file(CONFIGURE OUTPUT "${list}" CONTENT
    "<RCC><qresource prefix=\"/\"><file>@name@.qm</file></qresource></RCC>\n" @ONLY)
  qt5_add_resources(resources "${list}")
  # Each has data of the same name.
  set_source_files_properties(${resources} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  target_sources(${target} PRIVATE ${resources})
endfunction()
