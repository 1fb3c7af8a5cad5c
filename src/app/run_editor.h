#pragma once

#include "editor/editor.h"

#include <functional>
#include <string>

namespace brindle {

/// Runs the editor of a program whose settings and new files are in `programFolder`, until its window has
/// closed or the program is ended from outside. Opens the file at `commandLine`, an absolute path or empty.
/// `shown` is called once the window is there. Needs the application; returns the program's exit code.
int RunEditor(
    const std::string& programFolder, const std::string& commandLine,
    const std::function<void(Editor& editor)>& shown = [](Editor&) {});

} // namespace brindle
