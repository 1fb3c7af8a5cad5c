#include "platform/browser.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <thread>

namespace brindle {
namespace {

/// Programs in a folder that is the whole PATH.
class RealBrowserTest : public testing::Test {
  protected:
    RealBrowserTest() : before_(std::getenv("PATH")) { setenv("PATH", (":" + Folder.Path()).c_str(), 1); }

    ~RealBrowserTest() override { setenv("PATH", before_.c_str(), 1); }

    void PutProgram(const std::string& name, const std::string& text) const {
        Folder.Put(name, text);
        std::filesystem::permissions(Folder.Path(name), std::filesystem::perms::owner_all);
    }

    /// The content of a file that a started program writes; empty when it does not come within a while.
    [[nodiscard]] std::string WaitFor(const std::string& name) const {
        for (int tries = 0; tries < 500 && Folder.Content(name).empty(); ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return Folder.Content(name);
    }

    TempFolder Folder;
    BrowserFunctions Browser = RealBrowser();

  private:
    std::string before_;
};

TEST_F(RealBrowserTest, IsFoundOnThePath) {
    std::string program;
    EXPECT_EQ(ProgramNotFoundFault, Browser.FindExecutable("/x/Ripplet.htm", program));
    Folder.Put("xdg-open", "not to be executed");
    EXPECT_EQ(ProgramNotFoundFault, Browser.FindExecutable("/x/Ripplet.htm", program));
    PutProgram("x-www-browser", "#!/bin/sh\n");
    EXPECT_LT(GreatestProgramFault, Browser.FindExecutable("/x/Ripplet.htm", program));
    EXPECT_EQ(Folder.Path("x-www-browser"), program);
    PutProgram("xdg-open", "#!/bin/sh\n");
    EXPECT_LT(GreatestProgramFault, Browser.FindExecutable("/x/Ripplet.htm", program));
    EXPECT_EQ(Folder.Path("xdg-open"), program);
}

TEST_F(RealBrowserTest, GetsTheAddressAsItsOneArgumentUntouchedByAShell) {
    PutProgram("browser", "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" > '" + Folder.Path("seen") + "'\n");
    const std::string address = "https://a.example/?x=$HOME&y=`id`;z *";
    EXPECT_LT(GreatestProgramFault, Browser.StartProgram(Folder.Path("browser"), address));
    EXPECT_EQ("1|" + address, WaitFor("seen"));
}

TEST_F(RealBrowserTest, LeavesNoProcessBehind) {
    PutProgram("browser", "#!/bin/sh\n");
    EXPECT_LT(GreatestProgramFault, Browser.StartProgram(Folder.Path("browser"), "x"));
    EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG));
    EXPECT_EQ(ECHILD, errno);
}

TEST_F(RealBrowserTest, ThatCannotBeStartedSaysWhy) {
    Folder.Put("text", "text");
    PutProgram("broken", "\x7F"
                         "ELF nothing");
    EXPECT_EQ(ProgramNotFoundFault, Browser.StartProgram(Folder.Path("none"), "x"));
    EXPECT_EQ(ProgramPathNotFoundFault, Browser.StartProgram(Folder.Path("text/browser"), "x"));
    EXPECT_EQ(CorruptProgramFault, Browser.StartProgram(Folder.Path("broken"), "x"));
    EXPECT_EQ(UnknownProgramFault, Browser.StartProgram(Folder.Path("text"), "x")) << "it is no program";
}

} // namespace
} // namespace brindle
