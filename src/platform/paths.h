#pragma once

#include <string>
#include <string_view>

/// Paths are joined and split here; only the systems' own pieces beside it do it their own way. They are
/// the system's bytes: UTF-8 on Windows, mostly so elsewhere. Nothing here looks at the disk.
namespace brindle {

/// How a system writes its paths. Routines take it so that the rules of every system can be run on any.
struct PathStyle {
    char Separator;              ///< put between a folder and a name
    std::string_view Separators; ///< everything that is read as one
    bool Drives;                 ///< a path may begin with a drive: "C:"
};

inline constexpr PathStyle PosixPaths{'/', "/", false};
inline constexpr PathStyle WindowsPaths{'\\', "\\/", true};

/// The style of the system we run on.
extern const PathStyle SystemPaths;

/// `path` ending in a separator; one that it already ends in is left as it is. An empty path becomes the
/// root.
std::string AddTrailingSeparator(std::string path, const PathStyle& style = SystemPaths);

/// The path of `name` in `folder`, with one separator between them whatever the two bring along. An empty
/// folder is the current one: the name alone.
std::string JoinPath(const std::string& folder, std::string_view name, const PathStyle& style = SystemPaths);

struct FileNameParts {
    std::string Folder;    ///< up to and including the last separator or the drive's colon; else empty
    std::string Name;      ///< without folder and extension
    std::string Extension; ///< after the last point of the name, without it; empty where there is none
    bool HasPoint = false; ///< tells "x." from "x"

    /// The name with its extension, as it stood in the path.
    [[nodiscard]] std::string Title() const { return HasPoint ? Name + "." + Extension : Name; }
};

/// Splits a path at its last separator and the last point after it: a point in the folder is no extension,
/// and
/// ".pl" is an empty name with the extension "pl". Folder and title put together are the path again.
FileNameParts Get_File_Name_Parts(std::string_view fullName, const PathStyle& style = SystemPaths);

/// `path` as a path from a root, taken relative to the absolute `startFolder` where it has none of its own.
/// A leading "./" is dropped, any other "." or ".." stays. With drives, a path from the root of an unnamed
/// drive takes that of `startFolder`; a relative one on another drive counts from that drive's root. An empty
/// path names nothing and stays empty. Its separators become the style's own: a path typed in two ways is
/// one.
std::string AbsolutePath(const std::string& startFolder, std::string path,
                         const PathStyle& style = SystemPaths);

/// `path` without what its names cancel out: ".", "folder/..", a separator after another. Taken as it is
/// written: a folder that is a link to elsewhere is not looked at, so a plain path compares writings and
/// opens no file.
std::string PlainPath(std::string_view path, const PathStyle& style = SystemPaths);

} // namespace brindle
