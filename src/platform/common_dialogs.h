#pragma once

#include "platform/file_dialog.h"
#include "platform/message_box.h"

#include <QStringList>

class QWidget;

/// The message boxes and file dialogs that the core asks for, shown with Qt.
namespace brindle {

/// Shows `box` over `parent` (may be null) with a normal pointer, and waits for its button.
MessageAnswer ShowQtMessageBox(QWidget* parent, const MessageBox& box);

/// Runs the file dialog over `parent` by the contract of RunFileDialog: where the user typed no extension the
/// shown filter's is appended before the question whether to overwrite; the chosen file's folder becomes
/// current.
std::optional<FileDialogAnswer> RunQtFileDialog(QWidget* parent, const FileDialogRequest& request);

/// The entries of a filter ("A (*.x)|*.x|B (*.y)|*.y") as Qt writes them: "A (*.x)", "B (*.y)".
QStringList QtNameFilters(const std::string& filter);

/// The index, from 1, of the filter entry whose pattern has the extension of `name`; `preset` when none has.
int FilterIndexOfName(const std::string& filter, const QString& name, int preset);

} // namespace brindle
