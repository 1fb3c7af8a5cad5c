#include "support/monkey_dialogs_window.h"

#include "platform/paths.h"
#include "settings/form_vdr810_options_brindle.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPushButton>
#include <QTest>

#include <vector>

namespace brindle {

namespace {

std::vector<MessageAnswer> AnswersOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::OkCancel:
        return {MessageAnswer::Ok, MessageAnswer::Cancel};
    case MessageButtons::YesNo:
        return {MessageAnswer::Yes, MessageAnswer::No};
    case MessageButtons::YesNoCancel:
        return {MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::Cancel};
    case MessageButtons::SaveAsOverwriteCancel:
        return {MessageAnswer::SaveAs, MessageAnswer::Overwrite, MessageAnswer::Cancel};
    case MessageButtons::RetryCancel:
        return {MessageAnswer::Retry, MessageAnswer::Cancel};
    case MessageButtons::Ok:
        break;
    }
    return {MessageAnswer::Ok};
}

/// The dialogs that run an event loop of their own; in the others the monkey works himself.
bool WaitsForAnswer(QWidget* modal) {
    return qobject_cast<QMessageBox*>(modal) != nullptr || qobject_cast<QFileDialog*>(modal) != nullptr ||
           qobject_cast<QInputDialog*>(modal) != nullptr ||
           qobject_cast<QPageSetupDialog*>(modal) != nullptr ||
           modal->objectName() == QLatin1String("PaperDialog") ||
           modal->objectName() == QLatin1String("formVdr810OptionsBrindle");
}

} // namespace

MonkeyDialogs::MonkeyDialogs(MonkeyChance& chance, MonkeyDisk& disk) : chance_(chance), disk_(disk) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

MessageAnswer MonkeyDialogs::AnswerBox(const MessageBox& box, const ShowMessageBox& real) {
    if (chance_.OneIn(40)) {
        return real(box);
    }
    const std::vector<MessageAnswer> answers = AnswersOf(box.Buttons);
    return chance_.Pick(answers);
}

std::string MonkeyDialogs::PathFor(const FileDialogRequest& request) {
    const bool logic = request.DefaultExtension == "pl";
    if (!logic) {
        return disk_.AnyPath(request.DefaultExtension);
    }
    if (request.Kind == FileDialogKind::Open || chance_.OneIn(4)) {
        return disk_.AnyLogicPath();
    }
    return disk_.AnyPath(chance_.OneIn(2) ? "pl" : "c10");
}

std::optional<FileDialogAnswer> MonkeyDialogs::AnswerFile(const FileDialogRequest& request,
                                                          const RunFileDialog& real) {
    if (chance_.OneIn(25)) {
        return real(request);
    }
    if (chance_.OneIn(4)) {
        return {};
    }
    const std::string path = PathFor(request);
    const FileNameParts parts = Get_File_Name_Parts(path);
    const bool saving = request.Kind == FileDialogKind::SaveAs;
    if (parts.Extension == "810" || parts.Extension == "ini") {
        return {}; // the program's own files; nobody saves a logic over them
    }
    if (saving && QFileInfo::exists(QString::fromStdString(path)) && chance_.OneIn(3)) {
        return {}; // not replaced after all
    }
    QDir::setCurrent(QString::fromStdString(parts.Folder));
    return FileDialogAnswer{path, parts.Title(), chance_.Number(1, 2)};
}

void MonkeyDialogs::Look() {
    const QPointer<QWidget> modal = QApplication::activeModalWidget();
    if (modal.isNull() || answering_ == modal || !WaitsForAnswer(modal)) {
        return;
    }
    // From a call of its own: a timer does not fire again inside its own handler, and an answer may open the
    // next box before it returns.
    answering_ = modal;
    QTimer::singleShot(0, modal, [this, modal] {
        Answer(*modal);
        answering_ = nullptr;
    });
}

void MonkeyDialogs::Answer(QWidget& modal) {
    ++shown_;
    if (auto* box = qobject_cast<QMessageBox*>(&modal)) {
        PressInBox(*box);
    } else if (auto* file = qobject_cast<QFileDialog*>(&modal)) {
        TypeFile(*file);
    } else if (auto* input = qobject_cast<QInputDialog*>(&modal)) {
        static const char* const names[] = {"new", "work", "a/b", "..", "", "o\xCC\x88 x", "con", "~"};
        input->setTextValue(QString::fromUtf8(chance_.Pick(names)));
        QTest::keyClick(input, chance_.OneIn(3) ? Qt::Key_Escape : Qt::Key_Return);
    } else if (modal.objectName() == QLatin1String("formVdr810OptionsBrindle")) {
        ChooseOptions(static_cast<QDialog&>(modal));
    } else {
        auto& dialog = static_cast<QDialog&>(modal);
        chance_.OneIn(2) ? dialog.accept() : dialog.reject();
    }
}

void MonkeyDialogs::PressInBox(QMessageBox& box) {
    if (chance_.OneIn(5)) {
        QTest::keyClick(&box, Qt::Key_Escape);
        return;
    }
    const QList<QAbstractButton*> buttons = box.buttons();
    chance_.Pick(buttons)->click();
}

void MonkeyDialogs::TypeFile(QFileDialog& dialog) {
    constexpr const char* triesName = "tries";
    const int tries = dialog.property(triesName).toInt();
    dialog.setProperty(triesName, tries + 1);
    if (tries > 2 || chance_.OneIn(4)) {
        dialog.reject();
        return;
    }
    FileDialogRequest request;
    request.Kind =
        dialog.acceptMode() == QFileDialog::AcceptOpen ? FileDialogKind::Open : FileDialogKind::SaveAs;
    QString extension = dialog.selectedNameFilter().section(QLatin1String("*."), 1);
    extension.chop(1); // the parenthesis
    request.DefaultExtension =
        extension.isEmpty() || extension == QLatin1String("c10") ? "pl" : extension.toStdString();
    const std::string path = PathFor(request);
    if (path.ends_with(".810") || path.ends_with(".ini")) {
        dialog.reject();
        return;
    }
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    name->setText(QString::fromStdString(path));
    QTest::keyClick(name, Qt::Key_Return);
}

void MonkeyDialogs::ChooseOptions(QDialog& dialog) {
    auto* versions = dialog.findChild<QComboBox*>(QStringLiteral("cboSettingsFileVersionVdr810"));
    auto* numbers = dialog.findChild<QComboBox*>(QStringLiteral("cboSelectOptions"));
    if (versions->count() > 0) {
        versions->setCurrentIndex(chance_.Number(0, versions->count() - 1));
    }
    QTest::keyClick(numbers, chance_.OneIn(2) ? Qt::Key_Down : Qt::Key_Up);
    const bool done = !chance_.OneIn(4);
    auto* button =
        dialog.findChild<QPushButton*>(done ? QStringLiteral("cmdDone") : QStringLiteral("cmdCancel"));
    button->isEnabled() ? button->click() : dialog.reject();
}

} // namespace brindle
