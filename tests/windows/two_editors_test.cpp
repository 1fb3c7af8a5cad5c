#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "platform/paths.h"
#include "settings/setting_keys.h"
#include "support/main_window_test_window.h"
#include "support/native_path.h"
#include "support/saving_program_window.h"

#include <QCheckBox>
#include <QDir>
#include <QProcess>
#include <QPushButton>
#include <QTest>

#include <array>
#include <memory>
#include <random>
#include <set>
#include <string>

/// Two windows of the program on one file and one settings file.
namespace brindle {
namespace {

constexpr const char* OtherSettings = "; kept by hand\r\n[Bench]\r\nPort=COM3\r\n";

LogicConfig SchemeWithPickUp(int pickUp) {
    LogicConfig config;
    MakeNewVdr812(config, Version100);
    config.Group(1).Timer(1).PickUp = pickUp;
    return config;
}

/// One of the two, with what it must say of itself.
struct OpenWindow {
    std::unique_ptr<Editor> TheEditor;
    std::unique_ptr<formPLG> Window;
    std::string Logic;  ///< the bytes that saving it would write
    std::string OnDisk; ///< what the file held when it was opened or saved here
    bool Modified = false;
};

class TwoWindows : public testing::Test {
  protected:
    TwoWindows() : folderBefore_(QDir::currentPath()) {
        Put("scheme.pl", ProgramBytes(SchemeWithPickUp(75)));
        Put(SettingsFileName, OtherSettings);
        for (OpenWindow& one : Both) {
            EditorSurroundings surroundings =
                RealSurroundings(NativePath(Folder.path()), [&one] { return one.Window.get(); });
            surroundings.CommandLine = Path("scheme.pl");
            surroundings.ShowMessageBox = [this](const MessageBox& box) {
                Told.insert(box.Text);
                if (box.Buttons == MessageButtons::SaveAsOverwriteCancel) {
                    return MessageAnswer::Overwrite;
                }
                return box.Buttons == MessageButtons::YesNoCancel ? MessageAnswer::No : MessageAnswer::Ok;
            };
            one.TheEditor = std::make_unique<Editor>(surroundings);
            one.TheEditor->Form_Initialize();
            one.Window = std::make_unique<formPLG>(*one.TheEditor);
            one.Window->LoadAndShow();
            one.Logic = one.OnDisk = OnDisk = Content("scheme.pl");
        }
    }

    ~TwoWindows() override {
        for (OpenWindow& one : Both) {
            one.Window.reset();
            one.TheEditor.reset();
        }
        QDir::setCurrent(folderBefore_);
    }

    [[nodiscard]] std::string Path(const char* name) const {
        return NativePath(Folder.filePath(QString::fromLatin1(name)));
    }

