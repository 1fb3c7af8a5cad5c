#include "platform/help_engine.h"
#include "settings/help.h"
#include "support/fake_file_system.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

using Texts = std::vector<std::string>;

/// Help in a program's folder with or without its help file, on a system with or without an engine.
class Help : public testing::Test {
  protected:
    Help() {
        Files.AddFolder("/opt");
        Files.AddFolder("/opt/brindle");
    }

    Texts Show(const std::string& programFolder = "/opt/brindle") {
        Texts log;
        ShowHelp(programFolder, {Files.Operations(),
                                 [&](const std::string& path) {
                                     log.push_back("engine " + path);
                                     return EngineOpens;
                                 },
                                 [&] { log.emplace_back("guide"); }});
        return log;
    }

    FakeFileSystem Files;
    bool EngineOpens = true;
};

TEST_F(Help, IsTheHelpFileWhereTheSystemCanShowIt) {
    Files.AddFile("/opt/brindle/Brindle32.hlp", "help");
    EXPECT_EQ(Texts{"engine /opt/brindle/Brindle32.hlp"}, Show());
    EXPECT_EQ(Texts{"engine /opt/brindle/Brindle32.hlp"}, Show("/opt/brindle/"));
}

TEST_F(Help, IsTheGuideWhereThereIsNoEngine) {
    Files.AddFile("/opt/brindle/Brindle32.hlp", "help");
    EngineOpens = false;
    EXPECT_EQ((Texts{"engine /opt/brindle/Brindle32.hlp", "guide"}), Show());
}

TEST_F(Help, IsTheGuideWhereThereIsNoHelpFile) {
    EXPECT_EQ(Texts{"guide"}, Show());
}

TEST_F(Help, IsTheGuideWhereTheFolderCannotBeLookedInto) {
    Files.AddFile("/opt/brindle/Brindle32.hlp", "help");
    Files.FailAll("status", PermissionDeniedError);
    EXPECT_EQ(Texts{"guide"}, Show());
}

TEST(HelpEngine, IsOnNoCurrentSystem) {
    EXPECT_FALSE(OpenWithHelpEngine("/opt/brindle/Brindle32.hlp"));
}

} // namespace
} // namespace brindle
