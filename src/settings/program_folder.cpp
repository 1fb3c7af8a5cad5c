#include "settings/program_folder.h"

#include "files/plc_folder.h"
#include "files/whole_file.h"
#include "platform/paths.h"
#include "settings/setting_keys.h"

namespace brindle {

namespace {

constexpr const char* OwnName = "brindle"; ///< of our folder among those of other programs

/// The folder that `folder` lies in.
std::string FolderAbove(const std::string& folder) {
    const std::string above = Get_File_Name_Parts(folder).Folder;
    return above.size() > 1 ? above.substr(0, above.size() - 1) : above;
}

/// The value of a variable that names a folder; empty where it does not say from the root where that is.
std::string FolderVariable(const EnvironmentFunction& environment, const char* name) {
    const std::string folder = environment(name);
    return AbsolutePath("/", folder) == folder ? folder : "";
}

std::string UserFolder(const EnvironmentFunction& environment) {
    const std::string data = FolderVariable(environment, "XDG_DATA_HOME");
    if (!data.empty()) {
        return JoinPath(data, OwnName);
    }
    const std::string home = FolderVariable(environment, "HOME");
    return home.empty() ? "" : JoinPath(JoinPath(JoinPath(home, ".local"), "share"), OwnName);
}

void CopySeeds(const ProgramFolders& found, const FileSystem& files, const FolderFunctions& folders) {
    for (const PlcFolderEntry& seed : ScanPlcFolder(folders, found.Seeds).Entries) {
        const std::string path = JoinPath(found.Program, seed.Name);
        std::string text;
        if (IsAbsent(files, path) && !ReadWholeText(files, JoinPath(found.Seeds, seed.Name), text).Failed()) {
            ReplaceWholeFile(files, path, text);
        }
    }
}

/// Makes the folders on the way to `folder` that are missing, and the folder itself.
FileError MakeFolders(const FolderFunctions& folders, const std::string& folder) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = folder.find_first_of(SystemPaths.Separators, end + 1);
        const std::string part = folder.substr(0, end);
        if (folders.FolderExists(part)) {
            continue;
        }
        FileError error = folders.MakePrivateFolder(part);
        if (error.Failed() && !folders.FolderExists(part)) { // another start may have been quicker
            return error;
        }
    }
    return {};
}

} // namespace

ProgramFolders FindProgramFolders(const std::string& executableFolder, const EnvironmentFunction& environment,
                                  const FolderFunctions& folders) {
    const std::string prefix = FolderAbove(executableFolder);
    const std::string seeds = JoinPath(JoinPath(prefix, "share"), OwnName);
    if (executableFolder != JoinPath(prefix, "bin") || !folders.FolderExists(seeds)) {
        return {executableFolder, ""};
    }
    const std::string user = UserFolder(environment);
    return {user.empty() ? seeds : user, seeds};
}

std::string ProvideProgramFolder(const ProgramFolders& found, const FileSystem& files,
                                 const FolderFunctions& folders) {
    if (found.Seeds.empty() || found.Seeds == found.Program) {
        return found.Program;
    }
    if (MakeFolders(folders, found.Program).Failed()) {
        return found.Seeds;
    }
    if (IsAbsent(files, JoinPath(found.Program, SettingsFileName))) {
        CopySeeds(found, files, folders);
    }
    return found.Program;
}

std::string OptionFileFolder(const ProgramFolders& found, const FolderFunctions& folders) {
    const bool none = !found.Seeds.empty() && !folders.FolderExists(found.Program);
    return none ? found.Seeds : found.Program;
}

} // namespace brindle
