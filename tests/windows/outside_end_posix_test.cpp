#include "app/outside_end.h"
#include "files/recovery_copy.h"
#include "support/ended_program_window.h"
#include "support/main_window_test_window.h"

#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>

/// Programs that the system, or the desktop's session, ends.
namespace brindle {
namespace {

constexpr int LongestEnd = 30000; // milliseconds
constexpr const char* LeftCopyName = "Recovery1.brindle";

/// A program in a folder of its own.
class EndedProgram : public testing::TestWithParam<int> {
  protected:
    void Start(const QString& program) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QString::fromLatin1(EndedProgramFolder), Folder.path());
        Program.setProcessEnvironment(environment);
        Program.start(program, QStringList());
        ASSERT_TRUE(Program.waitForStarted(LongestEnd));
    }

    void End(int signal) {
        ASSERT_EQ(::kill(static_cast<pid_t>(Program.processId()), signal), 0);
        ASSERT_TRUE(Program.waitForFinished(LongestEnd));
        EXPECT_EQ(Program.exitStatus(), QProcess::CrashExit) << "it ends as if by the signal itself";
    }

    /// The logic of the copy that was left.
    [[nodiscard]] LogicConfig Left() const {
        QFile file(Folder.filePath(QString::fromLatin1(LeftCopyName)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        RecoveryCopy copy;
        LogicConfig logic;
        EXPECT_TRUE(DecodeRecoveryCopy(file.readAll().toStdString(), copy, logic));
        return logic;
    }

    QTemporaryDir Folder;
    QProcess Program;
};

TEST_P(EndedProgram, LeavesACopyOfItsWorkForItsOwnerAlone) {
    Start(QCoreApplication::applicationFilePath());
    ASSERT_TRUE(Program.waitForReadyRead(LongestEnd));
    ASSERT_EQ(Program.readLine(), "ready\n");
    End(GetParam()); // at once: the copy of every few seconds is not written yet
    EXPECT_EQ(Left().Group(1).Timer(1).PickUp, EndedProgramTime);

    struct stat status {};

    ASSERT_EQ(::stat(Folder.filePath(QString::fromLatin1(LeftCopyName)).toLocal8Bit().constData(), &status),
              0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

INSTANTIATE_TEST_SUITE_P(BySignal, EndedProgram, testing::Values(SIGTERM, SIGHUP, SIGINT));

/// The editor itself, whose folder is that of its executable.
TEST_F(EndedProgram, TheEditorEndedWhileItAsksForLeftWorkLeavesThatAsItIs) {
    LogicConfig logic;
    MakeNewVdr812(logic, Version230);
    logic.Group(1).Timer(1).PickUp = EndedProgramTime;
    const std::string copy =
        EncodeRecoveryCopy({"/home/a.pl", "a.pl", FileOrigin::Opened, "today", RecoveryLogic(logic)});
    QFile left(Folder.filePath(QString::fromLatin1(LeftCopyName)));
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.write(copy.data(), static_cast<qint64>(copy.size()));
    left.close();
    const QString editor = Folder.filePath(QStringLiteral("brindle"));
    ASSERT_TRUE(QFile::copy(QString::fromUtf8(BRINDLE_EDITOR), editor));
    Start(editor);
    const QString lock = Folder.filePath(QStringLiteral("Recovery1.lock"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(lock); }, LongestEnd)) << "it asks";
    QTest::qWait(500); // until the box is open
    End(SIGTERM);
    EXPECT_EQ(Left().Group(1).Timer(1).PickUp, EndedProgramTime);
}

class SessionEnd : public MainWindowTest {
  protected:
    void StartWithEdit() {
        Start();
        TheEditor->txtTimerPU_Change("12");
        Ends = std::make_unique<OutsideEnd>(OutsideEndSteps{[this] { TheEditor->KeepRecoveryCopyAtOnce(); },
                                                            [this] { Window->AskNothing(); },
                                                            [this] { ++Ended; }});
    }

    int Ended = 0;
    std::unique_ptr<OutsideEnd> Ends;
};

TEST_F(SessionEnd, ClosesTheWindowWithoutAskingAndLeavesACopy) {
    StartWithEdit();
    QEvent quit(QEvent::Quit);
    EXPECT_FALSE(Ends->eventFilter(qApp, &quit))
        << "the application, which would end the tests, goes on with it";
    Close();
    EXPECT_TRUE(Dialogs.Messages.empty());
    EXPECT_TRUE(QFile::exists(Folder.filePath(QString::fromLatin1(LeftCopyName))));
    Dialogs.PressButton("Yes");
    Start();
    EXPECT_EQ(TextOf("txtTimerPU"), "12");
    Dialogs.PressButton("No");
    Close();
}

TEST_F(SessionEnd, ASignalIsToldByTheEventLoopAndLeavesACopy) {
    StartWithEdit();
    ::raise(SIGTERM);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Ended == 1; }));
    EXPECT_TRUE(QFile::exists(Folder.filePath(QString::fromLatin1(LeftCopyName))));
    Dialogs.PressButton("No");
    Close();
}

} // namespace
} // namespace brindle
