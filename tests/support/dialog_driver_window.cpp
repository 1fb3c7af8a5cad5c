#include "support/dialog_driver_window.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

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

void DialogDriver::ChooseFile(const std::string& name) {
    answers_.push_back({AnswerKind::File, name});
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
    for (const QAbstractButton* button : box.buttons()) {
        seen.Buttons.insert(Plain(button->text()));
    }
    Messages.push_back(seen);

    const Answer answer = answers_.empty() ? Answer{AnswerKind::NoFile, {}} : answers_.front();
    if (!answers_.empty()) {
        answers_.pop_front();
    }
    if (answer.Kind == AnswerKind::Escape) {
        QTest::keyClick(&box, Qt::Key_Escape);
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
    name->setText(QString::fromStdString(answer.Text));
    QTest::keyClick(name, Qt::Key_Return);
}

} // namespace brindle
