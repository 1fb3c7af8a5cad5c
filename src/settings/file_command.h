#pragma once

#include "platform/file_error.h"
#include "platform/message_box.h"

#include <functional>
#include <string>
#include <vector>

namespace brindle {

/// One step of a file command, which can be tried again.
using FileStep = std::function<FileError()>;

enum class FileOutcome {
    Done,    ///< every step went well
    Skipped, ///< the user passed over a failed step; the steps after it ran
    Ended    ///< a step failed for good; the steps after it did not run
};

/// The box of an error that has no text of its own: `failedOperation` ("There was an error trying to open the
/// File."), then number, description and source of the error, each on a line.
MessageBox FailureBox(const std::string& failedOperation, const FileError& error);

/// Runs the steps of a file command in order, the way that every command on files goes: a failed step is
/// first put to FileErrorPrompt, whose action code tries it again, passes it over or ends the command. An
/// error that has no text of its own ends the command with one FailureBox. A step that the user cancelled
/// (CancelledError) ends it without a box.
FileOutcome RunFileCommand(const std::vector<FileStep>& steps, const std::string& failedOperation,
                           const ShowMessageBox& showMessageBox);

} // namespace brindle
