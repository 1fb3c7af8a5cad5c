#include "editor/form_category_brindle.h"
#include "editor/identity_label_widget.h"
#include "editor/menu_tree.h"
#include "files/vdr810_reader.h"
#include "support/main_window_test_window.h"
#include "support/vdr810_scheme.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

namespace brindle {
namespace {

constexpr const char* SchemeOption230 = "PLC00230_OPT00012.810";

class Vdr810Window : public MainWindowTest {
  protected:
    /// How wide a text the style shows whole.
    static int RoomForText(const QCheckBox& box) {
        QStyleOptionButton option;
        option.initFrom(&box);
        option.text = box.text();
        return box.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &box).width();
    }

    /// Chooses in the options dialog, by the texts of its lists, and presses Done.
    void NewVdr810(const char* version, const char* options) {
        Dialogs.Drive([version, options](QDialog& dialog) {
            auto* versions = dialog.findChild<QComboBox*>(QStringLiteral("cboSettingsFileVersionVdr810"));
            versions->setCurrentIndex(versions->findText(QString::fromLatin1(version)));
            auto* numbers = dialog.findChild<QComboBox*>(QStringLiteral("cboSelectOptions"));
            numbers->setFocus();
            const int wanted = numbers->findText(QString::fromLatin1(options));
            for (int step = numbers->currentIndex(); step < wanted; ++step) {
                QTest::keyClick(numbers, Qt::Key_Down);
            }
            QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdDone")), Qt::LeftButton);
        });
        Choose("mnuFileNewVdr810");
    }

    void Connect(int input, int category, int button) {
        QTest::mouseClick(Find<QLineEdit>(ElementName("txtPlo", input).c_str()), Qt::LeftButton);
        const std::string item = ElementName("mnuLogicCategoriesCategory", category);
        if (!Find<QAction>(item.c_str())->isChecked()) {
            Choose(item.c_str());
        }
        auto* chooser = Window->findChild<formCategoryBrindle*>(
            QString::fromStdString(ElementName("formCategoryBrindle", category)));
        ASSERT_NE(chooser, nullptr);
        QTest::mouseClick(chooser->findChild<QPushButton*>(
                              QString::fromStdString(ElementName("cmdSelectCategory", button))),
                          Qt::LeftButton);
    }

