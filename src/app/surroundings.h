#pragma once

#include "editor/editor.h"

#include <functional>
#include <string>

class QWidget;

namespace brindle {

/// The world around an editor on this machine: the real disk, settings and folders, this program's version,
/// and message boxes and file dialogs shown with Qt over the widget that `parent` returns when they are
/// needed (null while there is no window). Settings and new files live in `programFolder`, an absolute path.
/// Nobody is told of the files used, and no file is opened at start; the caller may set either.
EditorSurroundings RealSurroundings(const std::string& programFolder, std::function<QWidget*()> parent);

} // namespace brindle
