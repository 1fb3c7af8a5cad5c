#include "platform/input_dialog.h"

#include "platform/foreign_text.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>

namespace brindle {

namespace {

constexpr int UsualWidth = 380; // pixels; room for a name, and a prompt in few lines

/// The prompt as it stands. Qt's own label would take it for markup, and "&" for an access key.
void ShowPrompt(QInputDialog& dialog, const QString& prompt) {
    dialog.setLabelText(QString()); // makes the label
    dialog.adjustSize();            // gives it its buddy, whose access key "&" would be
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        label->setBuddy(nullptr); // before the text, whose "&" it would remember
        SetForeignText(*label, prompt);
        label->setWordWrap(true); // a prompt may hold a long path
    }
    for (QLineEdit* name : dialog.findChildren<QLineEdit*>()) {
        name->setAccessibleName(prompt);
    }
}

} // namespace

std::optional<std::string> ShowQtInputBox(QWidget* parent, const InputBox& box) {
    QInputDialog dialog(parent);
    dialog.setWindowTitle(ShownText(box.Title));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setTextValue(ShownText(box.Default));
    ShowPrompt(dialog, ShownText(box.Prompt));
    dialog.resize(UsualWidth, dialog.heightForWidth(UsualWidth));
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    return dialog.textValue().toStdString();
}

} // namespace brindle
