#include "editor/form_category_brindle.h"
#include "editor/menu_tree.h"
#include "support/main_window_test_window.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

namespace brindle {
namespace {

constexpr int BinaryInputs = 22;

class ChooserWindow : public MainWindowTest {
  protected:
    void SetUp() override { Start(); }

    void Toggle(int category) { Choose(ElementName("mnuLogicCategoriesCategory", category).c_str()); }

    bool Checked(int category) {
        return Find<QAction>(ElementName("mnuLogicCategoriesCategory", category).c_str())->isChecked();
    }

    formCategoryBrindle* Chooser(int category) {
        return Find<formCategoryBrindle>(ElementName("formCategoryBrindle", category).c_str());
    }

    QPushButton* Button(int category, int index) {
        return Chooser(category)->findChild<QPushButton*>(
            QString::fromStdString(ElementName("cmdSelectCategory", index)));
    }

    /// Lets the chooser have the keyboard, as after a click on it.
    void Activate(QWidget* window) {
        window->activateWindow();
        // A tool window counts as active along with its owner, so there is no waiting for it.
        EXPECT_TRUE(QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }));
    }
};

TEST_F(ChooserWindow, IsMadeOnFirstUseHiddenOnCloseAndOpenedAgain) {
    EXPECT_EQ(Window->findChild<QWidget*>(QStringLiteral("formCategoryBrindle(22)")), nullptr);
    Toggle(BinaryInputs);
    formCategoryBrindle* first = Chooser(BinaryInputs);
    EXPECT_TRUE(first->isVisible());
    EXPECT_TRUE(Checked(BinaryInputs));
    Toggle(BinaryInputs);
    EXPECT_FALSE(first->isVisible());
    EXPECT_FALSE(Checked(BinaryInputs));
    Toggle(BinaryInputs);
    EXPECT_EQ(Chooser(BinaryInputs), first);
    EXPECT_TRUE(first->isVisible());
}

TEST_F(ChooserWindow, ItsCloseBoxAndEscapeUncheckItsMenuItem) {
    Toggle(BinaryInputs);
    Chooser(BinaryInputs)->close();
    EXPECT_FALSE(Checked(BinaryInputs));
    Toggle(BinaryInputs);
    QTest::keyClick(Button(BinaryInputs, 0), Qt::Key_Escape);
    EXPECT_FALSE(Chooser(BinaryInputs)->isVisible());
    EXPECT_FALSE(Checked(BinaryInputs));
}

TEST_F(ChooserWindow, HasTheSignalsOfTheFilesVersion) {
    Toggle(BinaryInputs);
    EXPECT_EQ(Chooser(BinaryInputs)->windowTitle(), QStringLiteral("Binary Inputs"));
    EXPECT_EQ(Chooser(BinaryInputs)->findChildren<QPushButton*>().size(), 9);
    EXPECT_EQ(Button(BinaryInputs, 8)->text(), QStringLiteral("INP9"));
    Choose("mnuNewFileVer100");
    Toggle(BinaryInputs);
    EXPECT_EQ(Chooser(BinaryInputs)->findChildren<QPushButton*>().size(), 12);
    EXPECT_EQ(Button(BinaryInputs, 11)->accessibleName(), QStringLiteral("INP12"));
}

TEST_F(ChooserWindow, ASignalThatIsNotEnabledHasAGreyButton) {
    Choose("mnuNewFileVer100");
    int grey = 0;
    for (int category = 0; category < 23; ++category) {
        Toggle(category);
        for (const auto* button : Chooser(category)->findChildren<QPushButton*>()) {
            EXPECT_TRUE(button->isVisibleTo(Chooser(category)));
            EXPECT_EQ(button->isEnabled(), button->text() != QLatin1String("50 POL"))
                << button->text().toStdString();
            grey += button->isEnabled() ? 0 : 1;
        }
    }
    EXPECT_EQ(grey, 1);
}

TEST_F(ChooserWindow, ButtonsAreStackedWithoutGaps) {
    Toggle(BinaryInputs);
    for (int index = 1; index < 9; ++index) {
        EXPECT_EQ(Button(BinaryInputs, index)->y() - Button(BinaryInputs, index - 1)->y(),
                  Button(BinaryInputs, 0)->height());
        EXPECT_EQ(Button(BinaryInputs, index)->width(), Button(BinaryInputs, 0)->width());
    }
}

TEST_F(ChooserWindow, EveryHomeIsOnTheScreenAndEveryCaptionFits) {
    const QRect screen = Window->screen()->availableGeometry();
    for (const CategoryEntry& category : TheEditor->Catalogue().Categories) {
        if (!category.Visible) {
            continue;
        }
        Toggle(category.Number);
        EXPECT_TRUE(screen.contains(Chooser(category.Number)->frameGeometry())) << category.Name;
        for (const auto* button : Chooser(category.Number)->findChildren<QPushButton*>()) {
            EXPECT_LE(button->sizeHint().width(), button->width()) << button->text().toStdString();
        }
    }
}

