# One target carries the warnings, the hardening and, where asked for, the sanitizers; every target of the project
# links it.
add_library(sanovia_warnings INTERFACE)
target_link_libraries(sanovia_warnings INTERFACE sanovia_hardening)
target_compile_options(sanovia_warnings INTERFACE -Wall -Wextra -Wshadow -Wconversion)
if(SANOVIA_WERROR)
  target_compile_options(sanovia_warnings INTERFACE -Werror)
endif()
if(CMAKE_UNITY_BUILD)
  # A type without a name outside its file: here the sources are included into one.
  target_compile_options(sanovia_warnings INTERFACE -Wno-subobject-linkage)
endif()
if(SANOVIA_SANITIZE)
  target_compile_options(sanovia_warnings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(sanovia_warnings INTERFACE -fsanitize=address,undefined)
endif()
if(SANOVIA_ODR)
  target_compile_options(sanovia_warnings INTERFACE -flto -ffat-lto-objects)
  target_link_options(sanovia_warnings INTERFACE -fno-lto)
endif()
