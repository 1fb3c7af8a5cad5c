#pragma once

#include "platform/folders.h"

#include <QString>

#include <string>

class QUrl;

/// Between the core's paths, which are the system's own bytes, and Qt's, which are text. Where names of files
/// may be any bytes, a name that is no UTF-8 has no text: Qt shows each such byte as U+FFFD, and can open
/// nothing by what it shows. Such a path stays in bytes wherever it can, and what comes back from Qt is
/// looked up in its folder.
namespace brindle {

/// A path for Qt to show or to search.
QString PathToQt(const std::string& path);

/// Whether Qt can do more with a path than show it.
bool IsPathOfQt(const std::string& path);

/// The path that is meant by one that Qt gives back. A name in it that holds U+FFFD and does not exist stands
/// for the one name in its folder that is shown so; where there are several or none, for itself.
std::string PathFromQt(const QString& path, const FolderFunctions& folders = RealFolders());

/// The path in the address of a local file, whose bytes may be no text.
std::string PathFromUrl(const QUrl& file);

} // namespace brindle
