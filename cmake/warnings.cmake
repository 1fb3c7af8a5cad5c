# One place for the warnings that every target of ours is built with; each is an error.
function(brindle_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2 -Wundef -Werror)
endfunction()
