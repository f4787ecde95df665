# Target `tidy`: clang-tidy over the sources of the floors, by the list in .clang-tidy, every warning an error. It reads
# the batches of a unity build (preset asan): the headers, which cost most of the time, are read once for eight sources.
find_program(CLANG_TIDY clang-tidy)
if(CLANG_TIDY AND CMAKE_UNITY_BUILD)
  add_custom_target(tidy
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/tidy.sh ${CLANG_TIDY} ${PROJECT_SOURCE_DIR}/.clang-tidy
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR} USES_TERMINAL VERBATIM)
endif()
