# The pages of the help, compiled into the program under their folder names: ":/help/en/main.html".
file(GLOB_RECURSE SANOVIA_HELP CONFIGURE_DEPENDS
  ${CMAKE_SOURCE_DIR}/resources/help/*.html ${CMAKE_SOURCE_DIR}/resources/help/*.css
  ${CMAKE_SOURCE_DIR}/resources/help/*.png)
qt_add_resources(sanovia_application help_pages PREFIX / BASE ${CMAKE_SOURCE_DIR}/resources FILES ${SANOVIA_HELP})
