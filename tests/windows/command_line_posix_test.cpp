#include "app/start_arguments.h"
#include "model/logic_config.h"
#include "support/child_process.h"
#include "support/main_window_test_window.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace brindle {
namespace {

/// The editor's program as a shell starts it, in a folder of its own that is then the program's.
class EditorProgram : public testing::Test {
  protected:
    EditorProgram() { std::filesystem::copy_file(BRINDLE_EDITOR, Folder.Path("brindle")); }

    /// Runs it with arguments for the shell on a display that does not exist; returns its exit code.
    [[nodiscard]] int RunWithoutDisplay(const std::string& arguments) const {
        const std::string command =
            "cd '" + Folder.Path() + "' && QT_QPA_PLATFORM=none-such ./brindle " + arguments + " >out 2>err";
        const int status =
            std::system(command.c_str()); // NOLINT(cert-env33-c): the shell is what users start it from
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// The settings file once it holds `text`; what it holds after a while where that does not come.
    [[nodiscard]] std::string SettingsWith(const std::string& text) const {
        constexpr auto patience = std::chrono::seconds(20);
        constexpr auto step = std::chrono::milliseconds(20);
        const auto end = std::chrono::steady_clock::now() + patience;
        while (Folder.Content("Benchkit.ini").find(text) == std::string::npos &&
               std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(step);
        }
        return Folder.Content("Benchkit.ini");
    }

    TempFolder Folder;
};

TEST_F(EditorProgram, AnswersHelpAndVersionOnStandardOutputWithoutADisplay) {
    EXPECT_EQ(0, RunWithoutDisplay("--help"));
    EXPECT_EQ(0U, Folder.Content("out").find("Usage: brindle [FILE]\n"));
    EXPECT_EQ(0, RunWithoutDisplay("--version"));
    const std::string version = Folder.Content("out");
    EXPECT_EQ(0U, version.find("brindle ")) << version;
    EXPECT_EQ('\n', version.back());
    EXPECT_EQ("", Folder.Content("err"));
    EXPECT_FALSE(std::filesystem::exists(Folder.Path("Benchkit.ini"))) << "nothing was started";
}

TEST_F(EditorProgram, OpensAPathWhoseBytesAreNoText) {
    LogicConfig config;
    MakeNewVdr812(config, Version230);
    const std::string path = Folder.Path("sch\xE9ma two.pl");
    Folder.Put("sch\xE9ma two.pl", ProgramBytes(config));
    const std::string program = Folder.Path("brindle");
    ChildProcess editor([&] {
        std::array<const char*, 4> arguments{program.c_str(), "sch\xE9ma", "two.pl", nullptr};
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        if (::chdir(Folder.Path().c_str()) == 0) {
            ::execv(program.c_str(), const_cast<char* const*>(arguments.data()));
        }
        return false;
    });
    const std::string wanted = "Recent0=" + path + ",sch\xE9ma two.pl,1\r\n";
    EXPECT_NE(std::string::npos, SettingsWith(wanted).find(wanted)) << Folder.Content("Benchkit.ini");
    editor.Kill();
}

TEST(StartArguments, AreOnePathUnlessTheyAskForAnAnswer) {
    EXPECT_EQ("/here/my scheme.pl", PathOfArguments({"my", "scheme.pl"}, "/here"));
    EXPECT_EQ("/here/--help", PathOfArguments({"./--help"}, "/here"));
    EXPECT_EQ("", PathOfArguments({}, "/here"));
    EXPECT_TRUE(AnswerWithoutWindow({"--help"}));
    EXPECT_TRUE(AnswerWithoutWindow({"--version"}));
    for (const std::vector<std::string>& path :
         {std::vector<std::string>{}, {"./--help"}, {"--help", "x"}, {"-h"}}) {
        EXPECT_FALSE(AnswerWithoutWindow(path));
    }
}

} // namespace
} // namespace brindle