TEST_F(ChooserWindow, AListHigherThanItsWindowScrollsToTheButtonWithTheKeyboard) {
    Toggle(BinaryInputs);
    Chooser(BinaryInputs)->resize(Chooser(BinaryInputs)->width(), 80);
    QApplication::processEvents();
    auto* scroll = Chooser(BinaryInputs)->findChild<QScrollArea*>();
    EXPECT_GT(scroll->verticalScrollBar()->maximum(), 0);
    for (int step = 0; step < 8; ++step) {
        QTest::keyClick(Chooser(BinaryInputs)->focusWidget(), Qt::Key_Down);
    }
    EXPECT_EQ(Chooser(BinaryInputs)->focusWidget(), Button(BinaryInputs, 8));
    EXPECT_FALSE(Button(BinaryInputs, 8)->visibleRegion().isEmpty());
}

TEST_F(ChooserWindow, ASignalGoesIntoTheSelectedInputWhichGetsTheKeyboardBack) {
    QTest::mouseClick(Find<QWidget>("txtPlo(10)"), Qt::LeftButton);
    Toggle(BinaryInputs);
    Activate(Chooser(BinaryInputs));
    EXPECT_EQ(Find<QLineEdit>("txtPlo(10)")->palette().color(QPalette::Base), QColor(192, 192, 255))
        << "still seen to be selected";
    QTest::mouseClick(Button(BinaryInputs, 2), Qt::LeftButton);
    EXPECT_EQ(TextOf("txtPlo(10)"), "INP3");
    EXPECT_EQ(TextOf("txtPlo(9)"), "TRUE");
    EXPECT_EQ(TextOf("txtPlo(5)"), "FALSE");
    EXPECT_EQ(Window->focusWidget(), Find<QWidget>("txtPlo(10)"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == Window.get(); }));
    EXPECT_TRUE(Chooser(BinaryInputs)->isVisible());
}

TEST_F(ChooserWindow, EnterAndTheSpaceBarPressTheButtonWithTheKeyboard) {
    Toggle(BinaryInputs);
    EXPECT_EQ(Chooser(BinaryInputs)->focusWidget(), Button(BinaryInputs, 0)) << "the first one, at first";
    QTest::keyClick(Button(BinaryInputs, 0), Qt::Key_Down);
    QTest::keyClick(Button(BinaryInputs, 1), Qt::Key_Return);
    EXPECT_EQ(TextOf("txtPlo(5)"), "INP2");
    QTest::keyClick(Button(BinaryInputs, 3), Qt::Key_Space);
    EXPECT_EQ(TextOf("txtPlo(5)"), "INP4");
}

TEST_F(ChooserWindow, F6LeadsToTheChooserUsedLastAndBack) {
    Toggle(3);
    Toggle(BinaryInputs);
    Activate(Window.get());
    QTest::keyClick(Find<QWidget>("txtPlo(5)"), Qt::Key_F6);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == Chooser(BinaryInputs); }));
    QTest::keyClick(Chooser(BinaryInputs)->focusWidget(), Qt::Key_F6);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == Window.get(); }));
    EXPECT_EQ(Window->focusWidget(), Find<QWidget>("txtPlo(5)"));
    Activate(Chooser(3));
    EXPECT_EQ(TheEditor->Choosers().Current(), 3);
}

TEST_F(ChooserWindow, LocateAllBringsMovedChoosersHome) {
    Toggle(3);
    Toggle(BinaryInputs);
    const QPoint home3 = Chooser(3)->pos();
    const QPoint home22 = Chooser(BinaryInputs)->pos();
    EXPECT_NE(home3, home22);
    Chooser(3)->move(50, 60);
    Chooser(BinaryInputs)->move(-500, 10);
    Choose("mnuLogicCategoriesLocateAll");
    EXPECT_EQ(Chooser(3)->pos(), home3);
    EXPECT_EQ(Chooser(BinaryInputs)->pos(), home22);
}

TEST_F(ChooserWindow, CloseAllNewOpenAndSaveAsCloseEveryChooser) {
    const auto close = [this](const char* command) {
        Toggle(3);
        Toggle(BinaryInputs);
        if (std::string(command) == "mnuOpenBin" || std::string(command) == "mnuSaveBin") {
            Dialogs.CancelFile();
        }
        Choose(command);
        for (const int category : {3, BinaryInputs}) {
            EXPECT_FALSE(Chooser(category)->isVisible()) << command;
            EXPECT_FALSE(Checked(category)) << command;
        }
    };
    for (const char* command :
         {"mnuLogicCategoriesCloseAll", "mnuNewFileVer230", "mnuOpenBin", "mnuSaveBin"}) {
        close(command);
    }
}

TEST_F(ChooserWindow, TheMainWindowTakesItsChoosersAlongWhenItCloses) {
    Toggle(BinaryInputs);
    const formCategoryBrindle* chooser = Chooser(BinaryInputs);
    Window->close();
    EXPECT_FALSE(chooser->isVisible());
}

} // namespace
} // namespace brindle
