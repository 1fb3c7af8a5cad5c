#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brindle {

/// What the editor writes to standard output instead of opening its window: "--help" and "--version" alone
/// ask for it. Any other command line is a path.
std::optional<std::string> AnswerWithoutWindow(const std::vector<std::string>& arguments);

/// The path that the command line is, absolute: all of it, also where blanks in it were not quoted. Empty
/// where there is none.
std::string PathOfArguments(const std::vector<std::string>& arguments, const std::string& currentFolder);

} // namespace brindle
