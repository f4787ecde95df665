# Target `odr`: reads every object file into one, as link-time optimisation does, and fails when one name stands for
# two types or two functions. Nothing is made of the result. The code for it lies in the object files beside the
# machine's (cmake/SanoviaWarnings.cmake), so that the check costs no build of its own.
function(sanovia_objects folder result)
  set(objects "")
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type MATCHES "EXECUTABLE|(STATIC|OBJECT)_LIBRARY")
      list(APPEND objects $<TARGET_OBJECTS:${target}>)
    endif()
  endforeach()
  get_property(subfolders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(subfolder IN LISTS subfolders)
    sanovia_objects(${subfolder} more)
    list(APPEND objects ${more})
  endforeach()
  set(${result} ${objects} PARENT_SCOPE)
endfunction()

sanovia_objects(${PROJECT_SOURCE_DIR} objects)
set(list ${PROJECT_BINARY_DIR}/odr-objects.txt)
file(GENERATE OUTPUT ${list} CONTENT "$<JOIN:${objects},\n>\n")
add_custom_command(OUTPUT odr.o
  # Every program has a main of its own.
  COMMAND ${CMAKE_CXX_COMPILER} -r -nostdlib -flto -flinker-output=rel -Werror=odr -Werror=lto-type-mismatch
          -Wl,-z,muldefs @${list} -o odr.o
  DEPENDS ${objects} ${list} COMMENT "Comparing the types of all object files")
add_custom_target(odr DEPENDS odr.o)
