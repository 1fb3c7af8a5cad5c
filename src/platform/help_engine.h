#pragma once

#include <string>

namespace brindle {

/// Opens a help file (.hlp) with the system's help engine. False where there is no such engine, which is so
/// on every current system, or where it does not take the file.
bool OpenWithHelpEngine(const std::string& path);

} // namespace brindle
