#include "cli/command_line.h"
#include "cli/logic_json.h"
#include "files/option_file.h"
#include "files/plc_folder.h"
#include "files/program_file.h"
#include "files/vdr810_reader.h"
#include "memory/failing_memory.h"
#include "platform/folders.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <new>
#include <sstream>
#include <string>
#include <vector>

/// Each allocation of reading each example fails once, alone and with all after it: an error is told, nothing
/// is thrown, nothing stays open, and the logic is as it was.
namespace brindle {
namespace {

/// The examples whose names end so.
std::vector<std::string> Examples(const std::string& ending) {
    std::vector<std::string> paths;
    for (const auto& file : std::filesystem::directory_iterator(BRINDLE_EXAMPLES)) {
        if (file.path().extension() == ending) {
            paths.push_back(file.path().string());
        }
    }
    EXPECT_FALSE(paths.empty()) << ending;
    return paths;
}

std::ptrdiff_t OpenFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

/// A logic that no example is.
LogicConfig Before() {
    LogicConfig config;
    MakeNewVdr812(config, Version100);
    config.Group(3).Timer(2) = {123, 456};
    config.Lists.Labels.push_back(
        {1, 2, "a name that is too long to stand in the string itself", "", true, true});
    return config;
}

bool Same(const LogicConfig& a, const LogicConfig& b) {
    return a.RelayModel == b.RelayModel && a.Groups == b.Groups && a.Lists == b.Lists &&
           a.Header == b.Header && a.Vdr810 == b.Vdr810 && a.Coding.FalseCode == b.Coding.FalseCode &&
           a.Version == b.Version;
}

/// Reads with each allocation failed: `read` fills a logic and returns the error.
template<class Read>
void ExpectErrorAndTheLogicUntouched(const std::string& path, const Read& read) {
    const LogicConfig before = Before();
    const std::ptrdiff_t open = OpenFiles();
    for (const Shortage shortage : {Shortage::Momentary, Shortage::Lasting}) {
        LogicConfig config = before;
        int error = NoFileError;
        const std::size_t failed = FailEachAllocation(
            shortage, [&] { error = read(config); },
            [&](std::size_t n) {
                EXPECT_EQ(OutOfMemoryError, error) << path << ", allocation " << n;
                EXPECT_TRUE(Same(before, config)) << path << ", allocation " << n;
            });
        EXPECT_GT(failed, 0U) << path;
        EXPECT_EQ(NoFileError, error) << path << " with memory enough";
    }
    EXPECT_EQ(open, OpenFiles()) << path;
}

TEST(LackOfMemory, IsToldWhereAProgramIsRead) {
    const FileSystem files = RealFileSystem();
    for (const std::string& path : Examples(".pl")) {
        ExpectErrorAndTheLogicUntouched(path, [&](LogicConfig& config) {
            ProgramReading reading;
            return ReadProgramFile(files, path, config, reading).Number;
        });
    }
}

TEST(LackOfMemory, IsToldWhereALogicFileIsRead) {
    const FileSystem files = RealFileSystem();
    for (const std::string& path : Examples(".c10")) {
        ExpectErrorAndTheLogicUntouched(
            path, [&](LogicConfig& config) { return ReadVdr810File(files, path, config).Error.Number; });
    }
}

TEST(LackOfMemory, IsToldWhereAnOptionFileIsRead) {
    const FileSystem files = RealFileSystem();
    for (const std::string& path : Examples(".810")) {
        ExpectErrorAndTheLogicUntouched(path, [&](LogicConfig& /*config*/) {
            OptionFile option;
            return ReadOptionFile(files, path, option).Number;
        });
    }
}

TEST(LackOfMemory, IsToldWhereALogicTakesTheListsOfItsOptionFile) {
    const FileSystem files = RealFileSystem();
    const PlcFolder folder = ScanPlcFolder(RealFolders(), BRINDLE_EXAMPLES);
    for (const std::string& path : Examples(".c10")) {
        LogicConfig before;
        ASSERT_TRUE(ReadVdr810File(files, path, before).Done());
        for (const Shortage shortage : {Shortage::Momentary, Shortage::Lasting}) {
            LogicConfig config = before;
            int error = NoFileError;
            LoadedLists loaded;
            FailEachAllocation(
                shortage, [&] { error = LoadLists(files, folder, config, loaded).Number; },
                [&](std::size_t n) {
                    EXPECT_EQ(OutOfMemoryError, error) << path << ", allocation " << n;
                    EXPECT_TRUE(Same(before, config)) << path << ", allocation " << n;
                });
            EXPECT_TRUE(loaded.Found);
            EXPECT_EQ(NoFileError, error) << path << " with memory enough";
            EXPECT_FALSE(config.Lists.Empty()) << path;
        }
    }
}

/// A companion's run on the examples.
struct Run {
    std::ostringstream Out;
    std::ostringstream Err;
    CommandEnvironment Environment{
        RealFileSystem(), Out, Err, "/", [] { return DateAndTime{"5/4/2001", "10:12:33"}; }, RealFolders(),
        BRINDLE_EXAMPLES};
};

/// Each run tells, or has done its work whole all the same: a sort does with less memory.
void ExpectTheCompanionToTell(const std::vector<std::string>& arguments) {
    Run whole;
    ASSERT_EQ(ExitWell, RunCommandLine(arguments, whole.Environment)) << whole.Err.str();
    for (const Shortage shortage : {Shortage::Momentary, Shortage::Lasting}) {
        std::size_t told = 0;
        for (std::size_t n = 1;; ++n) {
            Run run;
            RunOutOfMemory(n, shortage);
            const int result = RunCommandLine(arguments, run.Environment);
            if (!HaveMemoryAgain()) {
                break;
            }
            if (result == ExitWell) {
                EXPECT_EQ(whole.Out.str(), run.Out.str()) << arguments[1] << ", allocation " << n;
                continue;
            }
            ++told;
            EXPECT_TRUE(shortage == Shortage::Lasting || !run.Err.str().empty())
                << arguments[1] << ", allocation " << n;
        }
        EXPECT_GT(told, 0U);
    }
}

TEST(LackOfMemory, IsToldByTheCompanion) {
    const std::string examples = BRINDLE_EXAMPLES;
    ExpectTheCompanionToTell({"report", examples + "/lockout.pl", "--group", "1", "--unit", "T1"});
    ExpectTheCompanionToTell({"report", examples + "/single_breaker.c10", "--group", "1", "--unit", "T1"});
    ExpectTheCompanionToTell({"signals", examples + "/PLC00230_OPT00012.810"});
}

TEST(LackOfMemory, IsToldWhereJsonIsRead) {
    const std::string json = LogicToJson(SchemeLists(2.3, 12, 1)); // one group: each allocation is a run
    const LogicConfig before = Before();
    LogicConfig config = before;
    bool lacked = false;
    std::string refusal;
    const std::size_t failed = FailEachAllocation(
        Shortage::Lasting,
        [&] {
            lacked = false;
            try { // the companion's command line is where this is told
                refusal = LogicFromJson(json, config);
            } catch (const std::bad_alloc&) {
                lacked = true;
            }
        },
        [&](std::size_t n) {
            EXPECT_TRUE(lacked) << "allocation " << n;
            EXPECT_TRUE(Same(before, config)) << "allocation " << n;
        });
    EXPECT_GT(failed, 0U);
    EXPECT_EQ("", refusal);
}

/// What deep and hostile JSON costs grows with its length and no faster.
TEST(LackOfMemory, IsNotBroughtAboutByHostileJson) {
    const auto needed = [](const std::string& part, std::size_t times) {
        std::string text;
        for (std::size_t i = 0; i < times; ++i) {
            text += part;
        }
        text += R"({"b": 1, "b": 2})"; // a refusal that has a place to name, however deep
        LogicConfig config;
        const std::size_t before = BytesAllocated();
        EXPECT_NE("", LogicFromJson(text, config));
        return static_cast<double>(BytesAllocated() - before);
    };
    constexpr std::size_t some = 10000;
    constexpr std::size_t tenfold = 10 * some;
    for (const char* part :
         {"[", "{\"a\":", "{\"a\":{\"a\":1,\"a\":2},\"b\":", "[1,", "\"", "9", "\xFF", "x"}) {
        constexpr double constantCost = 20000;
        constexpr double slack = 2; // room that grows by doubling
        EXPECT_LE(needed(part, tenfold), 10 * slack * needed(part, some) + constantCost) << part;
    }
}

} // namespace
} // namespace brindle
