#include "support/monkey_checks_window.h"
#include "support/monkey_user_window.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

/// A user who presses at random whatever can be pressed, in the main window, its dialogs and with its files,
/// for thousands of actions. After each the program must keep its rules. BRINDLE_MONKEY_SEED and
/// BRINDLE_MONKEY_ACTIONS run another sequence, or a longer one (scripts/monkey).
namespace brindle {
namespace {

int FromEnvironment(const char* name, int otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : QByteArray(text).toInt();
}

void Act(MonkeyUser& user) {
    const int choice = user.Chance.Number(0, 99);
    if (choice < 92) {
        ActOnLogic(user);
    } else if (choice < 98) {
        ActOnFiles(user);
    } else {
        ActInDialogs(user);
    }
}

class Monkey : public testing::TestWithParam<int> {
  protected:
    void Run(int actions) {
        const int seed = FromEnvironment("BRINDLE_MONKEY_SEED", GetParam());
        MonkeyUser user(static_cast<unsigned>(seed));
        MonkeyChecks checks;
        user.StartProgram();
        for (int action = 0; action < actions; ++action) {
            user.Disk.BeginAction();
            Act(user);
            checks.AfterAction(user);
            if (action % 20 == 0) {
                QApplication::processEvents();
            }
            if (action % 100 == 0) {
                MonkeyChecks::ExpectWindowShowsLogic(user);
                user.Disk.ExpectAllKept();
            }
            ASSERT_FALSE(HasFailure()) << "seed " << seed << ", action " << action;
        }
        user.Disk.ExpectAllKept();
        std::cout << "seed " << seed << ": " << actions << " actions, " << user.Disk.WriteCount()
                  << " files written, " << user.Disk.FaultsInjected() << " faults of the disk, "
                  << user.Dialogs.Shown() << " boxes and dialogs pressed, " << user.Starts << " starts\n";
    }
};

TEST_P(Monkey, NeitherBreaksTheLogicNorStopsTheProgram) {
    Run(FromEnvironment("BRINDLE_MONKEY_ACTIONS", 1250));
}

INSTANTIATE_TEST_SUITE_P(Seeds, Monkey, testing::Values(1, 2, 3, 4));

} // namespace
} // namespace brindle
