# A fuzzer sees which branches of these libraries an input takes. Under the sanitizers, where speed is gone anyway, it is
# also told what was compared there; without them each branch costs one increment.
function(brindle_watched_by_fuzzers target)
  if(NOT BRINDLE_FUZZ OR NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    return()
  endif()
  if(BRINDLE_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  else()
    target_compile_options(${target} PRIVATE -fsanitize-coverage=inline-8bit-counters,pc-table)
  endif()
endfunction()
