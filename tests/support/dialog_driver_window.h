#pragma once

#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <vector>

class QDialog;
class QFileDialog;
class QMessageBox;

namespace brindle {

/// What a message box said when it was answered.
struct SeenMessage {
    std::string Title;
    std::string Text; ///< lines separated by LF
    bool Exclamation = false;
    bool Plain = false;            ///< Qt takes none of its texts for markup
    std::set<std::string> Buttons; ///< their captions without access keys
};

/// What a file dialog was set to when it was answered.
struct SeenFileDialog {
    std::string Title;
    std::string Folder;
    std::vector<std::string> Filters;
    std::string SelectedName;         ///< name in its edit line
    std::vector<std::string> Actions; ///< object names of those of its context menu that are offered
};

/// Answers the modal boxes and dialogs that a test's actions open, in the order in which the answers were
/// given here. A dialog that nobody expected is closed and fails the test; so does an answer that nobody
/// asked for.
class DialogDriver {
  public:
    DialogDriver();
    ~DialogDriver();

    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;
    DialogDriver(DialogDriver&&) = delete;
    DialogDriver& operator=(DialogDriver&&) = delete;

    void PressButton(const std::string& caption); ///< of the next message box
    void PressEscape();                           ///< in the next message box
    void PressEnter();                            ///< in the next message box
    void PressCloseBox();                         ///< of the next message box
    /// Types a name or path into the next file dialog and accepts it. First chooses the entry of its filter
    /// that begins with `filter`, where one is given.
    void ChooseFile(const std::string& name, const std::string& filter = {});
    void CancelFile(); ///< of the next file dialog
    /// Hands the next modal dialog that is neither box nor file dialog to `act`, which must close it. Without
    /// this such a dialog is left to the test.
    void Drive(std::function<void(QDialog& dialog)> act);

    std::vector<SeenMessage> Messages;
    std::vector<SeenFileDialog> FileDialogs;

  private:
    enum class AnswerKind { Button, Escape, Enter, CloseBox, File, NoFile, Act };

    struct Answer {
        AnswerKind Kind;
        std::string Text;
        std::function<void(QDialog& dialog)> Act{};
        std::string Filter{};
    };

    void Look();
    void AnswerMessage(QMessageBox& box);
    void AnswerFileDialog(QFileDialog& dialog);
    void AnswerDialog(QDialog& dialog);

    QTimer timer_;
    std::deque<Answer> answers_;
    QPointer<QWidget> answering_; ///< the dialog whose answer is under way
};

} // namespace brindle
