#include "files/signal_constants.h"
#include "platform/file_system.h"
#include "platform/folders.h"
#include "support/fake_file_system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

/// The lines of a text in which every line ends in CR LF, without those ends.
std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = text.find("\r\n", begin);
        if (end == std::string::npos) {
            ADD_FAILURE() << "a line without its end";
            break;
        }
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 2;
    }
    return lines;
}

TEST(SignalConstants, TheFirstLineNamesBit000AndTheLastBit100) {
    const std::vector<std::string> lines = LinesOf(SignalConstantsText());
    ASSERT_EQ(101U, lines.size());
    EXPECT_EQ("Public Const PLBIT000 As Integer = 2", lines.front());
    EXPECT_EQ("Public Const PLBIT009 As Integer = 11", lines[9]);
    EXPECT_EQ("Public Const PLBIT010 As Integer = 12", lines[10]);
    EXPECT_EQ("Public Const PLBIT099 As Integer = 101", lines[99]);
    EXPECT_EQ("Public Const PLBIT100 As Integer = 102", lines.back());
}

TEST(SignalConstants, EveryValueIsTwoMoreThanItsNumber) {
    const std::string prefix = "Public Const PLBIT";
    const std::string middle = " As Integer = ";
    int bit = 0;
    for (const std::string& line : LinesOf(SignalConstantsText())) {
        EXPECT_EQ(prefix, line.substr(0, prefix.size()));
        EXPECT_EQ(bit, std::stoi(line.substr(prefix.size(), 3)));
        EXPECT_EQ(middle, line.substr(prefix.size() + 3, middle.size()));
        EXPECT_EQ(std::to_string(bit + 2), line.substr(prefix.size() + 3 + middle.size()));
        ++bit;
    }
}

TEST(ExportSignalConstants, ASecondExportReplacesTheFirst) {
    const TempFolder folder;
    folder.Put("Const.tmp", "of another program\r\n" + SignalConstantsText());
    for (int run = 1; run <= 2; ++run) {
        EXPECT_FALSE(ExportSignalConstants(RealFileSystem(), folder.Path()).Failed());
        EXPECT_EQ(SignalConstantsText(), folder.Content("Const.tmp"));
        EXPECT_EQ(1, folder.Count());
    }
}

TEST(ExportSignalConstants, GoesToTheFolderThatIsCurrent) {
    const FolderFunctions folders = RealFolders();
    const std::string before = folders.CurrentFolder();
    const TempFolder folder;
    ASSERT_TRUE(folders.ChangeFolder(folder.Path()));
    const FileError error = ExportSignalConstants(RealFileSystem(), folders.CurrentFolder());
    folders.ChangeFolder(before);
    EXPECT_FALSE(error.Failed()) << error.Source;
    EXPECT_EQ(SignalConstantsText(), folder.Content("Const.tmp"));
}

TEST(ExportSignalConstants, AFullDiskIsReturnedAndTheOldFileStays) {
    FakeFileSystem files;
    files.AddFolder("/home");
    files.AddFile("/home/Const.tmp", "old");
    files.FailAll("write", DiskFullError);
    EXPECT_EQ(DiskFullError, ExportSignalConstants(files.Operations(), "/home").Number);
    EXPECT_EQ("old", files.Content("/home/Const.tmp"));
    EXPECT_EQ(0U, files.OpenHandles());
}

TEST(ExportSignalConstants, AFolderThatHasGoneIsReturned) {
    FakeFileSystem files;
    EXPECT_EQ(PathNotFoundError, ExportSignalConstants(files.Operations(), "/gone").Number);
}

} // namespace
} // namespace brindle
