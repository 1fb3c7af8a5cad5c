#pragma once

#include "platform/file_dialog.h"

#include <QStringList>

class QWidget;

/// The file dialogs that the core asks for, shown with Qt.
namespace brindle {

/// Runs the file dialog over `parent` by the contract of RunFileDialog: a name typed without extension is
/// that of a file to open that is named so, else the shown filter's extension is appended; this before the
/// question whether to overwrite. The chosen file's folder becomes current.
std::optional<FileDialogAnswer> RunQtFileDialog(QWidget* parent, const FileDialogRequest& request);

/// The entries of a filter ("A (*.x)|*.x|B (*.y)|*.y") as Qt writes them: "A (*.x)", "B (*.y)".
QStringList QtNameFilters(const std::string& filter);

/// The index, from 1, of the filter entry whose pattern has the extension of `name`; `preset` when none has.
int FilterIndexOfName(const std::string& filter, const QString& name, int preset);

} // namespace brindle