    [[nodiscard]] std::string Content(const char* name) const {
        QFile file(Folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll().toStdString();
    }

    void Put(const char* name, const std::string& bytes) const {
        QFile file(Folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }

    [[nodiscard]] std::string Setting(const char* section, const char* key) const {
        return SystemProfile(RealFileSystem()).ReadText(Path(SettingsFileName), section, key, "none");
    }

    [[nodiscard]] std::string ChangedQuestion() const {
        LogicFile file;
        file.Origin = FileOrigin::Opened;
        return ReplaceQuestion(file, Path("scheme.pl"), FileChange::Changed)->Text;
    }

    void Tick(OpenWindow& one, int output) {
        one.Window->findChild<QCheckBox*>(QStringLiteral("cbxOutputMap(%1)").arg(output))->click();
        one.Logic = ProgramBytes(one.TheEditor->Config());
        one.Modified = true;
    }

    /// Saves over what the other window may have saved meanwhile, about which the window asks.
    void Save(OpenWindow& one) {
        const bool changed = one.OnDisk != OnDisk;
        Told.erase(ChangedQuestion());
        one.Window->findChild<QPushButton*>(QStringLiteral("cmdbtnSave"))->click();
        EXPECT_EQ(changed, Told.contains(ChangedQuestion()));
        one.OnDisk = OnDisk = one.Logic;
        one.Modified = false;
        EXPECT_EQ(Setting(SectionRecent, "Recent0"), Path("scheme.pl") + ",scheme.pl,1");
    }

    void OpenAnew(OpenWindow& one) {
        one.TheEditor->OpenPath(Path("scheme.pl"));
        one.Logic = one.OnDisk = OnDisk;
        one.Modified = false;
    }

    void ChangeSettings(OpenWindow& one, int number) {
        const std::string home = Path(("home " + std::to_string(number)).c_str());
        one.TheEditor->ChooseHomeDirectory(home);
        EXPECT_EQ(Setting(SectionBrindle, KeyHomeDir), home);
        one.Window->resize(900 + number, 700);
        one.TheEditor->Form_Unload(); // stores its place
        EXPECT_EQ(Setting(SectionBrindle, KeyHomeDir), home) << "one's place took another's setting along";
    }

    void ExpectTruth() {
        ASSERT_EQ(Content("scheme.pl"), OnDisk) << "the last save is not what the file holds";
        ASSERT_TRUE(Content(SettingsFileName).starts_with(OtherSettings));
        for (const OpenWindow& one : Both) {
            ASSERT_EQ(ProgramBytes(one.TheEditor->Config()), one.Logic);
            ASSERT_EQ(static_cast<bool>(one.TheEditor->Config().Modified), one.Modified);
        }
    }

    QTemporaryDir Folder;
    std::array<OpenWindow, 2> Both;
    std::string OnDisk;
    std::set<std::string> Told; ///< the texts of the boxes shown

  private:
    QString folderBefore_;
};

TEST_F(TwoWindows, OnOneFileEachAsksBeforeItReplacesWhatTheOtherSaved) {
    std::mt19937 random(7);
    const auto number = [&random](int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random);
    };
    for (int turn = 0; turn < 300; ++turn) {
        OpenWindow& one = Both.at(static_cast<std::size_t>(number(0, 1)));
        switch (number(0, 5)) {
        case 0:
        case 1:
            Save(one);
            break;
        case 2:
            OpenAnew(one);
            break;
        case 3:
            ChangeSettings(one, turn);
            break;
        default: {
            const LogicConfig& config = one.TheEditor->Config();
            Tick(one, number(config.FirstOutput, config.LastOutput));
        }
        }
        ExpectTruth();
        ASSERT_FALSE(HasFailure()) << "turn " << turn;
    }
    // Nothing failed: there were only the questions before a window discards its own changes or the other's.
    Told.erase(ChangedQuestion());
    EXPECT_EQ(Told, std::set<std::string>{SavePrompt(DiscardingCommand::Open).Text});
}

/// Two running programs, and a reader who must never see a half of anything.
TEST(TwoPrograms, SavingOneFileAtTheSameTimeNeverTearsIt) {
    const QTemporaryDir folder;
    const auto put = [&folder](const char* name, const std::string& bytes) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    };
    const auto content = [&folder](const char* name) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        const auto open = [&file] { return file.open(QIODevice::ReadOnly); };
        // Windows may turn a reader away in the very moment of the replacement.
        EXPECT_TRUE(open() || (SystemPaths.Drives && QTest::qWaitFor(open)))
            << name << file.errorString().toStdString();
        return file.readAll().toStdString();
    };
    put(SavingProgramFile, ProgramBytes(SchemeWithPickUp(75)));
    put(SettingsFileName, OtherSettings);
    std::array<QProcess, 2> programs;
    for (int number = 0; number < 2; ++number) {
        QProcess& program = programs.at(static_cast<std::size_t>(number));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(SavingProgramFolder), folder.path());
        environment.insert(QString::fromLatin1(SavingProgramNumber), QString::number(number));
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QCoreApplication::applicationFilePath(), QStringList());
    }
    std::set<std::int32_t> seen;
    // Windows replaces no file that is being read: there the reader leaves it alone now and then.
    const int pause = SystemPaths.Drives ? 20 : 0; // milliseconds
    while (programs[0].state() != QProcess::NotRunning || programs[1].state() != QProcess::NotRunning) {
        QTest::qWait(pause);
        LogicConfig read;
        const std::string bytes = content(SavingProgramFile);
        DecodeProgram(bytes, read);
        const std::int32_t pickUp = read.Group(1).Timer(1).PickUp;
        ASSERT_EQ(bytes, ProgramBytes(SchemeWithPickUp(pickUp)));
        // Where the settings are the system's own to write, how it does so is not ours to judge.
        ASSERT_TRUE(SystemPaths.Drives || content(SettingsFileName).starts_with(OtherSettings));
        seen.insert(pickUp);
    }
    for (QProcess& program : programs) {
        EXPECT_EQ(program.exitCode(), 0) << program.readAll().toStdString();
    }
    EXPECT_GT(seen.size(), 3U) << "the reader came too late to see anything";
    EXPECT_TRUE(seen.contains(LastPickUpOf(0)) || seen.contains(LastPickUpOf(1)));
    // No file beside is left.
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList({QString::fromLatin1(SettingsFileName), QString::fromLatin1(SavingProgramFile)}));
}

} // namespace
} // namespace brindle
