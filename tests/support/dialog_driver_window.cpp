#include "support/dialog_driver_window.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>

namespace brindle {

namespace {

std::string Plain(QString caption) {
    return caption.remove(QLatin1Char('&')).toStdString();
}

} // namespace

DialogDriver::DialogDriver() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

DialogDriver::~DialogDriver() {
    EXPECT_TRUE(answers_.empty()) << "a dialog was expected that did not come";
}

void DialogDriver::PressButton(const std::string& caption) {
    answers_.push_back({AnswerKind::Button, caption});
}

void DialogDriver::PressEscape() {
    answers_.push_back({AnswerKind::Escape, {}});
}

void DialogDriver::PressEnter() {
    answers_.push_back({AnswerKind::Enter, {}});
}

void DialogDriver::PressCloseBox() {
    answers_.push_back({AnswerKind::CloseBox, {}});
}

void DialogDriver::Drive(std::function<void(QDialog& dialog)> act) {
    answers_.push_back({AnswerKind::Act, {}, std::move(act)});
}

void DialogDriver::AnswerDialog(QDialog& dialog) {
    if (answers_.empty() || answers_.front().Kind != AnswerKind::Act) {
        return; // a test works in it itself
    }
    const Answer answer = answers_.front();
    answers_.pop_front();
    answer.Act(dialog);
}

void DialogDriver::ChooseFile(const std::string& name, const std::string& filter) {
    answers_.push_back({AnswerKind::File, name, {}, filter});
}

void DialogDriver::CancelFile() {
    answers_.push_back({AnswerKind::NoFile, {}});
}

void DialogDriver::Look() {
    QPointer<QWidget> modal = QApplication::activeModalWidget();
    if (modal.isNull() || answering_ == modal) {
        return;
    }
    // Answered from a call of its own: a timer does not fire again inside its own handler, and an answer may
    // open the next box before it returns.
    answering_ = modal;
    QTimer::singleShot(0, modal, [this, modal] {
        if (auto* box = qobject_cast<QMessageBox*>(modal.data())) {
            AnswerMessage(*box);
        } else if (auto* dialog = qobject_cast<QFileDialog*>(modal.data())) {
            AnswerFileDialog(*dialog);
        } else if (auto* other = qobject_cast<QDialog*>(modal.data())) {
            AnswerDialog(*other);
        }
        answering_ = nullptr;
    });
}

void DialogDriver::AnswerMessage(QMessageBox& box) {
    SeenMessage seen;
    seen.Title = box.windowTitle().toStdString();
    seen.Text = box.text().toStdString();
    seen.Exclamation = box.icon() == QMessageBox::Warning;
    seen.Plain = box.textFormat() == Qt::PlainText && !Qt::mightBeRichText(box.informativeText());
    EXPECT_TRUE(seen.Plain) << seen.Text;
    for (const QAbstractButton* button : box.buttons()) {
        seen.Buttons.insert(Plain(button->text()));
    }
    Messages.push_back(seen);

    const Answer answer = answers_.empty() ? Answer{AnswerKind::NoFile, {}} : answers_.front();
    if (!answers_.empty()) {
        answers_.pop_front();
    }
    if (answer.Kind == AnswerKind::Escape || answer.Kind == AnswerKind::Enter) {
        QTest::keyClick(&box, answer.Kind == AnswerKind::Escape ? Qt::Key_Escape : Qt::Key_Return);
        return;
    }
    if (answer.Kind == AnswerKind::CloseBox) {
        box.close();
        return;
    }
    for (QAbstractButton* button : box.buttons()) {
        if (answer.Kind == AnswerKind::Button && Plain(button->text()) == answer.Text) {
            button->click();
            return;
        }
    }
    ADD_FAILURE() << "no answer for the box \"" << seen.Text << "\"";
    box.reject();
}

void DialogDriver::AnswerFileDialog(QFileDialog& dialog) {
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    SeenFileDialog seen;
    seen.Title = dialog.windowTitle().toStdString();
    seen.Folder = dialog.directory().absolutePath().toStdString();
    for (const QString& filter : dialog.nameFilters()) {
        seen.Filters.push_back(filter.toStdString());
    }
    seen.SelectedName = name->text().toStdString();
    for (const QAction* action : dialog.findChildren<QAction*>()) {
        if (action->isVisible()) {
            seen.Actions.push_back(action->objectName().toStdString());
        }
    }
    FileDialogs.push_back(seen);

    if (answers_.empty() ||
        (answers_.front().Kind != AnswerKind::File && answers_.front().Kind != AnswerKind::NoFile)) {
        ADD_FAILURE() << "no answer for the file dialog \"" << seen.Title << "\"";
        dialog.reject();
        return;
    }
    const Answer answer = answers_.front();
    answers_.pop_front();
    if (answer.Kind == AnswerKind::NoFile) {
        dialog.reject();
        return;
    }
    if (!answer.Filter.empty()) {
        auto* filters = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        const int entry = filters->findText(QString::fromStdString(answer.Filter), Qt::MatchStartsWith);
        filters->setCurrentIndex(entry);
        emit filters->activated(entry);
    }
    const QString text = QString::fromStdString(answer.Text);
    const bool hasKeys = std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
    name->selectAll();
    if (hasKeys) {
        QTest::keyClicks(name, text);
    } else {
        name->insert(text); // as from the clipboard
    }
    QTest::keyClick(name, Qt::Key_Return);
}

} // namespace brindle
