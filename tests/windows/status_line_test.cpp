#include "editor/status_line_widget.h"
#include "support/main_window_test_window.h"

#include <QPushButton>
#include <QScrollArea>

/// The line at the foot of the main window, and the question before a file of somebody else's is replaced.
namespace brindle {
namespace {

constexpr const char* StatusChangedNotice =
    "Another program has changed this file since it was opened or saved here.";

class StatusLine : public MainWindowTest {
  protected:
    [[nodiscard]] QStringList Notices() { return Find<StatusLineWidget>("lblStatus")->Notices(); }

    void Activate() {
        QEvent activate(QEvent::WindowActivate);
        QCoreApplication::sendEvent(Window.get(), &activate);
    }

    void OpenChanged() {
        LogicConfig config;
        MakeNewVdr812(config, Version230);
        WriteFile("x.pl", ProgramBytes(config));
        Start(PathOf("x.pl"));
        TheEditor->cbxOutputMap_Click(4, true);
        MakeNewVdr812(config, Version100);
        Others = ProgramBytes(config);
        WriteFile("x.pl", Others);
    }

    std::string Others;
};

TEST_F(StatusLine, IsEmptyAndHoldsItsPlaceWhenAllIsWell) {
    Start();
    EXPECT_TRUE(Notices().isEmpty());
    const auto* line = Find<StatusLineWidget>("lblStatus");
    EXPECT_TRUE(line->isVisible());
    EXPECT_GE(line->height(), line->fontMetrics().height());
    EXPECT_TRUE(line->toolTip().isEmpty());
}

TEST_F(StatusLine, TellsOfAChangeWhenTheWindowBecomesActiveAndMovesNothing) {
    OpenChanged();
    const QRect diagram = Find<QScrollArea>("picDiagramView")->geometry();
    Activate();
    EXPECT_EQ(Notices(), QStringList{QString::fromLatin1(StatusChangedNotice)});
    const auto* line = Find<StatusLineWidget>("lblStatus");
    EXPECT_EQ(line->accessibleName().toStdString(), StatusChangedNotice);
    EXPECT_EQ(line->toolTip().toStdString(), StatusChangedNotice);
    EXPECT_EQ(Find<QScrollArea>("picDiagramView")->geometry(), diagram);
    EXPECT_TRUE(Dialogs.Messages.empty());
    Dialogs.PressButton("Overwrite");
    Find<QPushButton>("cmdbtnSave")->click();
    EXPECT_TRUE(Notices().isEmpty());
}

TEST_F(StatusLine, SaveOfAChangedFileOffersSaveAsOverwriteAndCancel) {
    OpenChanged();
    Dialogs.PressEscape();
    Find<QPushButton>("cmdbtnSave")->click();
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Buttons, (std::set<std::string>{"Save As...", "Overwrite", "Cancel"}));
    EXPECT_TRUE(Dialogs.Messages[0].Exclamation);
    EXPECT_EQ(Content("x.pl"), Others);
}

TEST_F(StatusLine, TheDefaultButtonKeepsBothFiles) {
    OpenChanged();
    Dialogs.PressButton("Save As...");
    Dialogs.ChooseFile(PathOf("y.pl"));
    Find<QPushButton>("cmdbtnSave")->click();
    EXPECT_EQ(Content("x.pl"), Others);
    EXPECT_EQ(Content("y.pl"), ProgramBytes(TheEditor->Config()));
}

TEST_F(StatusLine, AForeignFileIsToldUntilItIsReplaced) {
    WriteFile("script.pl", "print 1;\n");
    Start(PathOf("script.pl"));
    ASSERT_EQ(Notices().size(), 1);
    EXPECT_TRUE(Notices()[0].startsWith(QStringLiteral("This is not a VDR812 program")));
    Dialogs.PressButton("Overwrite");
    Choose("mnuFileSave");
    EXPECT_TRUE(Notices().isEmpty());
    EXPECT_EQ(Content("script.pl").size(), ProgramFileSize);
}

} // namespace
} // namespace brindle
