#include "platform/common_dialogs.h"

#include "platform/foreign_text.h"
#include "platform/normal_pointer.h"

#include <QKeyEvent>
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

/// The buttons of a box, first the default one, last the one that Escape and the close box press where they
/// do.
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

/// A box that only its buttons close. Left to itself, Qt would take Escape and the close box for No.
class ButtonsOnlyBox : public QMessageBox {
  public:
    ButtonsOnlyBox(QWidget* parent, bool buttonsOnly) : QMessageBox(parent), buttonsOnly_(buttonsOnly) {
        setWindowFlag(Qt::WindowCloseButtonHint, !buttonsOnly);
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!buttonsOnly_ || !event->matches(QKeySequence::Cancel)) {
            QMessageBox::keyPressEvent(event);
        }
    }

    void closeEvent(QCloseEvent* event) override {
        if (buttonsOnly_) {
            event->ignore();
        } else {
            QMessageBox::closeEvent(event);
        }
    }

  private:
    bool buttonsOnly_;
};

} // namespace

MessageAnswer ShowQtMessageBox(QWidget* parent, const MessageBox& box) {
    const NormalPointer pointer;
    const bool yesOrNo = box.Buttons == MessageButtons::YesNo; // neither of them is a way out
    ButtonsOnlyBox window(parent, yesOrNo);
    window.setIcon(QtIcon(box.Icon));
    window.setWindowTitle(ShownText(box.Title));
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
    if (!yesOrNo) {
        window.setEscapeButton(choices.back().Button);
    }
    const int pressed = window.exec();
    for (const ButtonChoice& choice : choices) {
        if (choice.Button == pressed) {
            return choice.Answer;
        }
    }
    return choices.back().Answer;
}

} // namespace brindle
