#include "settings/file_command.h"

#include "settings/file_error_prompt.h"

namespace brindle {

namespace {

/// Runs one step until it went well or its failure is settled.
FileOutcome RunStep(const FileStep& step, const std::string& failedOperation,
                    const ShowMessageBox& showMessageBox) {
    FileError error = step();
    while (error.Failed()) {
        if (error.Number == CancelledError) {
            return FileOutcome::Ended;
        }
        switch (FileErrorPrompt(error.Number, showMessageBox)) {
        case FileAction::Retry:
            error = step();
            break;
        case FileAction::Skip:
            return FileOutcome::Skipped;
        case FileAction::GiveUp:
            return FileOutcome::Ended;
        case FileAction::Overwrite:
            // Agreed: tried once more and not asked about again, but a failure is never kept from the user.
            error = step();
            if (!error.Failed()) {
                return FileOutcome::Done;
            }
            [[fallthrough]];
        case FileAction::NotRecognised:
            showMessageBox(FailureBox(failedOperation, error));
            return FileOutcome::Ended;
        }
    }
    return FileOutcome::Done;
}

} // namespace

MessageBox FailureBox(const std::string& failedOperation, const FileError& error) {
    MessageBox box;
    box.Text = failedOperation + "\r\nError number: " + std::to_string(error.Number) +
               "\r\nError description: " + error.Description + "\r\nError Source: " + error.Source;
    box.Icon = MessageIcon::Exclamation;
    return box;
}

FileOutcome RunFileCommand(const std::vector<FileStep>& steps, const std::string& failedOperation,
                           const ShowMessageBox& showMessageBox) {
    FileOutcome outcome = FileOutcome::Done;
    for (const FileStep& step : steps) {
        switch (RunStep(step, failedOperation, showMessageBox)) {
        case FileOutcome::Ended:
            return FileOutcome::Ended;
        case FileOutcome::Skipped:
            outcome = FileOutcome::Skipped;
            break;
        case FileOutcome::Done:
            break;
        }
    }
    return outcome;
}

} // namespace brindle
