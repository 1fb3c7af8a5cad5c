#include "support/vdr810_commands.h"

/// What the commands make of the option files beside the program: read, made, missed or refused.
namespace brindle {
namespace {

TEST_F(Vdr810Commands, AMalformedOptionFileMakesNoNewLogic) {
    Harness.Files[Option230] = "identity\r\nnot a number\r\n";
    Harness->mnuFileNewVdr810_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text, "There was an error trying to open the File.\r\nError number: 13\r\n"
                                     "Error description: Type mismatch\r\nError Source: read "
                                     "/opt/brindle/PLC00230_OPT00012.810, value 2 of the header");
    EXPECT_EQ(Config().RelayModel, RelayKind::Vdr812);
}

TEST_F(Vdr810Commands, AnOptionFileThatEndsEarlyHasTheGenericBoxToo) {
    Harness.Files[Option230] = "identity\r\n1.00\r\n";
    Harness->mnuFileNewVdr810_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text.substr(0, 61),
              "There was an error trying to open the File.\r\nError number: 62");
    EXPECT_NE(Harness.Boxes[0].Text.find(Option230), std::string::npos);
}

TEST_F(Vdr810Commands, WithoutOptionFileTheCaptionNamesIt) {
    Harness.Files.erase(Option230);
    Open("/data/x.c10");
    EXPECT_EQ(Harness->Identity(),
              "File: x.c10\r\nDate:5/4/2001  Time:10:12:33\r\nVersion:2.30  Options:0012\r\n"
              "Missing: PLC00230_OPT00012.810");
    EXPECT_FALSE(HasFile(Option230)) << "a file that brought no lists makes none";
    EXPECT_EQ(Harness->View().Inputs[4].Text, "") << "nobody knows the name";
    EXPECT_EQ(Harness->View().Inputs[5].Text, "FALSE") << "the inverted TRUE, until somebody tells";
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->mnuClearDisplayedUnit_Click();
    EXPECT_EQ(Config().InputCode(1, 1, 5), 255);
}

TEST_F(Vdr810Commands, ListsOfTheLogicFileMakeTheOptionFile) {
    Harness.Files.erase(Option230);
    Harness.Files["/data/x.c10"] +=
        "<CATEGORY INFO>\r\n3,Trip\r\n-1\r\n<LABEL INFO>\r\n3,20,Z1P\r\n3,255,FALSE\r\n";
    Open("/data/x.c10");
    ASSERT_TRUE(HasFile(Option230));
    OptionFile made;
    ASSERT_FALSE(DecodeOptionFile(Harness.Files[Option230], "made", made).Failed());
    EXPECT_EQ(made.Head.Categories, 2) << "as many lines as were written";
    EXPECT_EQ(made.Head.Labels, 2);
    EXPECT_EQ(made.Unconnected, 255);
    EXPECT_EQ(made.Lists, Config().Lists);
    EXPECT_EQ(Harness->Identity().find("Missing"), std::string::npos);
}

TEST_F(Vdr810Commands, AnOptionFileThatIsThereIsNeverWritten) {
    const std::string before = Harness.Files[Option230];
    Harness.Files["/data/x.c10"] += "<LABEL INFO>\r\n3,20,OTHER\r\n";
    Open("/data/x.c10");
    EXPECT_EQ(Harness.Files[Option230], before);
    EXPECT_EQ(Harness->View().Inputs[4].Text, "Z1P") << "the option file's lists hold";
}

TEST_F(Vdr810Commands, AMalformedOptionFileLeavesTheListsOfTheLogicFile) {
    Harness.Files[Option230] = "identity\r\n";
    Harness.Files["/data/x.c10"] += "<LABEL INFO>\r\n3,20,OWN\r\n3,255,FALSE\r\n";
    Open("/data/x.c10");
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_NE(Harness.Boxes[0].Text.find(Option230), std::string::npos);
    EXPECT_EQ(Harness->View().Inputs[4].Text, "OWN");
    EXPECT_EQ(Config().FilePath, "/data/x.c10");
}

TEST_F(Vdr810Commands, AnOptionFileThatCountsOtherSignalsIsUsedAndToldAtTheFoot) {
    LogicConfig other = SchemeLists(2.3, 12);
    other.Coding.InvertBase = 400;
    Harness.Files[Option230] = EncodeOptionFile(other);
    Open("/data/x.c10");
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_EQ(Harness->View().Inputs[4].Text, "Z1P");
    EXPECT_EQ(Config().Coding.InvertBase, 256);
    EXPECT_EQ(Harness.ShownStatus,
              (std::vector<std::string>{
                  "The option file PLC00230_OPT00012.810 counts 400 signals, this logic 256."}));
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.ShownStatus.size(), 1U) << "a save does not mend it";
    Harness->mnuNewFileVer230_Click();
    EXPECT_TRUE(Harness.ShownStatus.empty());
}

TEST_F(Vdr810Commands, AnOptionFileOfAnotherVersionThanItsNameIsUsedForWhatItsNameSays) {
    Harness.Files[Option230] = SchemeOptionFile(1.0, 0);
    Harness->mnuFileNewVdr810_Click();
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_EQ(Config().RelayModel, RelayKind::Vdr810);
    EXPECT_EQ(Config().Vdr810.SettingsVersion, 2.3);
    EXPECT_EQ(Config().Version, 2.3F);
    EXPECT_EQ(Config().Vdr810.Options, 12);
    EXPECT_EQ(Harness.ShownStatus, (std::vector<std::string>{
                                       "The option file PLC00230_OPT00012.810 says in its head that it is of "
                                       "version 1.00 and options 0."}));
    Open("/data/x.c10");
    EXPECT_EQ(Harness->View().Inputs[4].Text, "Z1P");
    EXPECT_EQ(Harness.ShownStatus.size(), 1U);
}

