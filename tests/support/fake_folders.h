#pragma once

#include "platform/folders.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace brindle {

/// Folders in memory, "/" separates. Those in `Closed` exist and cannot be entered.
struct FakeFolders {
    std::set<std::string> Existing{"/"};
    std::set<std::string> Closed;
    std::string Current = "/";
    std::vector<std::string> Volumes{"/"};
    std::map<std::string, std::vector<std::string>> FilesOf; ///< names of the files in a folder
    int FailMaking = NoFileError;                            ///< error of every MakeFolder
    std::vector<std::string> Made;

    /// The operations on this object, which must outlive them.
    FolderFunctions Operations() {
        FolderFunctions folders;
        folders.FolderExists = [this](const std::string& path) { return Existing.count(path) == 1; };
        folders.ChangeFolder = [this](const std::string& path) {
            const bool enters = Existing.count(path) == 1 && Closed.count(path) == 0;
            if (enters) {
                Current = path;
            }
            return enters;
        };
        folders.CurrentFolder = [this] { return Current; };
        folders.ChangeDrive = [](const std::string& /*path*/) {};
        folders.MakeFolder = [this](const std::string& path) {
            if (FailMaking != NoFileError) {
                return MakeFileError(FailMaking, "make folder " + path);
            }
            Made.push_back(path);
            Existing.insert(path);
            return FileError{};
        };
        folders.MakePrivateFolder = folders.MakeFolder;
        folders.Drives = [this] { return Volumes; };
        folders.Files = [this](const std::string& path) { return FilesOf[path]; };
        folders.Subfolders = [this](const std::string& path) { return NamesIn(path); };
        return folders;
    }

  private:
    [[nodiscard]] std::vector<std::string> NamesIn(const std::string& path) const {
        const std::string start = path.back() == '/' ? path : path + "/";
        std::vector<std::string> names;
        for (const std::string& folder : Existing) {
            const bool inside = folder.size() > start.size() && folder.compare(0, start.size(), start) == 0;
            if (inside && folder.find('/', start.size()) == std::string::npos) {
                names.push_back(folder.substr(start.size()));
            }
        }
        return names;
    }
};

} // namespace brindle
