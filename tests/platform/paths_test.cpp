#include "platform/paths.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>

namespace brindle {
namespace {

/// Paths of a few characters, so that separators, points and colons meet often.
rc::Gen<std::string> AnyPath() {
    return rc::gen::container<std::string>(rc::gen::elementOf(std::string("aB./\\:")));
}

PathStyle AnyStyle() {
    return *rc::gen::element(0, 1) == 0 ? PosixPaths : WindowsPaths;
}

TEST(AddTrailingSeparator, IsAppendedWhereMissing) {
    EXPECT_EQ("/opt/brindle/", AddTrailingSeparator("/opt/brindle", PosixPaths));
    EXPECT_EQ("C:\\Brindle\\", AddTrailingSeparator("C:\\Brindle", WindowsPaths));
}

TEST(AddTrailingSeparator, IsNotDoubled) {
    EXPECT_EQ("/", AddTrailingSeparator("/", PosixPaths));
    EXPECT_EQ("C:\\", AddTrailingSeparator("C:\\", WindowsPaths));
    EXPECT_EQ("C:/", AddTrailingSeparator("C:/", WindowsPaths));
}

TEST(AddTrailingSeparator, ABackslashIsAnOrdinaryCharacterOfAPosixName) {
    EXPECT_EQ("/odd\\/", AddTrailingSeparator("/odd\\", PosixPaths));
}

TEST(AddTrailingSeparator, AnEmptyPathBecomesTheRoot) {
    EXPECT_EQ("/", AddTrailingSeparator("", PosixPaths));
}

TEST(JoinPath, PutsOneSeparatorBetween) {
    EXPECT_EQ("/home/me/x.pl", JoinPath("/home/me", "x.pl", PosixPaths));
    EXPECT_EQ("/home/me/x.pl", JoinPath("/home/me/", "x.pl", PosixPaths));
    EXPECT_EQ("/home/me/x.pl", JoinPath("/home/me/", "/x.pl", PosixPaths));
    EXPECT_EQ("D:\\x.pl", JoinPath("D:\\", "x.pl", WindowsPaths));
    EXPECT_EQ("D:\\a\\x.pl", JoinPath("D:\\a", "\\x.pl", WindowsPaths));
}

TEST(JoinPath, AnEmptyFolderGivesTheNameAlone) {
    EXPECT_EQ("x.pl", JoinPath("", "x.pl", PosixPaths));
}

TEST(JoinPath, UsesTheSystemsOwnSeparatorByDefault) {
    EXPECT_EQ(std::string("a") + SystemPaths.Separator + "b", JoinPath("a", "b"));
}

TEST(GetFileNameParts, SplitsFolderNameAndExtension) {
    const FileNameParts parts = Get_File_Name_Parts("/home/me/Feeder 12.pl", PosixPaths);
    EXPECT_EQ("/home/me/", parts.Folder);
    EXPECT_EQ("Feeder 12", parts.Name);
    EXPECT_EQ("pl", parts.Extension);
    EXPECT_EQ("Feeder 12.pl", parts.Title());
}

TEST(GetFileNameParts, OnlyTheLastPointBeginsTheExtension) {
    const FileNameParts parts = Get_File_Name_Parts("/a/line.v2.pl", PosixPaths);
    EXPECT_EQ("line.v2", parts.Name);
    EXPECT_EQ("pl", parts.Extension);
}

TEST(GetFileNameParts, APointInTheFolderIsNoExtension) {
    const FileNameParts parts = Get_File_Name_Parts("/logic.d/feeder", PosixPaths);
    EXPECT_EQ("/logic.d/", parts.Folder);
    EXPECT_EQ("feeder", parts.Name);
    EXPECT_EQ("", parts.Extension);
    EXPECT_EQ("feeder", parts.Title());
}

TEST(GetFileNameParts, ANameOfAnExtensionAloneIsEmpty) {
    const FileNameParts parts = Get_File_Name_Parts("/a/.pl", PosixPaths);
    EXPECT_EQ("", parts.Name);
    EXPECT_EQ("pl", parts.Extension);
    EXPECT_EQ(".pl", parts.Title());
}

TEST(GetFileNameParts, APointAtTheEndIsKeptInTheTitle) {
    const FileNameParts parts = Get_File_Name_Parts("x.", PosixPaths);
    EXPECT_EQ("", parts.Folder);
    EXPECT_EQ("x", parts.Name);
    EXPECT_EQ("", parts.Extension);
    EXPECT_EQ("x.", parts.Title());
}

TEST(GetFileNameParts, AFolderHasNeitherNameNorExtension) {
    const FileNameParts parts = Get_File_Name_Parts("/home/me.d/", PosixPaths);
    EXPECT_EQ("/home/me.d/", parts.Folder);
    EXPECT_EQ("", parts.Title());
}

TEST(GetFileNameParts, BothSlashesSeparateOnWindows) {
    EXPECT_EQ("C:\\a/", Get_File_Name_Parts("C:\\a/x.pl", WindowsPaths).Folder);
    EXPECT_EQ("C:/a\\", Get_File_Name_Parts("C:/a\\x.pl", WindowsPaths).Folder);
    EXPECT_EQ("a\\x", Get_File_Name_Parts("/a\\x.pl", PosixPaths).Name);
}

TEST(GetFileNameParts, ADriveAloneIsTheFolder) {
    const FileNameParts parts = Get_File_Name_Parts("C:x.pl", WindowsPaths);
    EXPECT_EQ("C:", parts.Folder);
    EXPECT_EQ("x", parts.Name);
    EXPECT_EQ("C:x", Get_File_Name_Parts("C:x.pl", PosixPaths).Name);
}

RC_GTEST_PROP(GetFileNameParts, FolderAndTitleAreThePathAgain, ()) {
    const std::string path = *AnyPath();
    const FileNameParts parts = Get_File_Name_Parts(path, AnyStyle());
    RC_ASSERT(parts.Folder + parts.Title() == path);
    RC_ASSERT(parts.Extension.find_first_of("./") == std::string::npos);
}

RC_GTEST_PROP(JoinPath, ItsPartsAreFolderAndNameAgain, ()) {
    const PathStyle style = AnyStyle();
    const std::string folder = *AnyPath();
    const auto name = *rc::gen::container<std::string>(rc::gen::elementOf(std::string("aB.")));
    RC_PRE(!folder.empty());
    const FileNameParts parts = Get_File_Name_Parts(JoinPath(folder, name, style), style);
    RC_ASSERT(parts.Folder == AddTrailingSeparator(folder, style));
    RC_ASSERT(parts.Title() == name);
}

TEST(AbsolutePath, ARelativePathCountsFromTheStartFolder) {
    EXPECT_EQ("/home/me/x.pl", AbsolutePath("/home/me", "x.pl", PosixPaths));
    EXPECT_EQ("/home/me/../x.pl", AbsolutePath("/home/me/", "../x.pl", PosixPaths));
    EXPECT_EQ("D:\\work\\a\\x.pl", AbsolutePath("D:\\work", "a\\x.pl", WindowsPaths));
}

TEST(AbsolutePath, ALeadingDotIsDropped) {
    EXPECT_EQ("/home/me/x.pl", AbsolutePath("/home/me", "./x.pl", PosixPaths));
    EXPECT_EQ("/home/me/x.pl", AbsolutePath("/home/me", "././x.pl", PosixPaths));
    EXPECT_EQ("D:\\work\\x.pl", AbsolutePath("D:\\work", ".\\x.pl", WindowsPaths));
    EXPECT_EQ("/home/me/.x.pl", AbsolutePath("/home/me", ".x.pl", PosixPaths));
    EXPECT_EQ("/home/me/.", AbsolutePath("/home/me", ".", PosixPaths));
}

TEST(AbsolutePath, AnAbsolutePathStays) {
    EXPECT_EQ("/x.pl", AbsolutePath("/home/me", "/x.pl", PosixPaths));
    EXPECT_EQ("C:\\x.pl", AbsolutePath("D:\\work", "C:\\x.pl", WindowsPaths));
    EXPECT_EQ("\\\\server\\share\\x.pl", AbsolutePath("D:\\work", "\\\\server\\share\\x.pl", WindowsPaths));
}

TEST(AbsolutePath, ARootWithoutDriveIsThatOfTheStartFolder) {
    EXPECT_EQ("D:\\x.pl", AbsolutePath("D:\\work", "\\x.pl", WindowsPaths));
    EXPECT_EQ("\\\\server\\share\\x.pl", AbsolutePath("\\\\server\\share\\work", "\\x.pl", WindowsPaths));
    EXPECT_EQ("\\\\server\\share\\x.pl", AbsolutePath("\\\\server\\share", "\\x.pl", WindowsPaths));
}

TEST(AbsolutePath, ADriveWithoutRootCountsFromTheStartFolderOnThatDrive) {
    EXPECT_EQ("D:\\work\\x.pl", AbsolutePath("D:\\work", "d:x.pl", WindowsPaths));
    EXPECT_EQ("C:\\x.pl", AbsolutePath("D:\\work", "C:x.pl", WindowsPaths));
}

TEST(AbsolutePath, HasTheSeparatorsOfItsSystem) {
    EXPECT_EQ("c:\\a\\x.pl", AbsolutePath("D:\\work", "c:/a\\x.pl", WindowsPaths));
    EXPECT_EQ("D:\\work\\a\\x.pl", AbsolutePath("D:\\work", "./a/x.pl", WindowsPaths));
    EXPECT_EQ("\\\\server\\share\\x.pl", AbsolutePath("D:\\work", "//server/share/x.pl", WindowsPaths));
    EXPECT_EQ("/home/me/a\\x.pl", AbsolutePath("/home/me", "a\\x.pl", PosixPaths)) << "part of a name there";
}

TEST(AbsolutePath, AnEmptyPathStaysEmpty) {
    EXPECT_EQ("", AbsolutePath("/home/me", "", PosixPaths));
}

RC_GTEST_PROP(AbsolutePath, IsUnchangedByASecondTime, ()) {
    const bool posix = *rc::gen::arbitrary<bool>();
    const PathStyle style = posix ? PosixPaths : WindowsPaths;
    const std::string start = posix ? "/home/me" : "D:\\work";
    const std::string once = AbsolutePath(start, *AnyPath(), style);
    RC_ASSERT(AbsolutePath(posix ? "/other" : "E:\\other", once, style) == once);
}

TEST(PlainPath, LeavesOutWhatNamesCancelOut) {
    EXPECT_EQ("/home/a.pl", PlainPath("/home/x/../a.pl", PosixPaths));
    EXPECT_EQ("/home/a.pl", PlainPath("/home//./x/y/../../a.pl", PosixPaths));
    EXPECT_EQ("/a.pl", PlainPath("/../../a.pl", PosixPaths));
    EXPECT_EQ("../a.pl", PlainPath("x/../../a.pl", PosixPaths));
    EXPECT_EQ("../../a.pl", PlainPath("../../a.pl", PosixPaths));
    EXPECT_EQ("/", PlainPath("/x/..", PosixPaths));
    EXPECT_EQ("", PlainPath("", PosixPaths));
    EXPECT_EQ("/home/..a", PlainPath("/home/..a", PosixPaths));
}

TEST(PlainPath, StartsWithItsDriveOrShare) {
    EXPECT_EQ(R"(C:\a.pl)", PlainPath("C:/x/../../a.pl", WindowsPaths));
    EXPECT_EQ(R"(C:a.pl)", PlainPath(R"(C:x\..\a.pl)", WindowsPaths));
    EXPECT_EQ(R"(\\office\plc\a.pl)", PlainPath(R"(\\office\plc\..\x\..\a.pl)", WindowsPaths));
}

} // namespace
} // namespace brindle
