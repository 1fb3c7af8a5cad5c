#pragma once

#include "platform/file_dialog.h"
#include "platform/message_box.h"
#include "support/monkey_chance.h"
#include "support/monkey_disk_window.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

class QDialog;
class QFileDialog;
class QMessageBox;

namespace brindle {

/// Answers at random whatever box or dialog waits for an answer. Most are answered without being shown, for
/// the sake of the number of actions; some are shown and pressed.
class MonkeyDialogs {
  public:
    MonkeyDialogs(MonkeyChance& chance, MonkeyDisk& disk);

    MonkeyDialogs(const MonkeyDialogs&) = delete;
    MonkeyDialogs& operator=(const MonkeyDialogs&) = delete;
    MonkeyDialogs(MonkeyDialogs&&) = delete;
    MonkeyDialogs& operator=(MonkeyDialogs&&) = delete;
    ~MonkeyDialogs() = default;

    /// Any of the buttons that a box has; `real` shows it.
    MessageAnswer AnswerBox(const MessageBox& box, const ShowMessageBox& real);

    /// A file that is there, missing, malformed, read-only, a folder; or a cancel. `real` shows the dialog.
    std::optional<FileDialogAnswer> AnswerFile(const FileDialogRequest& request, const RunFileDialog& real);

    [[nodiscard]] std::size_t Shown() const { return shown_; }

  private:
    void Look();
    void Answer(QWidget& modal);
    void PressInBox(QMessageBox& box);
    void TypeFile(QFileDialog& dialog);
    void ChooseOptions(QDialog& dialog);
    std::string PathFor(const FileDialogRequest& request);

    MonkeyChance& chance_;
    MonkeyDisk& disk_;
    QTimer timer_;
    QPointer<QWidget> answering_;
    std::size_t shown_ = 0;
};

} // namespace brindle
