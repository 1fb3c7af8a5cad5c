#include "platform/qt_file_dialog.h"

#include "platform/common_dialogs.h"
#include "platform/file_system.h"
#include "platform/folders.h"
#include "platform/foreign_text.h"
#include "platform/normal_pointer.h"
#include "platform/path_qt.h"
#include "platform/paths.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

namespace brindle {

namespace {

/// The extension of a filter pattern "*.pl": "pl"; empty for "*.*" and the like.
QString PatternExtension(const QString& pattern) {
    const QString extension = pattern.trimmed().section(QLatin1Char('.'), -1);
    return extension.contains(QLatin1Char('*')) ? QString() : extension;
}

QStringList FilterFields(const std::string& filter) {
    return QString::fromStdString(filter).split(QLatin1Char('|'));
}

/// The extension that a name typed without one gets: that of the shown entry, else the request's default.
std::string SuffixOf(const FileDialogRequest& request, qsizetype entry) {
    const QStringList fields = FilterFields(request.Filter);
    const QString extension = PatternExtension(fields.value(2 * entry + 1));
    return extension.isEmpty() ? request.DefaultExtension : extension.toStdString();
}

/// What the dialog is opened on: a folder, and a name that is proposed, empty where there is none.
struct Proposal {
    std::string Folder;
    std::string Name;

    [[nodiscard]] std::string Path() const { return JoinPath(Folder, Name); }
};

Proposal ProposalOf(const FileDialogRequest& request) {
    const FileNameParts parts = Get_File_Name_Parts(request.InitialFileName);
    const bool isPattern = parts.Title().find('*') != std::string::npos;
    return {parts.Folder.empty() ? RealFolders().CurrentFolder() : parts.Folder,
            isPattern ? std::string() : parts.Title()};
}

/// A folder that Qt cannot show gives way to the nearest one above it that it can; what leads from there to
/// the proposed name is put before it.
Proposal ShownProposal(Proposal proposal) {
    while (!IsPathOfQt(proposal.Folder)) {
        const std::size_t end = proposal.Folder.find_last_not_of(SystemPaths.Separators);
        const FileNameParts parts = Get_File_Name_Parts(proposal.Folder.substr(0, end + 1));
        if (!proposal.Name.empty()) {
            proposal.Name = JoinPath(parts.Title(), proposal.Name);
        }
        proposal.Folder = parts.Folder;
    }
    return proposal;
}

/// What would show a box of Qt's own, which takes a file's name in it for markup.
void LeaveQuestionsToUs(QFileDialog& dialog) {
    for (const char* name : {"qt_delete_action", "qt_rename_action"}) {
        if (auto* action = dialog.findChild<QAction*>(QString::fromLatin1(name))) {
            action->setVisible(false);
        }
    }
    for (QAbstractItemView* list : dialog.findChildren<QAbstractItemView*>()) {
        list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    }
    dialog.setFileMode(QFileDialog::AnyFile);
    const bool isQts = dialog.layout() != nullptr; // one of the system's has no controls here
    dialog.setOption(QFileDialog::DontConfirmOverwrite, isQts);
}

bool AskedToReplace(const QFileDialog& dialog) {
    return !dialog.testOption(QFileDialog::DontConfirmOverwrite);
}

/// The path that the user chose: bytes, from a root.
std::string ChosenPath(const QFileDialog& dialog, const Proposal& proposal) {
    const Proposal shown = ShownProposal(proposal);
    const QUrl chosen = dialog.selectedUrls().value(0);
    const QString path = QFileInfo(chosen.toLocalFile()).absoluteFilePath();
    if (!proposal.Name.empty() && path == QFileInfo(PathToQt(shown.Path())).absoluteFilePath()) {
        return proposal.Path(); // other names may be shown as the proposed one is
    }
    const std::string exact = PathFromUrl(chosen);
    return IsPathOfQt(exact) ? PathFromQt(path) : exact;
}

bool Exists(const std::string& path) {
    FileStatus status;
    // What cannot be looked at is there as far as we know; the command will tell what is wrong with it.
    return RealFileSystem().Status(path, status).Failed() || status.Type != FileType::Absent;
}

/// `chosen` with the extension that it gets where it has none.
std::string CompletePath(const std::string& chosen, FileDialogKind kind, const std::string& suffix) {
    const FileNameParts parts = Get_File_Name_Parts(chosen);
    const bool isNamedSo = kind == FileDialogKind::Open && Exists(chosen);
    if (!parts.Extension.empty() || isNamedSo) {
        return chosen;
    }
    return chosen + (parts.HasPoint ? "" : ".") + suffix;
}

MessageBox MissingFolderNotice(const std::string& folder, const std::string& title) {
    return {"The folder " + folder + " does not exist.\r\nCheck the path and try again.",
            MessageIcon::Exclamation, MessageButtons::Ok, title};
}

MessageBox MissingFileNotice(const std::string& path, const std::string& title) {
    return {"The file " + path + " does not exist.\r\nCheck the name and try again.",
            MessageIcon::Exclamation, MessageButtons::Ok, title};
}

MessageBox ReplaceQuestion(const std::string& path, const std::string& title) {
    return {path + " already exists.\r\nDo you want to replace it?", MessageIcon::Exclamation,
            MessageButtons::YesNo, title, MessageAnswer::No};
}

/// Whether the path fits the request; the user is told, or asked, where it does not.
bool MayTake(QWidget* parent, const FileDialogRequest& request, const std::string& path,
             bool askedToReplace) {
    std::string folder = Get_File_Name_Parts(path).Folder;
    if (!RealFolders().FolderExists(folder)) {
        folder.resize(std::max<std::size_t>(folder.find_last_not_of(SystemPaths.Separators) + 1, 1));
        ShowQtMessageBox(parent, MissingFolderNotice(folder, request.Title));
        return false;
    }
    if (request.Kind == FileDialogKind::Open) {
        if (!Exists(path)) {
            ShowQtMessageBox(parent, MissingFileNotice(path, request.Title));
            return false;
        }
        return true;
    }
    return askedToReplace || !Exists(path) ||
           ShowQtMessageBox(parent, ReplaceQuestion(path, request.Title)) == MessageAnswer::Yes;
}

} // namespace

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
    QFileDialog dialog(parent, ShownText(request.Title));
    dialog.setObjectName(QStringLiteral("CMDialog1"));
    dialog.setAcceptMode(request.Kind == FileDialogKind::Open ? QFileDialog::AcceptOpen
                                                              : QFileDialog::AcceptSave);
    LeaveQuestionsToUs(dialog);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(std::min<qsizetype>(request.FilterIndex, filters.size()) - 1));
    const Proposal proposal = ProposalOf(request);
    const Proposal shown = ShownProposal(proposal);
    dialog.setDirectory(PathToQt(shown.Folder));
    if (!shown.Name.empty()) {
        dialog.selectFile(PathToQt(shown.Name));
    }

    while (dialog.exec() == QDialog::Accepted) {
        const std::string chosen = ChosenPath(dialog, proposal);
        const std::string suffix = SuffixOf(request, filters.indexOf(dialog.selectedNameFilter()));
        const std::string path = CompletePath(chosen, request.Kind, suffix);
        if (!MayTake(parent, request, path, AskedToReplace(dialog) && path == chosen)) {
            continue;
        }
        const FileNameParts parts = Get_File_Name_Parts(path);
        RealFolders().ChangeFolder(parts.Folder);
        return FileDialogAnswer{path, parts.Title(),
                                FilterIndexOfName(request.Filter, PathToQt(path), request.FilterIndex)};
    }
    return {};
}

} // namespace brindle
