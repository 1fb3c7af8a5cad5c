#include "platform/input_dialog.h"

#include <QInputDialog>
#include <QLabel>

namespace brindle {

namespace {

constexpr int UsualWidth = 380; // pixels; room for a name, and a prompt in few lines

} // namespace

std::optional<std::string> ShowQtInputBox(QWidget* parent, const InputBox& box) {
    QInputDialog dialog(parent);
    dialog.setWindowTitle(QString::fromStdString(box.Title));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setLabelText(QString::fromStdString(box.Prompt));
    dialog.setTextValue(QString::fromStdString(box.Default));
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true); // a prompt may hold a long path
    }
    dialog.resize(UsualWidth, dialog.heightForWidth(UsualWidth));
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    return dialog.textValue().toStdString();
}

} // namespace brindle
