#include "files/whole_file.h"
#include "support/other_user_posix.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

/// Owner, group, permission bits, access list and attributes of a file that is replaced, on the disk of the
/// system; what cannot be kept is told, and nobody may do more afterwards than before.
namespace brindle {
namespace {

constexpr FileTraits OwnerAlone{true, false, false, false};
constexpr FileTraits OwnerAndGroup{true, true, false, false};

/// What the file at `path` belongs to and grants: "61234:61300 640".
std::string OwnershipOf(const std::string& path) {
    struct stat status {};

    std::array<char, 64> text{};
    if (::stat(path.c_str(), &status) == 0) {
        std::snprintf(text.data(), text.size(), "%u:%u %o", status.st_uid, status.st_gid,
                      status.st_mode & 07777U);
    }
    return text.data();
}

/// What the system's own program says of the access list of `path`.
std::string ListOf(const std::string& path) {
    std::string text;
    FILE* output = ::popen(("getfacl -cnp '" + path + "' 2>/dev/null").c_str(), "r");
    for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) {
        text += static_cast<char>(c);
    }
    ::pclose(output);
    return text;
}

bool SetList(const std::string& options, const std::string& path) {
    // NOLINTNEXTLINE(cert-env33-c): the program is what gives a second opinion
    return std::system(("setfacl " + options + " '" + path + "' 2>/dev/null").c_str()) == 0;
}

struct KeptTraits : testing::Test {
    KeptTraits() {
        Folder.Put("x.pl", "old");
        Rules.AskAboutLoss = [this](const FileTraits& lost) {
            Lost = lost;
            return LossAnswer::Replace;
        };
    }

    /// Gives the file, and the folder to all.
    void Give(uid_t owner, gid_t group, mode_t mode) const {
        ASSERT_EQ(0, ::chmod(Folder.Path().c_str(), 0777));
        ASSERT_EQ(0, ::chown(Path.c_str(), owner, group));
        ASSERT_EQ(0, ::chmod(Path.c_str(), mode));
    }

    /// Replaces the file as the user that we are now; returns what it then belongs to and grants.
    std::string Replaced() {
        EXPECT_EQ(0, ReplaceWholeFile(RealFileSystem(), Path, "new", Rules).Number);
        EXPECT_EQ(1, Folder.Count());
        return OwnershipOf(Path);
    }

    TempFolder Folder;
    const std::string Path = Folder.Path("x.pl");
    ReplaceRules Rules;
    FileTraits Lost;
};

/// Tests that need files of several users.
struct KeptTraitsOfOthers : KeptTraits {
    void SetUp() override {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "only the superuser can make files of others";
        }
    }
};

TEST_F(KeptTraits, AFileOfOurOwnKeepsItsBitsWhateverTheMask) {
    const mode_t before = ::umask(0);
    for (const mode_t mode : {0600U, 0640U, 0664U, 0666U, 0200U, 02664U}) {
        ASSERT_EQ(0, ::chmod(Path.c_str(), mode));
        for (const mode_t mask : {0U, 022U, 077U}) {
            ::umask(mask);
            const std::string ownership = OwnershipOf(Path);
            EXPECT_EQ(ownership, Replaced()) << mask;
        }
    }
    ::umask(before);
    EXPECT_FALSE(Lost.Any());
}

TEST_F(KeptTraits, AttributesAreKept) {
    if (::setxattr(Path.c_str(), "user.note", "of mine", 7, 0) != 0 && errno == ENOTSUP) {
        GTEST_SKIP() << "the disk has no attributes";
    }
    Replaced();
    std::array<char, 20> value{};
    EXPECT_EQ(7, ::getxattr(Path.c_str(), "user.note", value.data(), value.size()));
    EXPECT_STREQ("of mine", value.data());
    EXPECT_FALSE(Lost.Any());
}

