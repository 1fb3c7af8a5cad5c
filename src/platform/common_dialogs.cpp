#include "platform/common_dialogs.h"

#include "platform/foreign_text.h"
#include "platform/normal_pointer.h"

#include <QMessageBox>
#include <QPushButton>

#include <vector>

namespace brindle {

namespace {

struct ButtonChoice {
    QMessageBox::StandardButton Button;
    MessageAnswer Answer;
    const char* Caption = nullptr; ///< instead of the system's
};

/// The buttons of a box, first the default one, last the one that Escape and the close box press.
std::vector<ButtonChoice> ChoicesOf(MessageButtons buttons) {
    const ButtonChoice ok{QMessageBox::Ok, MessageAnswer::Ok};
    const ButtonChoice cancel{QMessageBox::Cancel, MessageAnswer::Cancel};
    const ButtonChoice yes{QMessageBox::Yes, MessageAnswer::Yes};
    const ButtonChoice no{QMessageBox::No, MessageAnswer::No};
    switch (buttons) {
    case MessageButtons::OkCancel:
        return {ok, cancel};
    case MessageButtons::YesNo:
        return {yes, no};
    case MessageButtons::YesNoCancel:
        return {yes, no, cancel};
    case MessageButtons::SaveAsOverwriteCancel:
        return {{QMessageBox::Save, MessageAnswer::SaveAs, "Save &As..."},
                {QMessageBox::Discard, MessageAnswer::Overwrite, "&Overwrite"},
                cancel};
    case MessageButtons::RetryCancel:
        return {{QMessageBox::Retry, MessageAnswer::Retry}, cancel};
    case MessageButtons::Ok:
        break;
    }
    return {ok};
}

QMessageBox::Icon QtIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::CriticalStop:
        return QMessageBox::Critical;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

MessageAnswer ShowQtMessageBox(QWidget* parent, const MessageBox& box) {
    const NormalPointer pointer;
    QMessageBox window(QtIcon(box.Icon), ShownText(box.Title), QString(), QMessageBox::NoButton, parent);
    window.setTextFormat(Qt::PlainText); // before the text, which is at no moment taken for markup
    window.setText(ShownText(box.Text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    const std::vector<ButtonChoice> choices = ChoicesOf(box.Buttons);
    const MessageAnswer usual = box.Default.value_or(choices.front().Answer);
    for (const ButtonChoice& choice : choices) {
        QPushButton* button = window.addButton(choice.Button);
        if (choice.Caption != nullptr) {
            button->setText(QString::fromLatin1(choice.Caption));
        }
        if (choice.Answer == usual) {
            window.setDefaultButton(choice.Button);
        }
    }
    window.setEscapeButton(choices.back().Button);
    const int pressed = window.exec();
    for (const ButtonChoice& choice : choices) {
        if (choice.Button == pressed) {
            return choice.Answer;
        }
    }
    return choices.back().Answer;
}

} // namespace brindle
