#include "files/whole_file.h"
#include "settings/own_profile.h"
#include "settings/recent_files.h"
#include "settings/settings_file.h"
#include "support/child_process.h"
#include "support/shared_count.h"
#include "support/temp_folder.h"
#include "support/two_versions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <list>
#include <random>
#include <sstream>
#include <thread>

/// Two programs at work on one file.
namespace brindle {
namespace {

constexpr const char* SharedSettings = "[Kept]\r\nKey=of both\r\n";

SettingsFile SettingsOf(const TempFolder& folder, std::vector<MessageBox>& boxes) {
    return {folder.Path(), OwnProfile(RealFileSystem()), RealFileSystem(),
            [&boxes](const MessageBox& box) {
                boxes.push_back(box);
                return MessageAnswer::Ok;
            },
            RealFileLocks()};
}

/// Stores values of one letter under the program's own key and under a common one; whether every write went
/// well.
bool WriteSettings(const TempFolder& folder, char letter, int rounds) {
    std::vector<MessageBox> boxes;
    SettingsFile settings = SettingsOf(folder, boxes);
    bool well = true;
    for (int round = 0; round < rounds; ++round) {
        const std::string value(static_cast<std::size_t>(1 + round * 37 % 500), letter);
        well = settings.Write(std::string("Own") + letter, value, "Brindle") && well;
        well = settings.Write("Common", value, "Brindle") && well;
    }
    return well && boxes.empty();
}

/// Every line of the text is one that a program wrote, whole.
bool IsWholeSettings(const std::string& text) {
    if (text.rfind(SharedSettings, 0) != 0) {
        return false;
    }
    const auto isOneLetter = [](const std::string& value, const std::string& letters) {
        return !value.empty() && letters.find(value[0]) != std::string::npos &&
               value.find_first_not_of(value[0]) == std::string::npos;
    };
    std::istringstream lines(text.substr(std::string(SharedSettings).size()));
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.back() != '\r') {
            return false;
        }
        line.pop_back();
        const std::size_t equals = line.find('=');
        const std::string key = line.substr(0, equals);
        const std::string value = equals == std::string::npos ? "" : line.substr(equals + 1);
        const bool whole = line == "[Brindle]" || (key == "Owna" && isOneLetter(value, "a")) ||
                           (key == "Ownb" && isOneLetter(value, "b")) ||
                           (key == "Common" && isOneLetter(value, "ab"));
        if (!whole) {
            return false;
        }
    }
    return true;
}

TEST(TwoProgramsOnOneSettingsFile, InTurnsKeepEachOthersKeysAndTheLastOneWins) {
    const TempFolder folder;
    std::vector<MessageBox> boxes;
    SettingsFile first = SettingsOf(folder, boxes);
    SettingsFile second = SettingsOf(folder, boxes);
    for (int turn = 0; turn < 5; ++turn) {
        const std::string number = std::to_string(turn);
        EXPECT_TRUE(first.Write("Of1", number, "Brindle"));
        EXPECT_TRUE(second.Write("Of2", number, "Brindle"));
        EXPECT_TRUE(first.Write("Common", "first " + number, "Brindle"));
        EXPECT_TRUE(second.Write("Common", "second " + number, "Brindle"));
        for (const SettingsFile* settings : {&first, &second}) {
            EXPECT_EQ(number, settings->Read("Brindle", "Of1"));
            EXPECT_EQ(number, settings->Read("Brindle", "Of2"));
            EXPECT_EQ("second " + number, settings->Read("Brindle", "Common"));
        }
    }
    EXPECT_TRUE(second.RemoveSection("Brindle"));
    EXPECT_EQ("", first.Read("Brindle", "Of1", ""));
    EXPECT_TRUE(first.Write("Of1", "again", "Brindle"));
    EXPECT_EQ("again", second.Read("Brindle", "Of1"));
    EXPECT_TRUE(boxes.empty());
}

/// Lets `bodies` run in programs of their own, all from the same moment; whether each ended well.
bool RunAtOnce(const std::vector<std::function<bool()>>& bodies) {
    const SharedCount ready;
    std::list<ChildProcess> programs;
    for (const std::function<bool()>& body : bodies) {
        programs.emplace_back([&] {
            ready.Increment();
            while (ready.Value() < bodies.size()) {
                std::this_thread::yield();
            }
            return body();
        });
    }
    return std::all_of(programs.begin(), programs.end(),
                       [](ChildProcess& program) { return program.EndsWell(); });
}

