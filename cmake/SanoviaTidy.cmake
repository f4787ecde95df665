# Target `tidy`: clang-tidy over the sources of the floors, by the list in .clang-tidy, every warning an error. A file
# is looked at again when its object file has been built again, that is, whenever it or one of its includes changes.
find_program(CLANG_TIDY clang-tidy)
if(NOT CLANG_TIDY)
  return()
endif()
set(stamps "")
foreach(target sanovia_core sanovia_drawing sanovia_report sanovia_ui sanovia_application sanovia sanovia-cli)
  get_target_property(folder ${target} SOURCE_DIR)
  get_target_property(binary_folder ${target} BINARY_DIR)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "^[A-Za-z/]+\\.cpp$")
  foreach(source IN LISTS sources)
    set(stamp tidy/${target}/${source}.tidy)
    cmake_path(GET stamp PARENT_PATH stamp_folder)
    add_custom_command(OUTPUT ${stamp}
      COMMAND ${CLANG_TIDY} -p ${PROJECT_BINARY_DIR} --quiet --warnings-as-errors=* ${folder}/${source}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${stamp_folder}
      COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
      DEPENDS ${binary_folder}/CMakeFiles/${target}.dir/${source}.o ${PROJECT_SOURCE_DIR}/.clang-tidy
      COMMENT "Tidying ${source}")
    list(APPEND stamps ${stamp})
  endforeach()
endforeach()
add_custom_target(tidy DEPENDS ${stamps})
