#include "platform/common_dialogs.h"
#include "platform/folders.h"
#include "platform/paths.h"
#include "settings/form_home_dir.h"
#include "support/dialog_driver_window.h"
#include "support/native_path.h"

#include <QComboBox>
#include <QDir>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace brindle {
namespace {

/// The real window over a real folder that holds "north" and "south", one in each.
class HomeDirWindow : public testing::Test {
  protected:
    HomeDirWindow() : before_(QDir::currentPath()) {
        for (const char* name : {"north/bay", "south/bay"}) {
            QDir(Folder.path()).mkpath(QString::fromLatin1(name));
        }
        QDir::setCurrent(Folder.path());
        Form = std::make_unique<formHomeDir>(
            RealFolders(), [this](const MessageBox& box) { return ShowQtMessageBox(Form.get(), box); },
            [this](const std::string& folder) { Chosen.push_back(folder); }, nullptr);
        Form->Open(NativePath(Folder.path()));
        EXPECT_TRUE(QTest::qWaitForWindowActive(Form.get()));
    }

    ~HomeDirWindow() override {
        Form.reset();
        QDir::setCurrent(before_);
    }

    template<class Control>
    Control* Find(const char* name) {
        auto* found = Form->findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    void SelectFolder(const QString& name) {
        auto* list = Find<QTreeWidget>("dirHomeDir");
        const auto items = list->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(1, items.size()) << name.toStdString();
        list->setCurrentItem(items.front());
    }

    /// Types into the input box that opens next, and presses a key there.
    void TypeName(const QString& name, Qt::Key key) {
        auto* timer = new QTimer(Form.get());
        QObject::connect(timer, &QTimer::timeout, Form.get(), [this, timer, name, key] {
            auto* box = Form->findChild<QInputDialog*>();
            if (box == nullptr || !box->isVisible()) {
                return;
            }
            timer->deleteLater();
            timer->stop();
            Prompt = box->labelText().toStdString();
            Offered = box->textValue().toStdString();
            box->setTextValue(name);
            QTest::keyClick(box->findChild<QLineEdit*>(), key);
        });
        timer->start(1);
    }

    [[nodiscard]] std::string PathOf(const char* name) const {
        return NativePath(Folder.filePath(QString::fromLatin1(name)));
    }

    std::string Shown() { return Find<QLineEdit>("txtHomeDir")->text().toStdString(); }

    QTemporaryDir Folder;
    DialogDriver Dialogs;
    std::unique_ptr<formHomeDir> Form;
    std::vector<std::string> Chosen;
    std::string Prompt;
    std::string Offered;

  private:
    QString before_;
};

TEST_F(HomeDirWindow, OpensWithTheHomeDirectory) {
    EXPECT_EQ(NativePath(Folder.path()), Shown());
    EXPECT_TRUE(Find<QTreeWidget>("dirHomeDir")->hasFocus());
    EXPECT_EQ(NativePath(QDir::rootPath()), Find<QComboBox>("Drive1")->itemText(0).toStdString());
    EXPECT_TRUE(Find<QPushButton>("cmdDone")->isDefault());
}

TEST_F(HomeDirWindow, ASelectedFolderIsShownAndCurrent) {
    SelectFolder(QStringLiteral("south"));
    EXPECT_EQ(PathOf("south"), Shown());
    EXPECT_EQ(PathOf("south"), NativePath(QDir::currentPath()));
    Find<QPushButton>("cmdDone")->click();
    EXPECT_EQ(std::vector<std::string>{PathOf("south")}, Chosen);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(HomeDirWindow, EnterOpensAFolderAndBackspaceTheOneAbove) {
    auto* list = Find<QTreeWidget>("dirHomeDir");
    SelectFolder(QStringLiteral("north"));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_TRUE(Form->isVisible()) << "Enter in the list is not Done";
    EXPECT_EQ(PathOf("north"), Shown());
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(PathOf("north/bay"), Shown());
    QTest::keyClick(list, Qt::Key_Backspace);
    EXPECT_EQ(NativePath(Folder.path()), Shown());
}

TEST_F(HomeDirWindow, ADoubleClickOpensAFolder) {
    auto* list = Find<QTreeWidget>("dirHomeDir");
    SelectFolder(QStringLiteral("south"));
    const QPoint place = list->visualItemRect(list->currentItem()).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    SelectFolder(QStringLiteral("bay"));
    EXPECT_EQ(PathOf("south/bay"), Shown());
}

TEST_F(HomeDirWindow, EnterElsewhereIsDone) {
    QTest::keyClick(Find<QComboBox>("Drive1"), Qt::Key_Return);
    EXPECT_EQ(std::vector<std::string>{NativePath(Folder.path())}, Chosen);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(HomeDirWindow, EscapeAndCancelLeaveEverythingAsItWas) {
    SelectFolder(QStringLiteral("south"));
    QTest::keyClick(Find<QTreeWidget>("dirHomeDir"), Qt::Key_Escape);
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(Folder.path(), QDir::currentPath());

    Form->Open(NativePath(Folder.path()));
    SelectFolder(QStringLiteral("south"));
    Find<QPushButton>("cmdCancel")->click();
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(Folder.path(), QDir::currentPath());
    EXPECT_TRUE(Chosen.empty());
}

TEST_F(HomeDirWindow, ChoosingADriveOpensIt) {
    SelectFolder(QStringLiteral("south"));
    auto* drives = Find<QComboBox>("Drive1");
    emit drives->activated(0);
    // A drive has a current folder of its own, where the system knows drives.
    const std::string opened = SystemPaths.Drives ? PathOf("south") : "/";
    EXPECT_EQ(opened, Shown());
    EXPECT_EQ(opened, NativePath(QDir::currentPath()));
}

TEST_F(HomeDirWindow, ANewFolderIsMadeAndShown) {
    SelectFolder(QStringLiteral("south"));
    TypeName(QStringLiteral("East ~ 1"), Qt::Key_Return);
    Find<QPushButton>("cmdNewFolder")->click();
    EXPECT_EQ("Enter the folder name to create in " + PathOf("south") + ".", Prompt);
    EXPECT_EQ("New Folder", Offered);
    EXPECT_TRUE(QDir(Folder.filePath(QStringLiteral("south/East ~ 1"))).exists());
    EXPECT_EQ(PathOf("south/East ~ 1"), Shown());
}

TEST_F(HomeDirWindow, ACancelledNameMakesNoFolder) {
    TypeName(QStringLiteral("east"), Qt::Key_Escape);
    Find<QPushButton>("cmdNewFolder")->click();
    EXPECT_FALSE(QDir(Folder.filePath(QStringLiteral("east"))).exists());
    EXPECT_EQ(NativePath(Folder.path()), Shown());
}

TEST_F(HomeDirWindow, AnExistingFolderIsRefused) {
    TypeName(QStringLiteral("south"), Qt::Key_Return);
    Dialogs.PressButton("OK");
    Find<QPushButton>("cmdNewFolder")->click();
    ASSERT_EQ(1U, Dialogs.Messages.size());
    EXPECT_EQ("The folder 'south' already exists.", Dialogs.Messages[0].Text);
    EXPECT_EQ("Aborted Make Directory Function", Dialogs.Messages[0].Title);
    EXPECT_TRUE(Dialogs.Messages[0].Exclamation);
}

TEST_F(HomeDirWindow, StandsInTheMiddleOfTheScreen) {
    const QRect screen = Form->screen()->availableGeometry();
    const QPoint offset = Form->pos() + Form->rect().center() - screen.center();
    EXPECT_LE(offset.manhattanLength(), 4);
}

} // namespace
} // namespace brindle
