# A fuzzer sees which branches of these libraries an input takes, and what it is compared with there.
function(brindle_watched_by_fuzzers target)
  if(BRINDLE_FUZZ AND CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()
