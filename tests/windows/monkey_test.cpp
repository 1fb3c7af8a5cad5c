#include "app/surroundings.h"
#include "editor/form_category_brindle.h"
#include "editor/form_group_editing_functions.h"
#include "editor/form_plg.h"
#include "editor/gate_rows.h"
#include "editor/menu_tree.h"
#include "support/vdr810_scheme.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <random>

/// A user who presses at random whatever can be pressed, for thousands of actions. After each the logic must
/// keep its invariants; now and then the window is compared with it. BRINDLE_MONKEY_SEED and
/// BRINDLE_MONKEY_ACTIONS run another sequence, or a longer one.
namespace brindle {
namespace {

int FromEnvironment(const char* name, int otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : QByteArray(text).toInt();
}

class Monkey : public testing::TestWithParam<int> {
  protected:
    void SetUp() override {
        seed_ = FromEnvironment("BRINDLE_MONKEY_SEED", GetParam());
        random_.seed(static_cast<unsigned>(seed_));
        EditorSurroundings surroundings =
            RealSurroundings(folder_.path().toStdString(), [this] { return window_.get(); });
        PutOptionFile("PLC00100_OPT00000.810", SchemeOptionFile(1.0, 0, 3));
        PutOptionFile("PLC00230_OPT00012.810", SchemeOptionFile(2.3, 12));
        surroundings.ShowMessageBox = [this](const MessageBox& box) { return Answer(box); };
        surroundings.RunFileDialog = [](const FileDialogRequest& /*request*/) {
            return std::optional<FileDialogAnswer>{}; // cancelled
        };
        editor_ = std::make_unique<Editor>(surroundings);
        editor_->Form_Initialize();
        window_ = std::make_unique<formPLG>(*editor_);
        window_->LoadAndShow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }

    void TearDown() override {
        window_.reset();
        editor_.reset();
    }

    void PutOptionFile(const char* name, const std::string& text) {
        QFile file(folder_.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text.data(), static_cast<qint64>(text.size())),
                  static_cast<qint64>(text.size()));
    }

    int Number(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }

    MessageAnswer Answer(const MessageBox& box) {
        switch (box.Buttons) {
        case MessageButtons::OkCancel:
            return Number(0, 1) == 0 ? MessageAnswer::Ok : MessageAnswer::Cancel;
        case MessageButtons::YesNo:
            return MessageAnswer::No;
        case MessageButtons::YesNoCancel:
            return Number(0, 3) == 0 ? MessageAnswer::Cancel : MessageAnswer::No;
        default:
            return MessageAnswer::Ok;
        }
    }

    template<class Control>
    Control* Element(const char* array, int index) {
        return window_->findChild<Control*>(QString::fromStdString(ElementName(array, index)));
    }

    void Trigger(const QString& name) {
        auto* item = window_->findChild<QAction*>(name);
        ASSERT_NE(item, nullptr) << name.toStdString();
        if (item->isEnabled() && item->isVisible()) {
            item->trigger();
        }
    }

    void TriggerElement(const char* array, int index) {
        Trigger(QString::fromStdString(ElementName(array, index)));
    }

    // The actions.

    void ChooseFromMenu() {
        switch (Number(0, 9)) {
        case 0:
            TriggerElement("mnuGroup", Number(1, MaxGroups));
            break;
        case 1:
            Trigger(QStringLiteral("mnuShowNumbers"));
            break;
        case 2:
            Trigger(QStringLiteral("mnuLogicCategoriesLocateAll"));
            break;
        case 3:
            Trigger(QStringLiteral("mnuLogicCategoriesCloseAll"));
            break;
        case 4:
            Trigger(QStringLiteral("mnuClearDisplayedUnit"));
            break;
        case 5:
            if (Number(0, 4) == 0) { // seldom, so that there is something to lose
                MakeNewLogic();
            }
            break;
        default:
            TriggerElement("mnuTimerLatch", Number(1, UnitsPerGroup));
        }
    }

    void MakeNewLogic() {
        const int kind = Number(0, 3);
        if (kind < 2) {
            Trigger(kind == 0 ? QStringLiteral("mnuNewFileVer100") : QStringLiteral("mnuNewFileVer230"));
            return;
        }
        // The dialog waits in an event loop of its own; when a question before it was cancelled, there is
        // none.
        QTimer::singleShot(0, window_.get(), [this] {
            if (QWidget* dialog = QApplication::activeModalWidget()) {
                auto* versions =
                    dialog->findChild<QComboBox*>(QStringLiteral("cboSettingsFileVersionVdr810"));
                versions->setCurrentIndex(Number(0, versions->count() - 1));
                const bool done = Number(0, 3) != 0;
                dialog
                    ->findChild<QPushButton*>(done ? QStringLiteral("cmdDone") : QStringLiteral("cmdCancel"))
                    ->click();
            }
        });
        Trigger(QStringLiteral("mnuFileNewVdr810"));
    }