TEST(ProgramsOnOneSettingsFile, AtOnceLoseNoKey) {
    constexpr int programs = 8;
    constexpr int keys = 25;
    const TempFolder folder;
    folder.Put("Benchkit.ini", SharedSettings);
    std::vector<std::function<bool()>> bodies;
    bodies.reserve(programs);
    for (int program = 0; program < programs; ++program) {
        bodies.emplace_back([&folder, program] {
            std::vector<MessageBox> boxes;
            SettingsFile settings = SettingsOf(folder, boxes);
            bool well = true;
            for (int key = 0; key < keys; ++key) {
                const std::string name = std::to_string(program) + "." + std::to_string(key);
                well = settings.Write(name, name, "Brindle") && well;
            }
            return well && boxes.empty();
        });
    }
    ASSERT_TRUE(RunAtOnce(bodies));
    std::vector<MessageBox> boxes;
    const SettingsFile settings = SettingsOf(folder, boxes);
    for (int program = 0; program < programs; ++program) {
        for (int key = 0; key < keys; ++key) {
            const std::string name = std::to_string(program) + "." + std::to_string(key);
            EXPECT_EQ(name, settings.Read("Brindle", name));
        }
    }
    EXPECT_EQ("of both", settings.Read("Kept", "Key"));
    EXPECT_EQ(1, folder.Count()) << "neither files beside nor locks are left";
}

/// A start of the program that opens the file `name`: the list is loaded, and the file put at its head.
bool StartWithFile(const TempFolder& folder, const std::string& name) {
    std::vector<MessageBox> boxes;
    SettingsFile settings = SettingsOf(folder, boxes);
    RecentFileList list(folder.Path(), settings, RealFileSystem());
    list.Load();
    list.Enter({folder.Path(name), name, RelayKind::Vdr812});
    return boxes.empty() && list.Entries()[0].Name == name;
}

