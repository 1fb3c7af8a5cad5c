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
    NewFolderFunctions functions;
    functions.Folders = RealFolders();
    functions.ShowInputBox = [](const InputBox&) { return std::optional<std::string>("odd ~ name "); };
    functions.ShowMessageBox = [](const MessageBox& box) {
        ADD_FAILURE() << box.Text;
        return MessageAnswer::Ok;
    };
    EXPECT_EQ(folder.Path("odd ~ name "), MakeNewFolder(folder.Path(), functions));
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path("odd ~ name ")));
}

} // namespace
} // namespace brindle
