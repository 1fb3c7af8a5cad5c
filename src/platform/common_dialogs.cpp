#include "platform/common_dialogs.h"

#include "platform/foreign_text.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include <array>

namespace brindle {

namespace {

struct ButtonChoice {
    QMessageBox::StandardButton Button;
    MessageAnswer Answer;
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

/// The normal pointer for as long as a box waits, also over a busy window.
class NormalPointer {
  public:
    NormalPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }

    ~NormalPointer() { QApplication::restoreOverrideCursor(); }

    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;
    NormalPointer(NormalPointer&&) = delete;
    NormalPointer& operator=(NormalPointer&&) = delete;
};

/// The extension of a filter pattern "*.pl": "pl"; empty for "*.*" and the like.
QString PatternExtension(const QString& pattern) {
    const QString extension = pattern.trimmed().section(QLatin1Char('.'), -1);
    return extension.contains(QLatin1Char('*')) ? QString() : extension;
}

QStringList FilterFields(const std::string& filter) {
    return QString::fromStdString(filter).split(QLatin1Char('|'));
}

/// The extension that a name typed without one gets: that of the shown entry, else the request's default.
QString SuffixOf(const FileDialogRequest& request, qsizetype entry) {
    const QStringList fields = FilterFields(request.Filter);
    const QString extension = PatternExtension(fields.value(2 * entry + 1));
    return extension.isEmpty() ? QString::fromStdString(request.DefaultExtension) : extension;
}

void SetInitialName(QFileDialog& dialog, const std::string& initial) {
    const QFileInfo name(QString::fromStdString(initial));
    const bool hasFolder = initial.find_first_of("/\\") != std::string::npos;
    dialog.setDirectory(hasFolder ? name.absolutePath() : QDir::currentPath());
    if (!name.fileName().contains(QLatin1Char('*'))) {
        dialog.selectFile(name.fileName());
    }
}

MessageBox MissingFolderNotice(const QString& folder, const std::string& title) {
    return {"The folder " + QDir::toNativeSeparators(folder).toStdString() +
                " does not exist.\r\nCheck the path and try again.",
            MessageIcon::Exclamation, MessageButtons::Ok, title};
}

/// A native dialog may leave the extension to us; then its own overwrite question was about another name.
bool MayTakeName(QWidget* parent, const FileDialogRequest& request, const QString& chosen,
                 const QString& complete) {
    if (request.Kind == FileDialogKind::Open || chosen == complete || !QFileInfo::exists(complete)) {
        return true;
    }
    const std::string question =
        QDir::toNativeSeparators(complete).toStdString() + " already exists.\r\nDo you want to replace it?";
    return ShowQtMessageBox(parent, {question, MessageIcon::Exclamation, MessageButtons::YesNo,
                                     request.Title}) == MessageAnswer::Yes;
}

} // namespace

MessageAnswer ShowQtMessageBox(QWidget* parent, const MessageBox& box) {
    const NormalPointer pointer;
    QMessageBox window(QtIcon(box.Icon), ShownText(box.Title), QString(), QMessageBox::NoButton, parent);
    window.setTextFormat(Qt::PlainText); // before the text, which is at no moment taken for markup
    window.setText(ShownText(box.Text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    const std::vector<ButtonChoice> choices = ChoicesOf(box.Buttons);
    for (const ButtonChoice& choice : choices) {
        window.addButton(choice.Button);
    }
    window.setDefaultButton(choices.front().Button);
    window.setEscapeButton(choices.back().Button);
    const int pressed = window.exec();
    for (const ButtonChoice& choice : choices) {
        if (choice.Button == pressed) {
            return choice.Answer;
        }
    }
    return choices.back().Answer;
}

QStringList QtNameFilters(const std::string& filter) {
    const QStringList fields = FilterFields(filter);
    QStringList names;
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        // Qt reads the pattern from the parentheses; the description shown stays the system's own.
        const QString description = fields.at(i).section(QStringLiteral(" ("), 0, 0);
        names << description + QStringLiteral(" (") + fields.at(i + 1).trimmed() + QLatin1Char(')');
    }
    return names;
}

int FilterIndexOfName(const std::string& filter, const QString& name, int preset) {
    const QStringList fields = FilterFields(filter);
    const QString extension = QFileInfo(name).suffix();
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        const QString wanted = PatternExtension(fields.at(i + 1));
        if (!wanted.isEmpty() && wanted.compare(extension, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(i / 2) + 1;
        }
    }
    return preset;
}

std::optional<FileDialogAnswer> RunQtFileDialog(QWidget* parent, const FileDialogRequest& request) {
    const NormalPointer pointer;
    QStringList filters = QtNameFilters(request.Filter);
    if (request.Kind == FileDialogKind::Open) {
        filters << QStringLiteral(
            "All Files (*)"); // so that no file is out of reach, and an index beyond the last fits
    }
    QFileDialog dialog(parent, QString::fromStdString(request.Title));
    dialog.setObjectName(QStringLiteral("CMDialog1"));
    const bool opening = request.Kind == FileDialogKind::Open;
    dialog.setAcceptMode(opening ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(opening ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    const qsizetype shown = std::min<qsizetype>(request.FilterIndex, filters.size()) - 1;
    dialog.selectNameFilter(filters.value(shown));
    dialog.setDefaultSuffix(SuffixOf(request, shown));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(SuffixOf(request, filters.indexOf(filter)));
    });
    SetInitialName(dialog, request.InitialFileName);

    while (dialog.exec() == QDialog::Accepted) {
        const QString chosen = dialog.selectedFiles().value(0);
        QString complete = QFileInfo(chosen).absoluteFilePath();
        if (!QFileInfo(complete).dir().exists()) {
            ShowQtMessageBox(parent, MissingFolderNotice(QFileInfo(complete).absolutePath(), request.Title));
            continue;
        }
        if (QFileInfo(complete).suffix().isEmpty() && !(opening && QFileInfo::exists(complete))) {
            complete += (complete.endsWith(QLatin1Char('.')) ? QString() : QStringLiteral(".")) +
                        dialog.defaultSuffix();
        }
        if (!MayTakeName(parent, request, QFileInfo(chosen).absoluteFilePath(), complete)) {
            continue;
        }
        QDir::setCurrent(QFileInfo(complete).absolutePath());
        return FileDialogAnswer{QDir::toNativeSeparators(complete).toStdString(),
                                QFileInfo(complete).fileName().toStdString(),
                                FilterIndexOfName(request.Filter, complete, request.FilterIndex)};
    }
    return {};
}

} // namespace brindle
