#include "app/surroundings.h"

#include "app/version.h"
#include "platform/common_dialogs.h"

#include <utility>

namespace brindle {

EditorSurroundings RealSurroundings(const std::string& programFolder, std::function<QWidget*()> parent) {
    EditorSurroundings surroundings;
    surroundings.ProgramFolder = programFolder;
    surroundings.ProgramMajor = ProgramMajor;
    surroundings.ProgramMinor = ProgramMinor;
    surroundings.ProgramRevision = ProgramRevision;
    surroundings.Files = RealFileSystem();
    surroundings.Profile = SystemProfile(surroundings.Files);
    surroundings.Folders = RealFolders();
    surroundings.ShowMessageBox = [parent](const MessageBox& box) { return ShowQtMessageBox(parent(), box); };
    surroundings.RunFileDialog = [parent = std::move(parent)](const FileDialogRequest& request) {
        return RunQtFileDialog(parent(), request);
    };
    surroundings.LoadRecentFiles = [] {};
    surroundings.FileUsed = [](const std::string&, const std::string&, RelayKind) {};
    return surroundings;
}

} // namespace brindle
