#include "settings/recent_files.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>

namespace brindle {
namespace {

constexpr std::size_t Limit = 30;

RecentFile Used(const std::string& path) {
    return {path, Get_File_Name_Parts(path, PosixPaths).Title(), RelayKind::Vdr812};
}

std::size_t Characters(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

TEST(RecentFileCaptions, CarryTheirNumberAsAccessKey) {
    RecentFiles files;
    for (std::size_t i = 0; i < files.size(); ++i) {
        files[i] = Used("/p/" + std::string(1, static_cast<char>('a' + i)));
    }
    const auto captions = RecentFileCaptions(files, PosixPaths);
    EXPECT_EQ("&1 /p/a", captions[0]);
    EXPECT_EQ("&9 /p/i", captions[8]);
    EXPECT_EQ("1&0 /p/j", captions[9]);
}

TEST(RecentFileCaptions, AnUnusedEntryHasNoneAndTakesNoNumber) {
    RecentFiles files;
    files[0] = Used("/p/a");
    files[4] = Used("/p/b");
    const auto captions = RecentFileCaptions(files, PosixPaths);
    EXPECT_EQ("&1 /p/a", captions[0]);
    EXPECT_EQ("", captions[1]);
    EXPECT_EQ("&2 /p/b", captions[4]);
}

TEST(RecentFileCaptions, AnAmpersandIsShownAndIsNoAccessKey) {
    RecentFiles files;
    files[0] = Used("/p/R&D/a&&b.pl");
    EXPECT_EQ("&1 /p/R&&D/a&&&&b.pl", RecentFileCaptions(files, PosixPaths)[0]);
}

TEST(RecentFileCaptions, ATabOrLineBreakIsShownAsABlank) {
    RecentFiles files;
    files[0] = Used("/p/a\tb\nc.pl");
    EXPECT_EQ("&1 /p/a b c.pl", RecentFileCaptions(files, PosixPaths)[0]);
}

TEST(RecentFileCaptions, ALongPathIsShortenedForShowOnly) {
    RecentFiles files;
    files[0] = Used("/home/" + std::string(80, 'x') + "/scheme.pl");
    const RecentFile before = files[0];
    EXPECT_EQ("&1 /home/.../scheme.pl", RecentFileCaptions(files, PosixPaths)[0]);
    EXPECT_EQ(before, files[0]);
}

TEST(ShortenedPath, APathOfTheLimitStaysWhole) {
    const std::string path = "/" + std::string(Limit - 1, 'x');
    EXPECT_EQ(path, ShortenedPath(path, Limit, PosixPaths));
    EXPECT_NE(path + "x", ShortenedPath(path + "x", Limit, PosixPaths));
}

TEST(ShortenedPath, LeavesOutFoldersOfTheMiddle) {
    EXPECT_EQ("/home/me/.../relays/north/x.pl",
              ShortenedPath("/home/me/projects/2001/relays/north/x.pl", Limit, PosixPaths));
    EXPECT_EQ(R"(C:\plc\...\relays\north\x.pl)",
              ShortenedPath(R"(C:\plc\projects\2001\relays\north\x.pl)", Limit, WindowsPaths));
}

TEST(ShortenedPath, CutsANameThatHasNoRoom) {
    EXPECT_EQ("/home/me/..." + std::string(Limit - 12 - 3, 'x') + ".pl",
              ShortenedPath("/home/me/" + std::string(40, 'x') + ".pl", Limit, PosixPaths));
}

TEST(ShortenedPath, CountsAndCutsWholeCharacters) {
    std::string name;
    for (int i = 0; i < 40; ++i) {
        name += "\xC3\xA4"; // a letter of two bytes
    }
    const std::string shown = ShortenedPath("/" + name, Limit, PosixPaths);
    EXPECT_EQ(Limit, Characters(shown));
    EXPECT_EQ("/...\xC3\xA4", shown.substr(0, 6));
}

RC_GTEST_PROP(ShortenedPath, IsNeverLongerThanTheLimitAndEndsAsThePathDoes, ()) {
    const auto names = *rc::gen::container<std::vector<std::string>>(
        rc::gen::container<std::string>(rc::gen::inRange('a', 'z')));
    std::string path;
    for (const std::string& name : names) {
        path += "/" + name;
    }
    const std::string shown = ShortenedPath(path, Limit, PosixPaths);
    RC_ASSERT(Characters(shown) <= Limit);
    const std::string title = Get_File_Name_Parts(path, PosixPaths).Title();
    const std::size_t kept = std::min<std::size_t>(title.size(), Limit / 2);
    RC_ASSERT(path.substr(path.size() - kept) == shown.substr(shown.size() - kept));
}

} // namespace
} // namespace brindle
