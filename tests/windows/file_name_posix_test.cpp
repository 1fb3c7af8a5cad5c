#include "support/main_window_test_window.h"

#include <QWindow>

namespace brindle {
namespace {

/// Names of files that only this system takes.
class FileName : public MainWindowTest {};

TEST_F(FileName, WithABracketedStarIsShownInTheTitle) {
    Start();
    Dialogs.ChooseFile(PathOf("a[*]b.pl"));
    Choose("mnuSaveBin");
    EXPECT_NE(Window->windowHandle()->title().indexOf(QStringLiteral("a[*]b.pl")), -1);
}

} // namespace
} // namespace brindle
