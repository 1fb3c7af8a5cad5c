#include "platform/path_qt.h"

#include "platform/paths.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <vector>

namespace brindle {

namespace {

/// Programs differ in how many U+FFFD they show for bytes that follow each other.
QString Compared(const QString& shown) {
    static const QRegularExpression several(QStringLiteral("\uFFFD+"));
    return QString(shown).replace(several, QString(QChar::ReplacementCharacter));
}

/// The name in `folder` that is meant by `shown`.
std::string NameFromQt(const std::string& folder, const QString& shown, const FolderFunctions& folders) {
    std::vector<std::string> names = folders.Files(folder);
    const std::vector<std::string> below = folders.Subfolders(folder);
    names.insert(names.end(), below.begin(), below.end());
    const std::string literally = shown.toStdString();
    const auto isMeant = [&](const std::string& name) { return Compared(PathToQt(name)) == Compared(shown); };
    const bool one = std::count_if(names.begin(), names.end(), isMeant) == 1;
    const bool exists = std::find(names.begin(), names.end(), literally) != names.end();
    return one && !exists ? *std::find_if(names.begin(), names.end(), isMeant) : literally;
}

} // namespace

QString PathToQt(const std::string& path) {
    return QString::fromStdString(path);
}

bool IsPathOfQt(const std::string& path) {
    return PathToQt(path).toStdString() == path;
}

std::string PathFromQt(const QString& path, const FolderFunctions& folders) {
    std::string meant;
    for (const QString& name : QDir::fromNativeSeparators(path).split(QLatin1Char('/'))) {
        const std::string folder = meant.empty() ? folders.CurrentFolder() : meant;
        meant += name.contains(QChar::ReplacementCharacter) ? NameFromQt(folder, name, folders)
                                                            : name.toStdString();
        meant += SystemPaths.Separator;
    }
    meant.pop_back();
    return meant;
}

std::string PathFromUrl(const QUrl& file) {
    const QByteArray bytes = QByteArray::fromPercentEncoding(file.path(QUrl::FullyEncoded).toLatin1());
    const bool isText = IsPathOfQt(bytes.toStdString());
    return isText ? PathFromQt(file.toLocalFile()) : bytes.toStdString();
}

} // namespace brindle
