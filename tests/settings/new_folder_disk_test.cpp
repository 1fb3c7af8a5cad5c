#include "platform/paths.h"
#include "settings/new_folder.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

namespace brindle {
namespace {

TEST(NewFolderOnDisk, IsThereAfterwards) {
    const TempFolder folder;
    const std::string name =
        SystemPaths.Drives ? "odd ~ name" : "odd ~ name "; // Windows drops the last blank
    NewFolderFunctions functions;
    functions.Folders = RealFolders();
    functions.ShowInputBox = [&name](const InputBox&) { return std::optional<std::string>(name); };
    functions.ShowMessageBox = [](const MessageBox& box) {
        ADD_FAILURE() << box.Text;
        return MessageAnswer::Ok;
    };
    EXPECT_EQ(folder.Path(name), MakeNewFolder(folder.Path(), functions));
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path(name)));
}

} // namespace
} // namespace brindle