    void ToggleChooser() {
        TriggerElement("mnuLogicCategoriesCategory", Number(0, editor_->Choosers().Count() - 1));
    }

    void ClickStrip() {
        auto* label = Number(0, 1) == 0 ? Element<QAbstractButton>("lblGroupNumber", Number(1, MaxGroups))
                                        : Element<QAbstractButton>("lblUnit", Number(1, UnitsPerGroup));
        if (label->isVisible()) {
            label->click();
        }
    }

    QLineEdit* ShownInput() {
        const int first = IsVersion230(editor_->Config().Version) ? 5 : 1;
        return Element<QLineEdit>("txtPlo", Number(first, InputsPerUnit + 1 - first));
    }

    void ClickInput() { QTest::mouseClick(ShownInput(), Qt::LeftButton); }

    void FlipInput() {
        QLineEdit* input = ShownInput();
        if (Number(0, 1) == 0) {
            QTest::mouseDClick(input, Qt::LeftButton);
        } else {
            QTest::mouseClick(input, Qt::LeftButton);
            QTest::keyClick(input, Qt::Key_I, Qt::ControlModifier);
        }
    }

    void PressSignal() {
        const std::vector<int> open = editor_->Choosers().FromBackToFront();
        if (open.empty()) {
            ToggleChooser();
            return;
        }
        const int category = open.at(static_cast<std::size_t>(Number(0, static_cast<int>(open.size()) - 1)));
        auto* chooser = Element<formCategoryBrindle>("formCategoryBrindle", category);
        ASSERT_TRUE(chooser->isVisible());
        const QList<QPushButton*> buttons = chooser->findChildren<QPushButton*>();
        switch (Number(0, 9)) {
        case 0:
            chooser->move(Number(-200, 2000), Number(-200, 1200));
            break;
        case 1:
            QTest::keyClick(chooser, Qt::Key_Escape);
            break;
        case 2:
            QTest::keyClick(chooser, Qt::Key_F6);
            break;
        default:
            if (!buttons.isEmpty()) {
                buttons.at(Number(0, static_cast<int>(buttons.size()) - 1))->click();
            }
        }
    }

    void TypeTime() {
        auto* box = window_->findChild<QLineEdit*>(Number(0, 1) == 0 ? QStringLiteral("txtTimerPU")
                                                                     : QStringLiteral("txtTimerDO"));
        if (!box->isVisible()) {
            return;
        }
        box->setFocus(Qt::TabFocusReason);
        static const char* const pasted[] = {"600000", "600001",      "-5",   " 75 ",
                                             "abc",    "99999999999", "0007", ""};
        switch (Number(0, 7)) {
        case 0:
            QTest::keyClick(box, Qt::Key_Backspace);
            break;
        case 1:
            QTest::keyClick(box, Qt::Key_Return);
            break;
        case 2:
            QTest::keyClick(box, static_cast<char>(Number(' ', '~')));
            break;
        case 3:
            QApplication::clipboard()->setText(QString::fromLatin1(pasted[Number(0, 7)]));
            box->selectAll();
            box->paste();
            break;
        case 4:
            box->setCursorPosition(Number(0, 6));
            break;
        default:
            QTest::keyClick(box, static_cast<char>(Number('0', '9')));
        }
    }

    void TickOutput() {
        const LogicConfig& config = editor_->Config();
        auto* box = Element<QCheckBox>("cbxOutputMap", Number(config.FirstOutput, config.LastOutput));
        ASSERT_TRUE(box->isVisible());
        box->click();
    }

    void EditGroups() {
        Trigger(QStringLiteral("mnuGroupEditingFunctions"));
        auto* form = window_->findChild<formGroupEditingFunctions*>();
        ASSERT_TRUE(form->isVisible());
        for (auto* box : form->findChildren<QComboBox*>()) {
            if (Number(0, 1) == 0) {
                box->setCurrentIndex(Number(-1, box->count() - 1));
            }
        }
        const char* const buttons[] = {"cmdClearGroup", "cmdCopyGroup", "cmdCopyGroup", "cmdClose"};
        form->findChild<QPushButton*>(QString::fromLatin1(buttons[Number(0, 3)]))->click();
        form->close();
    }

