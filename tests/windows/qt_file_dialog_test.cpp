#include "platform/qt_file_dialog.h"
#include "support/main_window_test_window.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

namespace brindle {
namespace {

constexpr const char* TwoFilters = "Text File (*.txt)|*.txt |All Files (*.*)|*.*";

TEST(QtNameFilters, TakeThePatternAndKeepTheDescription) {
    EXPECT_EQ(QtNameFilters("Vdr812 PLC Files (*.pl)|*.pl"),
              QStringList{QStringLiteral("Vdr812 PLC Files (*.pl)")});
    EXPECT_EQ(QtNameFilters(TwoFilters),
              (QStringList{QStringLiteral("Text File (*.txt)"), QStringLiteral("All Files (*.*)")}));
}

TEST(FilterIndexOfName, IsThatOfTheFilterWhoseExtensionTheNameBears) {
    const std::string filter = "Binary File (*.pl)|*.pl|VDR810 (*.c10)|*.c10";
    EXPECT_EQ(FilterIndexOfName(filter, QStringLiteral("/a/x.pl"), 2), 1);
    EXPECT_EQ(FilterIndexOfName(filter, QStringLiteral("/a/x.C10"), 1), 2);
}

TEST(FilterIndexOfName, IsThePresetOneWhenNoFilterHasTheExtension) {
    EXPECT_EQ(FilterIndexOfName("Vdr812 PLC Files (*.pl)|*.pl", QStringLiteral("x.c10"), 2), 2);
    EXPECT_EQ(FilterIndexOfName("Vdr812 PLC Files (*.pl)|*.pl", QStringLiteral("x.c10"), 1), 1);
    EXPECT_EQ(FilterIndexOfName(TwoFilters, QStringLiteral("x.doc"), 1), 1)
        << "a filter for all files claims none";
}

/// The file dialog as a user types into it, under each entry of its filter.
class TypedName : public MainWindowTest, public testing::WithParamInterface<const char*> {
  protected:
    /// The path that Open takes for what is typed; empty when the dialog was left.
    std::string Open(const std::string& typed) {
        const FileDialogRequest request{FileDialogKind::Open, "Open Binary File", PlFilter, 1, "pl",
                                        PathOf("*.pl")};
        Dialogs.ChooseFile(typed, GetParam());
        const auto answer = RunQtFileDialog(nullptr, request);
        return answer ? answer->FileName : std::string();
    }

    static constexpr const char* PlFilter = "Vdr812 PLC Files (*.pl)|*.pl";
};

TEST_P(TypedName, OpensTheFileOfThatVeryName) {
    WriteFile("scheme", "x");
    EXPECT_EQ(Open("scheme"), PathOf("scheme"));
    EXPECT_EQ(Open(PathOf("scheme")), PathOf("scheme"));
    WriteFile("scheme.pl", "x");
    EXPECT_EQ(Open("scheme"), PathOf("scheme")) << "with both there";
    EXPECT_EQ(Open("scheme.pl"), PathOf("scheme.pl"));
}

TEST_P(TypedName, GetsTheExtensionWhereNoFileIsNamedSo) {
    WriteFile("scheme.pl", "x");
    EXPECT_EQ(Open("scheme"), PathOf("scheme.pl"));
    QDir(Folder.path()).mkdir(QStringLiteral("sub"));
    WriteFile("sub/other.pl", "x");
    EXPECT_EQ(Open("sub/other"), PathOf("sub/other.pl"));
}

TEST_P(TypedName, OfNoFileIsToldInPlainWords) {
    Dialogs.ChooseFile("nothing", GetParam());
    Dialogs.PressButton("OK");
    Dialogs.CancelFile();
    EXPECT_FALSE(RunQtFileDialog(
        nullptr, {FileDialogKind::Open, "Open Binary File", PlFilter, 1, "pl", PathOf("*.pl")}));
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Text,
              "The file " + PathOf("nothing.pl") + " does not exist.\nCheck the name and try again.");
}

INSTANTIATE_TEST_SUITE_P(Filters, TypedName, testing::Values("Vdr812", "All Files"));

/// Names of files as markup, in boxes that are Qt's own and not ours to word.
TEST_F(MainWindowTest, TheFileDialogNeitherDeletesNorRenames) {
    Dialogs.CancelFile();
    EXPECT_FALSE(
        RunQtFileDialog(nullptr, {FileDialogKind::Open, "Open", "All (*.*)|*.*", 1, "pl", PathOf("*")}));
    const std::vector<std::string>& actions = Dialogs.FileDialogs.at(0).Actions;
    EXPECT_EQ(std::ranges::count(actions, "qt_new_folder_action"), 1);
    EXPECT_EQ(std::ranges::count(actions, "qt_delete_action"), 0);
    EXPECT_EQ(std::ranges::count(actions, "qt_rename_action"), 0);
}

/// The question before a file is replaced.
class ReplacedFile : public MainWindowTest {};

TEST_F(ReplacedFile, IsKeptWhereEnterIsPressed) {
    WriteFile("a.pl", "old");
    const FileDialogRequest request{
        FileDialogKind::SaveAs, "Save Binary File", "Binary File (*.pl)|*.pl", 1, "pl", PathOf("a.pl")};
    Dialogs.ChooseFile("a");
    Dialogs.PressEnter();
    Dialogs.CancelFile();
    EXPECT_FALSE(RunQtFileDialog(nullptr, request));
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Text, PathOf("a.pl") + " already exists.\nDo you want to replace it?");
}

} // namespace
} // namespace brindle
