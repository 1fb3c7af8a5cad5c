#pragma once

#include <string>
#include <vector>

namespace brindle {

/// The arguments that this program was started with, as bytes (on Windows UTF-8), without the program itself.
/// `argc` and `argv` are main()'s; a system that gives main() less than the user typed is asked for the
/// whole.
std::vector<std::string> ProgramArguments(int argc, char** argv);

} // namespace brindle