    void PressKey() {
        static const Qt::Key keys[] = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Tab,    Qt::Key_Space,
                                       Qt::Key_F6,  Qt::Key_Escape,  Qt::Key_Return, Qt::Key_Down,
                                       Qt::Key_A,   Qt::Key_7};
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused == nullptr ? window_.get() : focused, keys[Number(0, 9)]);
    }

    void Act() {
        const int choice = Number(0, 99);
        if (choice < 15) {
            ChooseFromMenu();
        } else if (choice < 22) {
            ToggleChooser();
        } else if (choice < 30) {
            ClickStrip();
        } else if (choice < 40) {
            ClickInput();
        } else if (choice < 50) {
            FlipInput();
        } else if (choice < 70) {
            PressSignal();
        } else if (choice < 82) {
            TypeTime();
        } else if (choice < 90) {
            TickOutput();
        } else if (choice < 92) {
            EditGroups();
        } else {
            PressKey();
        }
    }

    // What must hold after every action.

    void ExpectInvariants() {
        const LogicConfig& config = editor_->Config();
        for (int group = 1; group <= config.GroupCount; ++group) {
            for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
                ExpectCodes(config, group, unit);
            }
            for (int timer = 1; timer <= TimersPerGroup; ++timer) {
                const UnitTimer& times = config.Group(group).Timer(timer);
                ASSERT_TRUE(times.PickUp >= 0 && times.PickUp <= 600000 && times.DropOut >= 0 &&
                            times.DropOut <= 600000);
            }
        }
        ASSERT_EQ(QApplication::activeModalWidget(), nullptr);
        const auto rowsShown = GateRowsShown(config.Version);
        ASSERT_TRUE(rowsShown.at(static_cast<std::size_t>(RowOfInput(editor_->Shown().Input) - 1)))
            << "a hidden input is selected";
    }

    void ExpectCodes(const LogicConfig& config, int group, int unit) {
        for (int input = 1; input <= InputsPerUnit; ++input) {
            const UnitInput code = config.InputCode(group, unit, input);
            // Both catalogues have 256 signals here, "FALSE" the last.
            const bool known = code == 255 || (code >= 0 && code <= 103) || (code >= 256 - 103 && code < 255);
            ASSERT_TRUE(known) << code;
            const bool hidden = IsVersion230(config.Version) && (input < 5 || input > 12);
            ASSERT_TRUE(!hidden || code == UnconnectedCode(config)) << "a hidden input was connected";
        }
    }

    void ExpectWindowShowsLogic() {
        const UnitView view = editor_->View();
        for (int input = 1; input <= InputsPerUnit; ++input) {
            const InputView& expected = view.Inputs.at(static_cast<std::size_t>(input - 1));
            auto* box = Element<QLineEdit>("txtPlo", input);
            ASSERT_EQ(box->isVisible(), expected.Visible);
            ASSERT_EQ(box->text().toStdString(), expected.Text);
            ASSERT_EQ(Element<QWidget>("shpInvert", input)->isVisible(), expected.InvertMark);
        }
        for (const auto& [output, ticked] : view.OutputSet) {
            ASSERT_EQ(Element<QCheckBox>("cbxOutputMap", output)->isChecked(), ticked);
        }
        for (int category = 0; category < editor_->Choosers().Count(); ++category) {
            const auto* chooser = Element<QWidget>("formCategoryBrindle", category);
            ASSERT_EQ(chooser != nullptr && chooser->isVisible(), editor_->Choosers().IsOpen(category));
            ASSERT_EQ(Element<QAction>("mnuLogicCategoriesCategory", category)->isChecked(),
                      editor_->Choosers().IsOpen(category));
        }
    }

    void Run(int actions) {
        for (int action = 0; action < actions; ++action) {
            Act();
            ExpectInvariants();
            if (action % 20 == 0) {
                QApplication::processEvents();
            }
            if (action % 100 == 0) {
                ExpectWindowShowsLogic();
            }
            ASSERT_FALSE(HasFatalFailure()) << "seed " << seed_ << ", action " << action;
        }
    }

    int seed_ = 0;
    std::mt19937 random_;
    QTemporaryDir folder_;
    std::unique_ptr<Editor> editor_;
    std::unique_ptr<formPLG> window_;
};

TEST_P(Monkey, NeitherBreaksTheLogicNorStopsTheProgram) {
    Run(FromEnvironment("BRINDLE_MONKEY_ACTIONS", 5000));
}

INSTANTIATE_TEST_SUITE_P(Seeds, Monkey, testing::Values(1, 2, 3, 4));

} // namespace
} // namespace brindle