/// The names in the list of a program that starts now, in the order of letters.
std::vector<std::string> RecentNames(const TempFolder& folder) {
    std::vector<MessageBox> boxes;
    SettingsFile settings = SettingsOf(folder, boxes);
    RecentFileList list(folder.Path(), settings, RealFileSystem());
    list.Load();
    std::vector<std::string> names;
    for (const RecentFile& file : list.Entries()) {
        if (file.Used()) {
            names.push_back(file.Name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(ProgramsThatStartAtOnce, KeepEachOthersRecentFiles) {
    for (int round = 0; round < 15; ++round) {
        const TempFolder folder;
        std::vector<std::string> names;
        std::vector<std::function<bool()>> bodies;
        for (int program = 0; program < RecentFileCount; ++program) {
            names.push_back(std::to_string(program) + ".pl");
            folder.Put(names.back(), "logic");
            bodies.emplace_back([&folder, name = names.back()] { return StartWithFile(folder, name); });
        }
        ASSERT_TRUE(RunAtOnce(bodies));
        ASSERT_EQ(names, RecentNames(folder)) << "round " << round;
    }
}

TEST(ProgramsThatStartAtOnce, FifteenOfThemLeaveTheTenNewestFiles) {
    const TempFolder folder;
    std::vector<std::function<bool()>> bodies;
    for (int program = 0; program < 15; ++program) {
        const std::string name = std::to_string(program) + ".pl";
        folder.Put(name, "logic");
        bodies.emplace_back([&folder, name] { return StartWithFile(folder, name); });
    }
    ASSERT_TRUE(RunAtOnce(bodies));
    EXPECT_EQ(static_cast<std::size_t>(RecentFileCount), RecentNames(folder).size());
}

TEST(TwoProgramsOnOneSettingsFile, AtOnceNeverTearIt) {
    const TempFolder folder;
    folder.Put("Benchkit.ini", SharedSettings);
    const SharedCount ended;
    const auto writer = [&](char letter) {
        return [&folder, &ended, letter] {
            const bool well = WriteSettings(folder, letter, 60);
            ended.Increment();
            return well;
        };
    };
    ChildProcess first(writer('a'));
    ChildProcess second(writer('b'));
    ASSERT_TRUE(first.Started() && second.Started());
    int reads = 0;
    for (; ended.Value() < 2; ++reads) {
        std::string text;
        ASSERT_FALSE(ReadWholeText(RealFileSystem(), folder.Path("Benchkit.ini"), text).Failed());
        ASSERT_TRUE(IsWholeSettings(text)) << text;
    }
    EXPECT_TRUE(first.EndsWell());
    EXPECT_TRUE(second.EndsWell());
    std::cout << "writes: 240, reads between: " << reads << "\n";
    EXPECT_TRUE(WriteSettings(folder, 'a', 1));
    std::vector<MessageBox> boxes;
    EXPECT_EQ("a", SettingsOf(folder, boxes).Read("Brindle", "Common")) << "the last one wins";
    EXPECT_EQ(1, folder.Count());
}

/// A child that saves, its two versions in turns, until it is told to stop; ends well when no save failed.
ChildProcess* AddSaver(std::list<ChildProcess>& savers, const TwoVersions& versions, const std::string& path,
                       const SharedCount& saves, const SharedCount& stop) {
    return &savers.emplace_back([&versions, &path, &saves, &stop] {
        bool well = true;
        for (int version = 0; stop.Value() == 0 && well; version = 1 - version) {
            well = !versions.Save(RealFileSystem(), path, version).Failed();
            saves.Increment();
        }
        return well;
    });
}

void TwoSaversAtOnce(const TwoVersions& versions) {
    const TempFolder folder;
    const std::string path = folder.Path(versions.Name);
    folder.Put(versions.Name, versions.Bytes[0]);
    const SharedCount saves;
    const SharedCount stop;
    std::list<ChildProcess> savers;
    AddSaver(savers, versions, path, saves, stop);
    AddSaver(savers, versions, path, saves, stop);
    int reads = 0;
    for (; saves.Value() < 200; ++reads) {
        std::string content;
        ASSERT_FALSE(ReadWholeText(RealFileSystem(), path, content).Failed());
        ASSERT_TRUE(versions.IsWhole(content)) << content.size();
    }
    stop.Increment();
    for (ChildProcess& saver : savers) {
        EXPECT_TRUE(saver.EndsWell());
    }
    std::cout << "saves: " << saves.Value() << ", reads between: " << reads << "\n";
    EXPECT_EQ(1, folder.Count());
}

TEST(TwoSaversOfOneFile, LetAReaderSeeOneWholeProgramAtEveryMoment) {
    TwoSaversAtOnce(ProgramVersions());
}

TEST(TwoSaversOfOneFile, LetAReaderSeeOneWholeLogicFileAtEveryMoment) {
    TwoSaversAtOnce(Vdr810Versions());
}

TEST(TwoSaversOfOneFile, NeverFailThoughOthersAreKilledBesideThemAndTheirFilesTakenAway) {
    const TwoVersions versions = ProgramVersions();
    const TempFolder folder;
    const std::string path = folder.Path(versions.Name);
    folder.Put(versions.Name, versions.Bytes[0]);
    const SharedCount saves;
    const SharedCount stop;
    std::list<ChildProcess> savers;
    for (int saver = 0; saver < 4; ++saver) {
        AddSaver(savers, versions, path, saves, stop);
    }
    const std::uint32_t seed = std::random_device()();
    std::mt19937 random(seed);
    std::ptrdiff_t greatestCount = 0;
    for (int kill = 0; kill < 60; ++kill) {
        std::list<ChildProcess> killed;
        AddSaver(killed, versions, path, saves, stop);
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution<int>(0, 6000)(random)));
        ASSERT_TRUE(killed.front().Kill()) << "it saved until then; seed " << seed;
        ASSERT_TRUE(versions.IsWhole(folder.Content(versions.Name))) << "seed " << seed;
        greatestCount = std::max(greatestCount, folder.Count());
    }
    stop.Increment();
    for (ChildProcess& saver : savers) {
        EXPECT_TRUE(saver.EndsWell()) << "seed " << seed;
    }
    std::cout << "kills: 60, saves: " << saves.Value() << ", most files at once: " << greatestCount
              << ", seed: " << seed << "\n";
    EXPECT_LE(greatestCount, 10) << "files left beside do not gather";
    EXPECT_FALSE(versions.Save(RealFileSystem(), path, 1).Failed());
    EXPECT_TRUE(versions.Bytes[1] == folder.Content(versions.Name));
}

} // namespace
} // namespace brindle
