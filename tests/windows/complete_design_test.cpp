#include "cli/commands.h"
#include "editor/form_category_brindle.h"
#include "editor/form_group_editing_functions.h"
#include "editor/menu_tree.h"
#include "support/main_window_test_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <sstream>

namespace brindle {
namespace {

constexpr int BinaryInputsMenu = 22;
constexpr int TripSignals = 18;

using Codes = std::vector<int>;

const Codes Nothing(InputsPerUnit, 0);

std::string UnitJson(const std::string& tag, const Codes& codes, int pickUp, int dropOut) {
    std::string inputs;
    for (const int code : codes) {
        inputs += (inputs.empty() ? "" : ", ") + std::to_string(code);
    }
    std::string json = R"({"tag": ")" + tag + R"(", "inputs": [)" + inputs + "]";
    if (tag[0] == 'T') {
        json += R"(, "pick_up": )" + std::to_string(pickUp) + R"(, "drop_out": )" + std::to_string(dropOut);
    }
    return json + "}";
}

/// What a group of the scheme is expected to hold; everything else in it is empty.
struct GroupDesign {
    Codes T1 = Nothing;
    Codes T2 = Nothing;
    Codes R1 = Nothing;
    Codes S1 = Nothing;
    int T1PickUp = 0;
    int T1DropOut = 0;
    int T2PickUp = 0;
    unsigned T1Outputs = 0;
    unsigned T2Outputs = 0;
    unsigned Latch1Outputs = 0;
};

std::string GroupJson(const GroupDesign& group) {
    std::string json = R"({"units": [)" + UnitJson("T1", group.T1, group.T1PickUp, group.T1DropOut) + ", " +
                       UnitJson("T2", group.T2, group.T2PickUp, 0);
    for (const char* tag : {"T3", "T4", "T5", "T6"}) {
        json += ", " + UnitJson(tag, Nothing, 0, 0);
    }
    json += ", " + UnitJson("R1", group.R1, 0, 0) + ", " + UnitJson("S1", group.S1, 0, 0) + ", " +
            UnitJson("R2", Nothing, 0, 0) + ", " + UnitJson("S2", Nothing, 0, 0) + R"(], "output_map": [)";
    for (const unsigned word : {group.T1Outputs, group.T2Outputs, 0U, 0U, 0U, 0U, group.Latch1Outputs, 0U}) {
        json += (json.back() == '[' ? "[" : ", [") + std::to_string(word) + ", 0, 0, 0, 0, 0, 0, 0]";
    }
    return json + "]}";
}

std::string LogicJson(const std::string& version, const std::vector<GroupDesign>& groups) {
    std::string zeros;
    for (int i = 0; i < 20; ++i) {
        zeros += "\\u0000";
    }
    std::string json = R"({"relay_model": 1, "version": ")" + version +
                       R"(", "group_count": 8, "header": {"magic": "plcd", "version_text": ")" + version +
                       R"(  ", "header_word": 0, "text1": ")" + zeros + R"(", "text2": ")" + zeros +
                       R"("}, "groups": [)";
    for (const GroupDesign& group : groups) {
        json += (json.back() == '[' ? "" : ", ") + GroupJson(group);
    }
    return json + "]}";
}

/// A user who draws up a scheme with pointer and keyboard.
class CompleteDesign : public MainWindowTest {
  protected:
    void ShowUnit(int unit) { Click(ElementName("lblUnit", unit)); }

    void Click(const std::string& name) { QTest::mouseClick(Find<QWidget>(name.c_str()), Qt::LeftButton); }

