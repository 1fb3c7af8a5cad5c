#pragma once

#include <QDir>
#include <QString>

#include <string>

namespace brindle {

/// A path as the system writes it, with its own separators: that is how the program tells it.
inline std::string NativePath(const QString& path) {
    return QDir::toNativeSeparators(path).toStdString();
}

} // namespace brindle