TEST_F(KeptTraits, AnAccessListIsKept) {
    if (!SetList("-m u:61240:rw,g:61241:r,g::-", Path)) {
        GTEST_SKIP() << "the disk has no access lists, or the package acl is missing";
    }
    const std::string before = ListOf(Path);
    ASSERT_NE(std::string::npos, before.find("user:61240:rw-"));
    Replaced();
    EXPECT_EQ(before, ListOf(Path));
    EXPECT_FALSE(Lost.Any());
}

TEST_F(KeptTraits, AFileWithoutAccessListIsNotGivenThatOfItsFolder) {
    ASSERT_EQ(0, ::chmod(Path.c_str(), 0660));
    if (!SetList("-d -m u:61240:rwx", Folder.Path())) {
        GTEST_SKIP() << "the disk has no access lists, or the package acl is missing";
    }
    const std::string before = ListOf(Path);
    ASSERT_EQ(std::string::npos, before.find("61240"));
    Replaced();
    EXPECT_EQ(before, ListOf(Path));
    Folder.Put("new.pl", "");
    ASSERT_NE(std::string::npos, ListOf(Folder.Path("new.pl")).find("61240")) << "the folder does give it";
}

TEST_F(KeptTraitsOfOthers, TheSuperuserKeepsOwnerAndGroup) {
    Give(OtherUser, SharedGroup, 0640);
    EXPECT_EQ("61234:61300 640", Replaced());
    EXPECT_FALSE(Lost.Any());
}

TEST_F(KeptTraitsOfOthers, AFolderThatGivesItsGroupDoesNotGiveItToAFileOfAnother) {
    ASSERT_EQ(0, ::chown(Folder.Path().c_str(), OtherUser, OwnGroup));
    Give(OtherUser, SharedGroup, 0660);
    ASSERT_EQ(0, ::chmod(Folder.Path().c_str(), 02777));
    EXPECT_TRUE(RunAsOtherUser([&] {
        EXPECT_EQ("61234:61300 660", Replaced());
        EXPECT_FALSE(Lost.Any());
    }));
}

TEST_F(KeptTraitsOfOthers, AMemberOfItsGroupKeepsTheGroupAndIsToldOfTheOwner) {
    Give(0, SharedGroup, 0660);
    EXPECT_TRUE(RunAsOtherUser([&] {
        EXPECT_EQ("61234:61300 660", Replaced());
        EXPECT_EQ(OwnerAlone, Lost);
    }));
}

TEST_F(KeptTraitsOfOthers, NobodyGainsByALostGroup) {
    const auto replacedAsOther = [&](mode_t mode, const std::string& expected) {
        Give(0, ClosedGroup, mode);
        EXPECT_TRUE(RunAsOtherUser([&] {
            EXPECT_EQ(expected, Replaced());
            EXPECT_EQ(OwnerAndGroup, Lost);
        }));
    };
    replacedAsOther(0666, "61234:61234 666");
    replacedAsOther(0606, "61234:61234 600"); // members of the group could not read
    replacedAsOther(0646, "61234:61234 644"); // nor write here
    replacedAsOther(0626, "61234:61234 622");
    replacedAsOther(0466, "61234:61234 444"); // nor the owner here
}

TEST_F(KeptTraitsOfOthers, AnAccessListThatWouldMeanSomethingElseGivesNothingToAnybody) {
    Give(0, ClosedGroup, 0600);
    if (!SetList("-m u:61234:rw,u:61240:-,g::-,o::r", Path)) {
        GTEST_SKIP() << "the disk has no access lists, or the package acl is missing";
    }
    EXPECT_TRUE(RunAsOtherUser([&] {
        EXPECT_EQ("61234:61234 600", Replaced());
        EXPECT_EQ((FileTraits{true, true, true, false}), Lost);
        EXPECT_EQ(std::string::npos, ListOf(Path).find("61240"));
    }));
}

TEST_F(KeptTraitsOfOthers, AnAccessListThatMeansTheSameIsKeptThoughTheOwnerIsLost) {
    Give(0, SharedGroup, 0600);
    if (!SetList("-m u:61234:rw,u:61240:r,g::-", Path)) {
        GTEST_SKIP() << "the disk has no access lists, or the package acl is missing";
    }
    const std::string before = ListOf(Path);
    EXPECT_TRUE(RunAsOtherUser([&] {
        Replaced();
        EXPECT_EQ(OwnerAlone, Lost);
        EXPECT_EQ(before, ListOf(Path));
    }));
}

