# What makes a fault in a program that users run hard to misuse: addresses that nobody can foretell, tables that nobody can
# write to, stacks and copies that are watched. Each where compiler and linker have it; packaging/check-hardening looks at
# what became of it. Builds for tests go without: the sanitizers watch more, and copies are watched only when optimised.
include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)
include(CheckPIESupported)

# Adds flags for compiler and linker when a program of them can be linked.
function(brindle_add_hardening name)
  list(JOIN ARGN " " CMAKE_REQUIRED_FLAGS)
  string(PREPEND CMAKE_REQUIRED_FLAGS "-O2 -Werror ")
  check_cxx_source_compiles("#include <cstdio>
    int main(int, char** texts) { char text[9]; return std::snprintf(text, sizeof text, \"%s\", *texts); }" ${name})
  if(${name})
    add_compile_options(${ARGN})
    add_link_options(${ARGN}) # for the library that watches stacks, where it is one of its own
  endif()
endfunction()

function(brindle_add_hardened_link name flag)
  check_linker_flag(CXX "${flag}" ${name})
  if(${name})
    add_link_options("${flag}")
  endif()
endfunction()

# A macro: options and variables are those of the caller's folder.
macro(brindle_harden)
  check_pie_supported()
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  brindle_add_hardening(BRINDLE_STACK_PROTECTOR -fstack-protector-strong)
  brindle_add_hardening(BRINDLE_STACK_CLASH -fstack-clash-protection)
  brindle_add_hardening(BRINDLE_FORTIFY_3 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
  if(NOT BRINDLE_FORTIFY_3)
    brindle_add_hardening(BRINDLE_FORTIFY_2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  endif()
  if(WIN32)
    # Windows' own guard of calls needs tables, and its shadow stack a mark, that neither GCC nor its linker makes.
    brindle_add_hardened_link(BRINDLE_DYNAMIC_BASE -Wl,--dynamicbase)
    brindle_add_hardened_link(BRINDLE_HIGH_ENTROPY -Wl,--high-entropy-va)
    brindle_add_hardened_link(BRINDLE_NX -Wl,--nxcompat)
  else()
    brindle_add_hardening(BRINDLE_CONTROL_FLOW -fcf-protection=full)
    brindle_add_hardened_link(BRINDLE_RELRO -Wl,-z,relro)
    brindle_add_hardened_link(BRINDLE_BIND_NOW -Wl,-z,now)
    brindle_add_hardened_link(BRINDLE_STACK_DATA -Wl,-z,noexecstack)
  endif()
endmacro()
