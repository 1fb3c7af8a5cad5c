#include "files/whole_file.h"
#include "support/child_process.h"
#include "support/fake_file_system.h"
#include "support/shared_count.h"
#include "support/temp_folder.h"
#include "support/two_versions.h"

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <random>
#include <thread>

/// A program that is killed, or loses its power, in the middle of a save.
namespace brindle {
namespace {

/// What kills at random moments of saving led to.
struct KillResult {
    int Torn = 0;        ///< kills after which the file was no whole version
    int LeftBeside = 0;  ///< kills after which the file of an unfinished save was left beside
    int FailedSaves = 0; ///< saves after a kill, by the next child or by ourselves, that did not go well
    int Crowded = 0;     ///< saves after which more than the file itself was in the folder
};

KillResult KillSavers(const TwoVersions& versions, int kills, std::mt19937& random) {
    const FileSystem files = RealFileSystem();
    const TempFolder folder;
    const std::string path = folder.Path(versions.Name);
    EXPECT_FALSE(versions.Save(files, path, 0).Failed());
    std::uniform_int_distribution<int> microseconds(0, 4000);
    KillResult result;
    for (int kill = 0; kill < kills; ++kill) {
        const SharedCount running;
        ChildProcess saver([&] {
            running.Increment();
            // Of what the writers do, the part that touches the disk: all kills are to hit that.
            int version = 0;
            while (!ReplaceWholeFile(files, path, versions.Bytes[version]).Failed()) {
                version = 1 - version;
            }
            return false;
        });
        while (running.Value() == 0) {
            std::this_thread::yield();
        }
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        result.FailedSaves += saver.Kill() ? 0 : 1;
        result.Torn += versions.IsWhole(folder.Content(versions.Name)) ? 0 : 1;
        result.LeftBeside += folder.Count() > 1 ? 1 : 0;
        if (kill % 10 == 9) { // and not after each: what is left may not trouble the next child either
            result.FailedSaves += versions.Save(files, path, kill / 10 % 2).Failed() ? 1 : 0;
            result.Crowded += folder.Count() > 1 ? 1 : 0;
        }
    }
    return result;
}

void ExpectToSurviveKills(const TwoVersions& versions, int kills) {
    const std::uint32_t seed = std::random_device()();
    std::mt19937 random(seed);
    const KillResult result = KillSavers(versions, kills, random);
    std::cout << "kills: " << kills << ", with a file left beside: " << result.LeftBeside
              << ", seed: " << seed << "\n";
    EXPECT_EQ(0, result.Torn);
    EXPECT_EQ(0, result.FailedSaves);
    EXPECT_EQ(0, result.Crowded);
    EXPECT_GT(result.LeftBeside, kills / 25) << "the kills have hit the saves";
}

TEST(KilledSaver, LeavesAProgramFileWholeAndTheNextSaveGoesWell) {
    ExpectToSurviveKills(ProgramVersions(), 250);
}

TEST(KilledSaver, LeavesALogicFileWholeAndTheNextSaveGoesWell) {
    ExpectToSurviveKills(Vdr810Versions(), 250);
}

TEST(KilledSaver, LosingPowerAtAnyOperationLeavesAWholeVersionAndWhatWasReportedAsSaved) {
    std::size_t failures = 0;
    for (const TwoVersions& versions : {ProgramVersions(), Vdr810Versions()}) {
        for (const UnflushedNames names : {UnflushedNames::Forgotten, UnflushedNames::Kept}) {
            const std::string path = std::string("/home/") + versions.Name;
            bool saved = false;
            for (std::size_t n = 1; !saved; ++n, ++failures) {
                FakeFileSystem disk;
                disk.AddFolder("/home");
                disk.AddFile(path, versions.Bytes[0]);
                disk.FailFrom(n, DeviceIoError);
                saved = !versions.Save(disk.Operations(), path, 1).Failed();
                disk.FailNoMore();
                disk.Crash(names);
                const std::string content = disk.Content(path).value_or("");
                EXPECT_TRUE(content == versions.Bytes[1] || (!saved && content == versions.Bytes[0])) << n;
                EXPECT_FALSE(versions.Save(disk.Operations(), path, 1).Failed()) << n;
                EXPECT_TRUE(versions.Bytes[1] == disk.Content(path)) << n;
                EXPECT_EQ((std::vector<std::string>{"/", "/home", path}), disk.Names()) << n;
            }
        }
    }
    std::cout << "power failures: " << failures << "\n";
}

TEST(KilledSaver, AnyNumberOfPowerFailuresInOneFolderNeverEndsItsSaving) {
    FakeFileSystem disk;
    disk.AddFolder("/home");
    disk.AddFile("/home/x.pl", "old");
    for (int failure = 0; failure < 150; ++failure) {
        disk.FailAll("rename", DeviceIoError);
        disk.FailFrom(6, DeviceIoError); // nothing is tidied up either
        ASSERT_TRUE(ReplaceWholeFile(disk.Operations(), "/home/x.pl", "new").Failed());
        disk.FailNoMore();
        disk.Crash(UnflushedNames::Kept);
        ASSERT_LE(disk.Names().size(), 4U) << "one file beside at most";
    }
    EXPECT_EQ("old", disk.Content("/home/x.pl"));
    EXPECT_FALSE(ReplaceWholeFile(disk.Operations(), "/home/x.pl", "new").Failed());
    EXPECT_EQ((std::vector<std::string>{"/", "/home", "/home/x.pl"}), disk.Names());
}

} // namespace
} // namespace brindle
