# Stroke fonts: made by fontbuilder from what tools/setup.sh provides, into "font" beside the
# programs, where the library looks for them. Installed, they stand where hostkit/text/FontPlaces.h looks.

set(ZT_HERSHEY_DIR "/usr/share/hershey-fonts" CACHE PATH "Folder with the Hershey data (*.jhf)")
set(ZT_HANZI_DIR "${PROJECT_SOURCE_DIR}/build/fontdata/hanzi-writer-data-2.0.1"
    CACHE PATH "Folder with the Chinese stroke data of the npm package hanzi-writer-data")
set(ZT_FONT_DIR "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/font")

set(ZT_HERSHEY_FONTS
  simplex duplex complex complex-italic triplex triplex-italic script script-complex
  gothic gothic-german gothic-italian greek greek-complex cyrillic)

# Appends to LIST_NAME the regular fonts.
function(zt_add_hershey_fonts list_name)
  list(TRANSFORM ZT_HERSHEY_FONTS REPLACE "(.+)" "${ZT_FONT_DIR}/hershey-\\1.shx" OUTPUT_VARIABLE fonts)
  list(APPEND fonts "${ZT_FONT_DIR}/unicode-strokes.shx")
  file(GLOB data CONFIGURE_DEPENDS "${ZT_HERSHEY_DIR}/*.jhf")
  add_custom_command(OUTPUT ${fonts}
    COMMAND fontbuilder hershey "${ZT_HERSHEY_DIR}" -o "${ZT_FONT_DIR}"
    DEPENDS fontbuilder ${data}
    COMMENT "Making the Hershey fonts" VERBATIM)
  set(${list_name} ${${list_name}} ${fonts} PARENT_SCOPE)
endfunction()

# Appends to LIST_NAME the Chinese font.
function(zt_add_gb_font list_name)
  set(font "${ZT_FONT_DIR}/gb-strokes.shx")
  set(licence "${ZT_FONT_DIR}/ARPHICPL.TXT")
  add_custom_command(OUTPUT "${font}" "${licence}"
    COMMAND fontbuilder gb "${ZT_HANZI_DIR}" --hershey "${ZT_HERSHEY_DIR}" -o "${ZT_FONT_DIR}"
    COMMAND ${CMAKE_COMMAND} -E copy "${ZT_HANZI_DIR}/ARPHICPL.TXT" "${licence}"
    DEPENDS fontbuilder "${ZT_HANZI_DIR}/package.json" "${ZT_HANZI_DIR}/ARPHICPL.TXT"
    COMMENT "Making the Chinese font" VERBATIM)
  set(${list_name} ${${list_name}} "${font}" "${licence}" PARENT_SCOPE)
endfunction()

# Makes and installs every font whose data is there, and says which is not.
function(zt_add_fonts)
  if(NOT EXISTS "${ZT_HERSHEY_DIR}/futural.jhf")
    message(WARNING "No stroke fonts: there is no Hershey data in ${ZT_HERSHEY_DIR} "
                    "(ZT_HERSHEY_DIR; Debian package hershey-fonts-data).")
    return()
  endif()
  zt_add_hershey_fonts(made)
  if(EXISTS "${ZT_HANZI_DIR}/package.json")
    zt_add_gb_font(made)
  else()
    message(WARNING "No Chinese stroke font: there is no data in ${ZT_HANZI_DIR} "
                    "(ZT_HANZI_DIR; tools/setup.sh build fetches it).")
  endif()
  foreach(text IN ITEMS LICENSE-hershey.txt README.txt)
    configure_file("${PROJECT_SOURCE_DIR}/apps/fontbuilder/resources/${text}"
                   "${ZT_FONT_DIR}/${text}" COPYONLY)
  endforeach()
  add_custom_target(fonts ALL DEPENDS ${made})
  install(FILES ${made} "${ZT_FONT_DIR}/LICENSE-hershey.txt" "${ZT_FONT_DIR}/README.txt"
          DESTINATION "${ZT_INSTALLED_FONTS}" COMPONENT fonts)
endfunction()
