#include "settings/web_links.h"
#include "support/fake_file_system.h"
#include "support/memory_profile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* HomePage = "https://brindle.example/";

WebLinks LinksOf(const std::string& keys) {
    MemoryProfile profile;
    profile.Text = "[Brindle Web]\r\n" + keys;
    return ReadWebLinks(profile.Settings());
}

/// Opens addresses with a browser that only takes notes.
class WebAddress : public testing::Test {
  protected:
    WebAddress() {
        Files.AddFolder("/opt");
        Files.AddFolder("/opt/brindle");
    }

    bool Open(const std::string& address = "https://a.example/x") {
        WebFunctions functions;
        functions.ProgramFolder = "/opt/brindle";
        functions.FilePage = HomePage;
        functions.Files = Files.Operations();
        functions.Browser.FindExecutable = [this](const std::string& path, std::string& program) {
            Log.push_back("find for " + path);
            program = FoundProgram;
            return Finding;
        };
        functions.Browser.StartProgram = [this](const std::string& program, const std::string& argument) {
            Log.push_back("start " + program + " " + argument);
            return Starting;
        };
        functions.ShowMessageBox = [this](const MessageBox& box) {
            Boxes.push_back(box);
            return MessageAnswer::Ok;
        };
        return OpenWebAddress(address, functions);
    }

    FakeFileSystem Files;
    std::string FoundProgram = "/usr/bin/browser";
    int Finding = 33;
    int Starting = 33;
    Texts Log;
    std::vector<MessageBox> Boxes;
};

TEST(WebLinks, UntilSomeoneSetsThemLeadNowhere) {
    MemoryProfile profile;
    const WebLinks links = ReadWebLinks(profile.Settings());
    const std::vector<WebLink> pages{{"Brindle &Home Page", HomePage},
                                     {"Relay &Documentation", "https://brindle.example/documentation/"}};
    EXPECT_EQ(pages, links.Pages);
    EXPECT_EQ("ftp://ftp.brindle.example/", links.FtpSite);
    EXPECT_EQ(HomePage, links.FilePage);
}

TEST(WebLinks, ComeFromTheSettingsFile) {
    const WebLinks links =
        LinksOf("Page1=http://a.b/\r\nPage1Caption=&Ours\r\nPage2=\r\n"
                "Page9=https://c.d/?x=1&y=2\r\nFtpSite=ftp://e.f/\r\nFilePage=http://g.h/\r\n");
    const std::vector<WebLink> pages{{"&Ours", "http://a.b/"},
                                     {"https://c.d/?x=1&&y=2", "https://c.d/?x=1&y=2"}};
    EXPECT_EQ(pages, links.Pages) << "an item without a caption shows its address";
    EXPECT_EQ("ftp://e.f/", links.FtpSite);
    EXPECT_EQ("http://g.h/", links.FilePage);
}

TEST(WebLinks, ANewAddressDoesNotKeepTheUsualCaption) {
    EXPECT_EQ((WebLink{"http://a.b/", "http://a.b/"}), LinksOf("Page1=http://a.b/\r\n").Pages.at(0));
    EXPECT_EQ((WebLink{"&Mine", HomePage}), LinksOf("Page1Caption=&Mine\r\n").Pages.at(0));
}

TEST(WebLinks, WhatIsNoAddressIsLeftOut) {
    const WebLinks links = LinksOf("Page1=calc.exe\r\nPage2=http://a b/\r\nFtpSite=-x\r\nFilePage=\r\n");
    EXPECT_TRUE(links.Pages.empty());
    EXPECT_EQ("ftp://ftp.brindle.example/", links.FtpSite);
    EXPECT_EQ(HomePage, links.FilePage);
}

TEST(IsWebAddress, TakesAddressesOfTheWebAndNothingElse) {
    for (const char* address : {"http://a", "https://a/b?c=d&e#f", "ftp://a/"}) {
        EXPECT_TRUE(IsWebAddress(address)) << address;
    }
    for (const char* address :
         {"", "http://", "a", "--help", "file:///etc/passwd", "javascript:x", "http://a b", "http://a\"b",
          "http://a'b", "http://a\tb", "http://a\\b", " http://a"}) {
        EXPECT_FALSE(IsWebAddress(address)) << address;
    }
}

TEST_F(WebAddress, IsOpenedByTheProgramOfHtmFiles) {
    EXPECT_TRUE(Open());
    EXPECT_EQ((Texts{"find for /opt/brindle/Ripplet.htm", "start /usr/bin/browser https://a.example/x"}),
              Log);
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(WebAddress, TheProgramsPathEndsAtItsFirstZeroCharacter) {
    FoundProgram = std::string("/usr/bin/browser\0rest", 21);
    Open();
    EXPECT_EQ("start /usr/bin/browser https://a.example/x", Log.at(1));
}

TEST_F(WebAddress, TheFileToAskAboutIsCreatedWithOneLine) {
    Open();
    EXPECT_EQ("https://brindle.example/\r\n", Files.Content("/opt/brindle/Ripplet.htm"));
}

TEST_F(WebAddress, AnExistingFileIsLeftAsItIs) {
    Files.AddFile("/opt/brindle/Ripplet.htm", "mine");
    EXPECT_TRUE(Open());
    EXPECT_EQ("mine", Files.Content("/opt/brindle/Ripplet.htm"));
}

TEST_F(WebAddress, AFolderThatCannotBeWrittenIsNoHindrance) {
    Files.FailAll("create", PermissionDeniedError);
    EXPECT_TRUE(Open());
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(WebAddress, EveryFaultHasItsText) {
    const std::vector<std::pair<int, std::string>> texts{
        {0, "The system is out of memory or resources."},
        {2, "File not found.  Your browser could not be located."},
        {3, "Path not found.  Your browser could not be located."},
        {11, "Your browser could not be started.  It may have a corrupt executable file."},
        {31, "Your browser does not have the necessary file associations."},
        {5, "An unknown error occured trying to open your browser."},
        {32, "An unknown error occured trying to open your browser."},
        {-1, "An unknown error occured trying to open your browser."},
    };
    for (const auto& [fault, text] : texts) {
        Boxes.clear();
        Log.clear();
        Finding = fault;
        EXPECT_FALSE(Open());
        ASSERT_EQ(1U, Boxes.size()) << fault;
        EXPECT_EQ("The internet connection could not be established.  The following error was reported:\r\n" +
                      text,
                  Boxes[0].Text);
        EXPECT_EQ(MessageIcon::Exclamation, Boxes[0].Icon);
        EXPECT_EQ(MessageButtons::Ok, Boxes[0].Buttons);
        EXPECT_EQ(1U, Log.size()) << "nothing is started";
    }
}

TEST_F(WebAddress, ABrowserThatDoesNotStartIsToldInTheSameWords) {
    Starting = CorruptProgramFault;
    EXPECT_FALSE(Open());
    EXPECT_EQ("The internet connection could not be established.  The following error was reported:\r\n"
              "Your browser could not be started.  It may have a corrupt executable file.",
              Boxes.at(0).Text);
}

} // namespace
} // namespace brindle
