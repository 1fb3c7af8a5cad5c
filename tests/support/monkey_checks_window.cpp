#include "support/monkey_checks_window.h"

#include "editor/gate_rows.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <gtest/gtest.h>

#include <algorithm>

namespace brindle {

namespace {

/// Of a drop-out time alone the exit prompt does not ask.
std::string WithoutDropOuts(LogicConfig config) {
    for (int group = 1; group <= config.GroupCount; ++group) {
        for (int timer = 1; timer <= TimersPerGroup; ++timer) {
            config.Group(group).Timer(timer).DropOut = 0;
        }
    }
    return BytesOfLogic(config);
}

bool IsEmpty(const LogicConfig& config) {
    for (int group = 1; group <= config.GroupCount; ++group) {
        for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
            for (int input = 1; input <= InputsPerUnit; ++input) {
                if (config.InputCode(group, unit, input) != UnconnectedCode(config)) {
                    return false;
                }
            }
        }
    }
    return true;
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

void ExpectTimes(const LogicConfig& config, int group) {
    for (int timer = 1; timer <= TimersPerGroup; ++timer) {
        const UnitTimer& times = config.Group(group).Timer(timer);
        ASSERT_TRUE(times.PickUp >= 0 && times.PickUp <= 600000 && times.DropOut >= 0 &&
                    times.DropOut <= 600000);
    }
}

} // namespace

void MonkeyChecks::LookForNewLogic(MonkeyUser& user) {
    const LogicConfig& config = user.TheEditor->Config();
    const MonkeyDisk& disk = user.Disk;
    for (const std::string& path : disk.FilesWritten()) {
        user.Disk.MarkForeign(path, foreign_); // a command saves before it opens
    }
    for (const std::string& path : disk.FilesRead()) {
        const bool recovered = path.ends_with(".brindle"); // of whatever logic there was
        foreign_ = foreign_ || disk.IsForeign(path) || recovered;
    }
    const bool isNew = user.MadeNew && IsEmpty(config);
    const bool opened = disk.Read(config.FilePath);
    if (isNew) {
        foreign_ = false;
    } else if (opened && !config.Modified) {
        foreign_ = disk.IsForeign(config.FilePath);
    }
    if (!config.Modified && (isNew || opened || disk.Wrote(config.FilePath))) {
        clean_ = WithoutDropOuts(config);
    }
    user.MadeNew = false;
}

void MonkeyChecks::AfterAction(MonkeyUser& user) {
    LookForNewLogic(user);
    const LogicConfig& config = user.TheEditor->Config();
    if (!config.Modified) {
        ASSERT_EQ(clean_, WithoutDropOuts(config)) << "changed, and nobody would be asked to save it";
    }
    ExpectInvariants(*user.TheEditor);
    ASSERT_EQ(QApplication::activeModalWidget(), nullptr);
    ASSERT_EQ(QApplication::overrideCursor(), nullptr) << "the pointer still says busy";
}

void MonkeyChecks::ExpectInvariants(const Editor& editor) const {
    const LogicConfig& config = editor.Config();
    for (int group = 1; group <= config.GroupCount && !foreign_; ++group) {
        for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
            ExpectCodes(config, group, unit);
        }
        ExpectTimes(config, group);
    }
    ASSERT_LE(editor.Shown().Group, config.GroupCount);
    const auto rowsShown = GateRowsShown(config.Version);
    ASSERT_TRUE(rowsShown.at(static_cast<std::size_t>(RowOfInput(editor.Shown().Input) - 1)))
        << "a hidden input is selected";
}

void MonkeyChecks::ExpectWindowShowsLogic(MonkeyUser& user) {
    const Editor& editor = *user.TheEditor;
    const UnitView view = editor.View();
    for (int input = 1; input <= InputsPerUnit; ++input) {
        const InputView& expected = view.Inputs.at(static_cast<std::size_t>(input - 1));
        auto* box = user.Element<QLineEdit>("txtPlo", input);
        ASSERT_EQ(box->isVisible(), expected.Visible);
        ASSERT_EQ(box->text().toStdString(), expected.Text);
        ASSERT_EQ(user.Element<QWidget>("shpInvert", input)->isVisible(), expected.InvertMark);
    }
    for (const auto& [output, ticked] : view.OutputSet) {
        ASSERT_EQ(user.Element<QCheckBox>("cbxOutputMap", output)->isChecked(), ticked);
    }
    for (int category = 0; category < editor.Choosers().Count(); ++category) {
        const auto* chooser = user.Element<QWidget>("formCategoryBrindle", category);
        ASSERT_EQ(chooser != nullptr && chooser->isVisible(), editor.Choosers().IsOpen(category));
        ASSERT_EQ(user.Element<QAction>("mnuLogicCategoriesCategory", category)->isChecked(),
                  editor.Choosers().IsOpen(category));
    }
    QString title = QString::fromStdString(editor.Title());
    ASSERT_EQ(user.Window->windowTitle(), title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

} // namespace brindle