    QString Identity() { return Find<IdentityLabelWidget>("lblIdentity")->Text(); }
};

TEST_F(Vdr810Window, ASchemeDrawnUpAnewIsSavedAndReadBack) {
    WriteFile(SchemeOption230, SchemeOptionFile(2.3, 12));
    WriteFile("PLC00230_OPT00003.810", SchemeOptionFile(2.3, 3));
    WriteFile("PLC00100_OPT00000.810", SchemeOptionFile(1.0, 0));
    Start();
    NewVdr810("2.30", "12");
    EXPECT_EQ(Window->windowTitle().toStdString(),
              "VDR810 Programmable Logic          (File: " + PathOf("New_File.c10") + ") Version: 2.30");
    EXPECT_TRUE(Identity().startsWith(QStringLiteral("File: New_File.c10\nDate:")));
    EXPECT_TRUE(Identity().endsWith(QStringLiteral("\nVersion:2.30  Options:0012")));

    Connect(5, 1, 0);                                                 // "Zone 1 phase"
    QTest::mouseDClick(Find<QLineEdit>("txtPlo(5)"), Qt::LeftButton); // inverted
    Connect(9, 2, 0);                                                 // "Input 1"
    QTest::keyClicks(Find<QLineEdit>("txtTimerPU"), QStringLiteral("250"));
    QTest::keyClick(Find<QCheckBox>("cbxOutputMap(17)"), Qt::Key_Space);
    EXPECT_EQ(TextOf("txtPlo(5)"), "Z1P");
    QTest::mouseClick(Find<QPushButton>("cmdbtnSave"), Qt::LeftButton);
    EXPECT_FALSE(TheEditor->Config().Modified);

    LogicConfig expected = SchemeLists(2.3, 12);
    auto& inputs = expected.Group(1).Unit(1).Inputs;
    inputs[4] = 256 - 20;
    inputs[5] = inputs[6] = inputs[7] = TrueCode;
    inputs[8] = 40;
    inputs[9] = inputs[10] = inputs[11] = TrueCode;
    expected.Group(1).Timer(1).PickUp = 250;
    expected.Group(1).OutputMap(1, 2) = 0x8000;
    EXPECT_EQ(Content("New_File.c10"), EncodeVdr810(expected));

    Choose("mnuNewFileVer100");
    Dialogs.ChooseFile(PathOf("New_File.c10"));
    Choose("mnuOpenBin");
    EXPECT_EQ(TheEditor->Config().Groups, expected.Groups);
    EXPECT_EQ(TextOf("txtPlo(9)"), "IN1");
    EXPECT_TRUE(Find<QCheckBox>("cbxOutputMap(17)")->isChecked());
    EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(Vdr810Window, ChangingTheVersionOffersItsOptionsAlone) {
    WriteFile(SchemeOption230, SchemeOptionFile(2.3, 12));
    WriteFile("PLC00230_OPT00000.810", SchemeOptionFile(2.3, 0));
    WriteFile("PLC00100_OPT00007.810", SchemeOptionFile(1.0, 7));
    Start();
    QStringList offered;
    Dialogs.Drive([&offered](QDialog& dialog) {
        auto* versions = dialog.findChild<QComboBox*>(QStringLiteral("cboSettingsFileVersionVdr810"));
        auto* numbers = dialog.findChild<QComboBox*>(QStringLiteral("cboSelectOptions"));
        for (int index = 0; index < versions->count(); ++index) {
            versions->setCurrentIndex(index);
            QStringList of{versions->itemText(index)};
            for (int number = 0; number < numbers->count(); ++number) {
                of << numbers->itemText(number);
            }
            offered << of.join(QLatin1Char(' '));
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    Choose("mnuFileNewVdr810");
    EXPECT_EQ(offered, QStringList({QStringLiteral("1.00 7"), QStringLiteral("2.30 0 12")}));
    EXPECT_EQ(TheEditor->Config().RelayModel, RelayKind::Vdr812) << "Escape cancels";
}

TEST_F(Vdr810Window, WithoutOptionFilesTheDialogSaysWhereTheyBelong) {
    Start();
    QString told;
    bool doneEnabled = true;
    Dialogs.Drive([&](QDialog& dialog) {
        told = dialog.findChild<QLabel*>(QStringLiteral("lblNoOptionFile"))->text();
        doneEnabled = dialog.findChild<QPushButton*>(QStringLiteral("cmdDone"))->isEnabled();
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdCancel")), Qt::LeftButton);
    });
    Choose("mnuFileNewVdr810");
    EXPECT_TRUE(told.contains(QDir::toNativeSeparators(Folder.path())));
    EXPECT_FALSE(doneEnabled);
}

TEST_F(Vdr810Window, ThePanelAndGroups7And8FollowTheModel) {
    WriteFile(SchemeOption230, SchemeOptionFile(2.3, 12));
    WriteFile("x.c10", SchemeLogicFile(2.3, 12));
    Start(PathOf("x.c10"));
    EXPECT_TRUE(Find<QLabel>("pctTimerLatchFB")->isVisible());
    EXPECT_EQ(TextOf("pctTimerLatchFB"), "T1FB");
    EXPECT_FALSE(Find<QWidget>("lblGroupNumber(7)")->isVisible());
    EXPECT_FALSE(Find<QAction>("mnuGroup(8)")->isVisible());
    Choose("mnuTimerLatch(8)");
    EXPECT_EQ(TextOf("pctTimerLatchFB"), "S1FB");
    Choose("mnuNewFileVer230");
    EXPECT_FALSE(Find<QLabel>("pctTimerLatchFB")->isVisible());
    EXPECT_TRUE(Find<QWidget>("lblGroupNumber(7)")->isVisible());
    EXPECT_TRUE(Find<QAction>("mnuGroup(8)")->isVisible());
    EXPECT_FALSE(Find<QWidget>("lblIdentity")->isVisible());
}

TEST_F(Vdr810Window, EightBanksStandInTheFrameAndTheWindow) {
    LogicConfig config = SchemeLists(2.3, 12);
    config.FirstOutput = 1;
    config.LastOutput = 128;
    WriteFile("x.c10", EncodeVdr810(config));
    Start(PathOf("x.c10"));
    const auto* frame = Find<QGroupBox>("fraMapRelayOutput");
    const QRect inFrame = frame->rect();
    for (int output = 1; output <= 128; ++output) {
        const auto* box = Find<QCheckBox>(ElementName("cbxOutputMap", output).c_str());
        EXPECT_TRUE(inFrame.contains(box->geometry())) << output;
        EXPECT_GE(RoomForText(*box), box->fontMetrics().horizontalAdvance(box->text())) << output;
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame->parentWidget()->rect().contains(frame->geometry()); }));
    // On a screen that is too small for them all the keyboard still brings each into view.
    auto* last = Find<QCheckBox>("cbxOutputMap(128)");
    Find<QCheckBox>("cbxOutputMap(127)")->setFocus();
    QTest::keyClick(Find<QCheckBox>("cbxOutputMap(127)"), Qt::Key_Tab);
    EXPECT_TRUE(last->hasFocus());
    EXPECT_TRUE(QTest::qWaitFor([&] { return last->visibleRegion().boundingRect() == last->rect(); }));
    QTest::keyClick(Find<QCheckBox>("cbxOutputMap(128)"), Qt::Key_Space);
    EXPECT_EQ(TheEditor->Config().Group(1).OutputMap(1, 8), 1U);
}

TEST_F(Vdr810Window, MoreCategoriesThanTheMenuHadHaveTheirItemsAndChoosers) {
    LogicConfig lists = SchemeLists(2.3, 12);
    lists.Lists.Categories.clear();
    for (int number = 0; number < 40; ++number) {
        const std::string name = "Category " + std::to_string(number);
        lists.Lists.Categories.push_back({number, name, name});
    }
    lists.Lists.Labels = {{39, 20, "LAST", "LAST", true, true}};
    WriteFile(SchemeOption230, EncodeOptionFile(lists));
    Start();
    NewVdr810("2.30", "12");
    Connect(5, 39, 0);
    EXPECT_EQ(TextOf("txtPlo(5)"), "LAST");
    Dialogs.PressButton("No");
    Choose("mnuNewFileVer230");
    EXPECT_FALSE(Find<QAction>("mnuLogicCategoriesCategory(39)")->isVisible());
}

TEST_F(Vdr810Window, ARefusedFileIsToldOfAndDoesNotEndanger) {
    const std::string broken = SchemeLogicFile(2.3, 12) + "9,1\r\n";
    WriteFile("x.c10", broken);
    Dialogs.PressButton("OK");
    Start(PathOf("x.c10"));
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Title, "VDR810 File Read in Problem");
    WriteFile("New_File.c10", "another scheme");
    Dialogs.ChooseFile(PathOf("part.c10"));
    QTest::mouseClick(Find<QPushButton>("cmdbtnSave"), Qt::LeftButton);
    EXPECT_EQ(Content("x.c10"), broken);
    EXPECT_EQ(Content("New_File.c10"), "another scheme");
    EXPECT_EQ(Content("part.c10"), SchemeLogicFile(2.3, 12));
}

} // namespace
} // namespace brindle
