#include "support/main_window_test_window.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

namespace brindle {
namespace {

/// Files dragged from a file manager, whose drags carry their names as text too.
class DroppedFile : public MainWindowTest {
  protected:
    void SetUp() override {
        LogicConfig config;
        MakeNewVdr812(config, Version100);
        config.Group(1).Timer(1).PickUp = 75;
        WriteFile("scheme.pl", ProgramBytes(config));
        Start();
    }

    void Drag(const QStringList& names) {
        QList<QUrl> urls;
        for (const QString& name : names) {
            urls.push_back(QUrl::fromLocalFile(Folder.filePath(name)));
        }
        Files.setUrls(urls);
        Files.setText(names.join(QLatin1Char('\n')));
    }

    /// Whether `target` lets what is dragged be dropped.
    bool Enter(QWidget* target) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &Files, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(target, &enter);
        return enter.isAccepted();
    }

    void Drop() {
        ASSERT_TRUE(Enter(Window.get()));
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &Files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Window.get(), &drop);
        QApplication::processEvents();
    }

    QMimeData Files;
};

TEST_F(DroppedFile, IsOpened) {
    Drag({QStringLiteral("scheme.pl")});
    Drop();
    EXPECT_EQ(TheEditor->Config().FilePath, PathOf("scheme.pl"));
    EXPECT_EQ(TextOf("txtTimerPU"), "75");
}

TEST_F(DroppedFile, IsCopiedNeverMoved) {
    Drag({QStringLiteral("scheme.pl")});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &Files, Qt::LeftButton,
                          Qt::ShiftModifier);
    enter.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(Window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "a source that hears of a move may delete the file";
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &Files, Qt::LeftButton,
                    Qt::ShiftModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(Window.get(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    QApplication::processEvents();
    EXPECT_EQ(TheEditor->Config().FilePath, PathOf("scheme.pl"));
}

TEST_F(DroppedFile, ThatMayOnlyBeMovedIsNotTaken) {
    Drag({QStringLiteral("scheme.pl")});
    QDragEnterEvent enter(QPoint(5, 5), Qt::MoveAction, &Files, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(Window.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(DroppedFile, AsksBeforeItReplacesChanges) {
    TheEditor->EditConfig().Modified = true;
    const std::string before = TheEditor->Config().FilePath;
    Drag({QStringLiteral("scheme.pl")});
    Dialogs.PressButton("Cancel");
    Drop();
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(TheEditor->Config().FilePath, before);
}

TEST_F(DroppedFile, IsNotTakenTogetherWithAnother) {
    Drag({QStringLiteral("scheme.pl"), QStringLiteral("other.pl")});
    EXPECT_FALSE(Enter(Window.get()));
}

TEST_F(DroppedFile, IsNotTakenForATime) {
    Drag({QStringLiteral("scheme.pl")});
    // Refused by the box, the drag goes on to the window around it, as Qt hands it on.
    EXPECT_TRUE(Enter(Find<QWidget>("txtTimerPU")));
    EXPECT_EQ(TextOf("txtTimerPU"), "0");
}

} // namespace
} // namespace brindle
