# Compiler settings shared by every target of the project: an interface
# library that the library, tests, tools and benchmarks link privately, so
# that nothing leaks into the flags of programs that consume kvdao.
add_library(kvdao_build_options INTERFACE)
target_compile_options(kvdao_build_options INTERFACE -Wall -Wextra)
if(KVDAO_WERROR)
  target_compile_options(kvdao_build_options INTERFACE -Werror)
endif()
if(KVDAO_SANITIZE)
  target_compile_options(kvdao_build_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kvdao_build_options INTERFACE -fsanitize=address,undefined)
endif()
# GCC 12 reports impossible overlaps inside std::string at -O3 (its bug
# 105651, "-Wrestrict false positive"); the warning is dropped there only.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12
   AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(kvdao_build_options INTERFACE -Wno-restrict)
endif()