/// A logic file with lists of its own beside an option file that cannot be read.
struct Vdr810ListsHereAlone : Vdr810Commands {
    Vdr810ListsHereAlone() {
        Harness.Files[Option230] = "identity\r\n";
        Harness.Files["/data/x.c10"] += "<LABEL INFO>\r\n3,20,OWN\r\n";
        Open("/data/x.c10");
        Harness.Boxes.clear();
    }
};

TEST_F(Vdr810ListsHereAlone, SaveAsksBeforeItLeavesThemOut) {
    const std::string before = Harness.Files["/data/x.c10"];
    Harness.AnswerBox(MessageAnswer::Cancel);
    Harness->mnuFileSave_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text, "The names of signals that this file brought along are in no option "
                                     "file: PLC00230_OPT00012.810 could not "
                                     "be made or read, or its name is none that is looked for.  A logic file "
                                     "is saved without them.\r\nSelect OK to save without the names.  To "
                                     "abort press cancel.");
    EXPECT_EQ(Harness.Files["/data/x.c10"], before);
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/data/x.c10"], SchemeLogicFile(2.3, 12));
}

TEST_F(Vdr810ListsHereAlone, SaveMakesTheOptionFileWhenItCanNow) {
    Harness.Files.erase(Option230);
    Harness->mnuFileNewVdr810_Click(); // offers nothing, but has looked at the folder anew
    Harness->mnuFileSave_Click();
    EXPECT_TRUE(HasFile(Option230));
    EXPECT_TRUE(Harness.Boxes.empty());
}

/// Saves a logic with lists of its own, whose head is of that version and options number, and opens it again.
struct Vdr810NamesKept : Vdr810Commands {
    void OpenWithOwnLists(double version, std::int16_t options) {
        Harness.Files["/data/own.c10"] =
            SchemeLogicFile(version, options) + "<LABEL INFO>\r\n3,20,OWN\r\n3,255,FALSE\r\n";
        Open("/data/own.c10");
        ASSERT_EQ(Harness->View().Inputs[4].Text, "OWN");
    }

    /// Save asks, and leaves the file with its names when the user does not agree.
    void ExpectSaveAsks(const std::string& optionFile) {
        const std::string before = Harness.Files["/data/own.c10"];
        Harness.AnswerBox(MessageAnswer::Cancel);
        Harness->mnuFileSave_Click();
        ASSERT_EQ(Harness.Boxes.size(), 1U);
        EXPECT_NE(Harness.Boxes[0].Text.find(optionFile), std::string::npos) << Harness.Boxes[0].Text;
        EXPECT_EQ(Harness.Files["/data/own.c10"], before);
    }
};

TEST_F(Vdr810NamesKept, AnOptionsNumberOfFiveDigitsNamesAFileThatNoOpeningFinds) {
    OpenWithOwnLists(2.3, 12345);
    ExpectSaveAsks("PLC0023012345.810");
}

TEST_F(Vdr810NamesKept, AVersionOfAHundredNamesAFileThatNoOpeningFinds) {
    OpenWithOwnLists(100, 12);
    ExpectSaveAsks("10000_OPT00012.810");
}

TEST_F(Vdr810NamesKept, AVersionBetweenTwoHundredthsFindsTheFileThatItWasWrittenTo) {
    std::string text = SchemeLogicFile(2.12, 12) + "<LABEL INFO>\r\n3,20,OWN\r\n3,255,FALSE\r\n";
    text.replace(text.find("2.12"), 4, "2.125");
    Harness.Files["/data/own.c10"] = text;
    Open("/data/own.c10");
    EXPECT_TRUE(HasFile("/opt/brindle/PLC00212_OPT00012.810"));
    Harness->mnuFileSave_Click();
    EXPECT_TRUE(Harness.Boxes.empty());
    Harness->mnuNewFileVer230_Click();
    Open("/data/own.c10");
    EXPECT_EQ(Harness->View().Inputs[4].Text, "OWN") << "the names are still there";
}

TEST_F(Vdr810Commands, AFileThatCannotMakeItsOptionFileOpensNevertheless) {
    Harness.Files.erase(Option230);
    Harness.Files["/data/x.c10"] += "<LABEL INFO>\r\n3,20,OWN\r\n";
    EditorHarness closed;
    closed.Files = Harness.Files;
    closed.Surroundings.Files.CreateNew = [](const std::string& path, std::uint32_t /*mode*/,
                                             FileHandle& /*handle*/) {
        return MakeFileError(PathAccessError, "create " + path);
    };
    closed.Start();
    closed->OpenPath("/data/x.c10");
    ASSERT_EQ(closed.Boxes.size(), 1U);
    EXPECT_EQ(closed.Boxes[0].Text, "The selected path can not be accessed.");
    EXPECT_EQ(closed->View().Inputs[4].Text, "OWN");
    EXPECT_EQ(closed->Config().FilePath, "/data/x.c10");
}

TEST_F(Vdr810Commands, ARefusedFileIsShownWithTheNamesOfItsOptionFile) {
    Harness.Files["/data/x.c10"] += "9,1\r\n";
    Open("/data/x.c10");
    EXPECT_EQ(Harness->View().Inputs[4].Text, "Z1P");
    EXPECT_EQ(Harness->Identity().find("Missing"), std::string::npos);
}

} // namespace
} // namespace brindle