    /// Selects an input and presses a signal's button in the chooser of its category, which is opened if need
    /// be.
    void Connect(int input, int category, const char* signal) {
        Click(ElementName("txtPlo", input));
        const std::string item = ElementName("mnuLogicCategoriesCategory", category);
        if (!Find<QAction>(item.c_str())->isChecked()) {
            Choose(item.c_str());
        }
        for (auto* button : Find<formCategoryBrindle>(ElementName("formCategoryBrindle", category).c_str())
                                ->findChildren<QPushButton*>()) {
            if (button->text() == QLatin1String(signal)) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        ADD_FAILURE() << "no button " << signal;
    }

    void DoubleClick(int input) {
        QTest::mouseDClick(Find<QWidget>(ElementName("txtPlo", input).c_str()), Qt::LeftButton);
    }

    void TypeTime(const char* box, const char* digits) {
        Click(box);
        Find<QLineEdit>(box)->selectAll();
        QTest::keyClicks(Find<QWidget>(box), QString::fromLatin1(digits));
    }

    void Tick(int output) {
        QTest::keyClick(Find<QCheckBox>(ElementName("cbxOutputMap", output).c_str()), Qt::Key_Space);
    }

    void SaveAs(const char* name) {
        Dialogs.ChooseFile(PathOf(name));
        Choose("mnuSaveBin");
    }

    /// The bytes that the companion builds from the same scheme.
    std::string Built(const std::string& json) {
        WriteFile("expected.json", json);
        std::ostringstream out;
        std::ostringstream err;
        const CommandEnvironment environment{RealFileSystem(), out, err, Folder.path().toStdString(), {}, {}};
        EXPECT_EQ(BuildCommand({PathOf("expected.json"), PathOf("expected.pl"), {}}, environment), ExitWell)
            << err.str();
        return Content("expected.pl");
    }
};

TEST_F(CompleteDesign, A230SchemeForAllGroupsIsTheFileThatTheCompanionBuilds) {
    Start();
    Choose("mnuNewFileVer230");
    Connect(5, BinaryInputsMenu, "INP1");
    Connect(6, BinaryInputsMenu, "INP4");
    QTest::keyClick(Find<QWidget>("txtPlo(6)"), Qt::Key_I, Qt::ControlModifier);
    Connect(9, BinaryInputsMenu, "INP2");
    TypeTime("txtTimerPU", "1500");
    TypeTime("txtTimerDO", "250");
    Tick(4);
    Tick(5);

    ShowUnit(2);
    Connect(12, TripSignals, "3P TRIP SEAL");
    DoubleClick(5); // its gate was wholly FALSE
    TypeTime("txtTimerPU", "600000");
    Tick(13);

    ShowUnit(8);
    Connect(5, BinaryInputsMenu, "INP9");
    Tick(2);
    Click("pctSetReset"); // the reset side
    Connect(5, BinaryInputsMenu, "INP8");
    DoubleClick(8);
    DoubleClick(5);
    Tick(3);

    Dialogs.PressButton("OK");
    Choose("mnuGroupEditingFunctions");
    auto* groups = Window->findChild<formGroupEditingFunctions*>();
    groups->findChild<QComboBox*>(QStringLiteral("cmbCopyGroupTo"))
        ->setCurrentText(QStringLiteral("All Groups"));
    QTest::mouseClick(groups->findChild<QPushButton*>(QStringLiteral("cmdCopyGroup")), Qt::LeftButton);
    QTest::mouseClick(groups->findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);

    Click("lblGroupNumber(2)");
    ShowUnit(2);
    Dialogs.PressButton("OK");
    Choose("mnuClearDisplayedUnit");
    SaveAs("design.pl");

    GroupDesign design;
    design.T1 = {0, 0, 0, 0, 85, 256 - 88, 1, 1, 86, 1, 1, 1, 0, 0, 0, 0};
    design.T1PickUp = 1500;
    design.T1DropOut = 250;
    design.T1Outputs = 0x4000 | 0x2000; // outputs 4 and 5
    design.T2 = {0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 102, 0, 0, 0, 0};
    design.T2PickUp = 600000;
    design.T2Outputs = 0x20; // output 13
    design.S1 = {0, 0, 0, 0, 93, 1, 1, 1, 255, 255, 255, 255, 0, 0, 0, 0};
    design.R1 = {0, 0, 0, 0, 256 - 92, 1, 1, 255, 255, 255, 255, 255, 0, 0, 0, 0};
    design.Latch1Outputs = 0x10000 | 0x8000; // outputs 2 and 3
    std::vector<GroupDesign> all(MaxGroups, design);
    all[1].T2 = Nothing;
    all[1].T2PickUp = 0;
    all[1].T2Outputs = 0;
    EXPECT_EQ(Content("design.pl"), Built(LogicJson("2.30", all)));
    EXPECT_FALSE(TheEditor->Config().Modified);

    Dialogs.ChooseFile(PathOf("design.pl"));
    Choose("mnuOpenBin");
    EXPECT_EQ(TextOf("txtPlo(6)"), "INP4");
    EXPECT_TRUE(Find<QWidget>("shpInvert(6)")->isVisible());
    EXPECT_EQ(TextOf("lblDOTime"), "Min:0 Sec:0 mSec:250");
    EXPECT_TRUE(Find<QCheckBox>("cbxOutputMap(5)")->isChecked());
}

TEST_F(CompleteDesign, A100SchemeUsesAllFourGates) {
    Start();
    Choose("mnuNewFileVer100");
    Connect(1, BinaryInputsMenu, "INP12");
    Connect(16, TripSignals, "DSP TRIP");
    TypeTime("txtTimerDO", "75");
    Tick(9);
    SaveAs("design.pl");
    GroupDesign design;
    design.T1 = {96, 1, 1, 1, 255, 255, 255, 255, 255, 255, 255, 255, 1, 1, 1, 69};
    design.T1DropOut = 75;
    design.T1Outputs = 0x200; // output 9
    std::vector<GroupDesign> all(MaxGroups);
    all[0] = design;
    EXPECT_EQ(Content("design.pl"), Built(LogicJson("1.00", all)));
}

} // namespace
} // namespace brindle
