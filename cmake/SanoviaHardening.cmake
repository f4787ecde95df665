# What an attacker who finds a fault has against him, in the code that people run: addresses that nobody knows before,
# tables of the loader that are read-only, guarded stacks, and checked calls of the C library and of containers.
# Debug builds are left as they are: only optimised code can have its calls checked, and sanitizers bring their own.
add_library(sanovia_hardening INTERFACE)
if(NOT APPLE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  include(CheckPIESupported)
  check_pie_supported()
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  target_compile_options(sanovia_hardening INTERFACE -fstack-protector-strong -fstack-clash-protection
    # In this order: a compiler may define a lower one by itself.
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
  target_compile_definitions(sanovia_hardening INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(sanovia_hardening INTERFACE -Wl,-z,relro,-z,now)
endif()