TEST_F(KeptTraitsOfOthers, TheNewFileIsAtNoMomentOpenToWhoMayNotReadTheOld) {
    ASSERT_EQ(0, ::chmod(Folder.Path().c_str(), 0755));
    ASSERT_EQ(0, ::chmod(Path.c_str(), 0600));
    const mode_t before = ::umask(0);
    ChildProcess saver([&] {
        bool well = true;
        for (int save = 0; save < 300 && well; ++save) {
            well = !ReplaceWholeFile(RealFileSystem(), Path, "secret").Failed();
        }
        return well;
    });
    ::umask(before);
    EXPECT_TRUE(RunAsOtherUser([&] {
        int opened = 0;
        // The folder is looked through for as long as the file goes on being replaced.
        const FileSystem files = RealFileSystem();
        for (int idle = 0; idle < 200'000;) {
            const std::vector<std::string> names = files.NamesIn(Folder.Path(), ".brindle-save-");
            idle = names.empty() ? idle + 1 : 0;
            for (const std::string& name : names) {
                const int handle = ::open(Folder.Path(name).c_str(), O_RDONLY | O_CLOEXEC);
                opened += handle >= 0 ? 1 : 0;
                ::close(handle);
            }
        }
        EXPECT_EQ(0, opened);
    }));
    EXPECT_TRUE(saver.EndsWell());
}

TEST_F(KeptTraitsOfOthers, AbandonedFilesOfOthersStay) {
    Folder.Put(".brindle-save-1.tmp", "of the superuser");
    Give(OtherUser, OwnGroup, 0600);
    Folder.Put(".brindle-save-2.tmp", "of the other");
    ASSERT_EQ(0, ::chown(Folder.Path(".brindle-save-2.tmp").c_str(), OtherUser, OwnGroup));
    ASSERT_EQ(0, ::chmod(Folder.Path(".brindle-save-1.tmp").c_str(), 0666));
    EXPECT_TRUE(
        RunAsOtherUser([&] { EXPECT_EQ(0, ReplaceWholeFile(RealFileSystem(), Path, "new", Rules).Number); }));
    EXPECT_EQ("of the superuser", Folder.Content(".brindle-save-1.tmp"));
    EXPECT_EQ(2, Folder.Count()) << "its own is cleared up";
}

TEST_F(KeptTraitsOfOthers, AHundredNamesOfOthersDoNotEndSavingInASharedFolder) {
    Give(OtherUser, OwnGroup, 0600);
    ASSERT_EQ(0, ::chmod(Folder.Path().c_str(), 01777));
    for (int name = 0; name < 100; ++name) {
        Folder.Put(".brindle-save-" + std::to_string(name) + ".tmp", "of the superuser");
    }
    EXPECT_TRUE(RunAsOtherUser([&] {
        EXPECT_EQ(0, ReplaceWholeFile(RealFileSystem(), Path, "new").Number);
        EXPECT_EQ("new", Folder.Content("x.pl"));
    }));
    EXPECT_EQ(101, Folder.Count());
}

TEST_F(KeptTraits, AFolderThatCannotBeListedIsSavedInAllTheSame) {
    ASSERT_EQ(0, ::chmod(Folder.Path().c_str(), 0333));
    const auto save = [&] { EXPECT_EQ(0, ReplaceWholeFile(RealFileSystem(), Path, "new").Number); };
    if (::geteuid() == 0) {
        ASSERT_EQ(0, ::chown(Path.c_str(), OtherUser, OwnGroup));
        EXPECT_TRUE(RunAsOtherUser(save));
    } else {
        save();
    }
    ASSERT_EQ(0, ::chmod(Folder.Path().c_str(), 0700));
    EXPECT_EQ("new", Folder.Content("x.pl"));
    EXPECT_EQ(1, Folder.Count());
}

} // namespace
} // namespace brindle
