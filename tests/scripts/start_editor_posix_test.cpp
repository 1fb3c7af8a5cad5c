#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>

namespace brindle {
namespace {

/// What `./run` starts once it has built the programs: here two that write down how they were called.
class StartEditor : public testing::Test {
  protected:
    StartEditor() {
        for (const char* name : {"brindle", "brindle-cli"}) {
            Folder.Put(name, "#!/bin/sh\nprintf '<%s>' " + std::string(name) + " \"$@\"\n");
            std::filesystem::permissions(Folder.Path(name), std::filesystem::perms::owner_all);
        }
    }

    /// Runs the script; what it wrote is then in Out and Err. Returns its exit code.
    int Run(const std::string& environment, const std::string& arguments) {
        const std::string command =
            "cd '" + Folder.Path() + "' && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " +
            environment + " '" BRINDLE_SCRIPTS "/start-editor' . " + arguments + " >out 2>err";
        const int status =
            std::system(command.c_str()); // NOLINT(cert-env33-c): the shell is what users start it from
        Out = Folder.Content("out");
        Err = Folder.Content("err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    TempFolder Folder;
    std::string Out;
    std::string Err;
};

TEST_F(StartEditor, OpensTheEditorWhereThereIsADisplay) {
    for (const char* environment : {"DISPLAY=:0", "WAYLAND_DISPLAY=wayland-0", "QT_QPA_PLATFORM=offscreen"}) {
        EXPECT_EQ(0, Run(environment, "'a b.pl' c")) << environment;
        EXPECT_EQ("<brindle><a b.pl><c>", Out) << environment;
        EXPECT_EQ("", Err) << environment;
    }
    EXPECT_EQ(0, Run("DISPLAY=:0", ""));
    EXPECT_EQ("<brindle>", Out);
}

TEST_F(StartEditor, WritesTheReportOfTheFileWhereThereIsNone) {
    EXPECT_EQ(0, Run("DISPLAY=", "'two  blanks.pl'"));
    EXPECT_EQ("<brindle-cli><report><--><two  blanks.pl>", Out);
    EXPECT_NE(std::string::npos, Err.find("There is no display")) << Err;
    EXPECT_EQ(0, Run("", "my scheme.pl"));
    EXPECT_EQ("<brindle-cli><report><--><my scheme.pl>", Out) << "the whole line is one path";
}

TEST_F(StartEditor, SaysWhatToDoWhereThereIsNeitherDisplayNorFile) {
    EXPECT_EQ(1, Run("", ""));
    EXPECT_EQ("", Out);
    EXPECT_NE(std::string::npos, Err.find("There is no display")) << Err;
    EXPECT_NE(std::string::npos, Err.find("Name a file")) << Err;
}

TEST_F(StartEditor, LeavesHelpAndVersionToTheEditor) {
    for (const std::string option : {"--help", "--version"}) {
        EXPECT_EQ(0, Run("", option));
        EXPECT_EQ("<brindle><" + option + ">", Out);
        EXPECT_EQ("", Err);
    }
}

} // namespace
} // namespace brindle
