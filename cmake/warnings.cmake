# One place for the warnings that every target of ours is built with; each is an error.
function(brindle_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2 -Wundef -Werror)
  # GCC 12, when it optimises, sees an overlap in its own library where a text is prepended to a string.
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13
     AND NOT CMAKE_BUILD_TYPE STREQUAL Debug)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
endfunction()
