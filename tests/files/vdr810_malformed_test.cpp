#include "files/vdr810_writer.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace brindle {
namespace {

/// A file with each kind of line, as small as it can be.
Vdr810Text SmallFile() {
    return Vdr810Text()
        .Units(1, 1, 1)
        .Line("<CATEGORY INFO>")
        .Line("1,Zone")
        .Line("-1,END")
        .Line("<LABEL INFO>")
        .Line("1,104,FALSE")
        .Line("<TIMER 1>")
        .Line("1,16,130")
        .Line("2,1,-7")
        .Line("3,1,500")
        .Line("4,1,600")
        .Line("<LATCH 1 SET>")
        .Line("1,2,5")
        .Line("2,2,9");
}

std::vector<std::string> FileLinesOf(const std::string& text) {
    TextCursor cursor(text);
    std::vector<std::string> lines;
    for (std::string_view line; cursor.NextLine(line);) {
        lines.emplace_back(line);
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += lines[i] + "\r\n";
    }
    return text;
}

std::string Joined(const std::vector<std::string>& lines) {
    return Joined(lines, lines.size());
}

/// The longest beginning of the refused `text`, in whole lines, that is not refused.
std::string BeforeRefusedLine(const std::string& text) {
    const std::vector<std::string> lines = FileLinesOf(text);
    std::size_t taken = 0;
    std::size_t refused = lines.size();
    while (taken + 1 < refused) {
        const std::size_t middle = taken + (refused - taken) / 2;
        (ReadText(Joined(lines, middle)).Reading.Refusal ? refused : taken) = middle;
    }
    return Joined(lines, taken);
}

bool IsStatedError(const FileError& error) {
    return std::set<int>{OverflowError, SubscriptError, TypeMismatchError, InputPastEndError}.count(
               error.Number) == 1 &&
           error.Source.rfind("read x.c10, ", 0) == 0;
}

bool IsStatedBox(const MessageBox& box) {
    const std::vector<std::string> lines = FileLinesOf(box.Text);
    return box.Title == "VDR810 File Read in Problem" && box.Icon == MessageIcon::CriticalStop &&
           lines.size() >= 4 && lines.size() <= 6 && lines.front().rfind(box.Title, 0) == 0 &&
           lines.back() == "Aborting" && box.Text.find("\r\nArray Element = ") != std::string::npos;
}

/// Whether a logic is one: what is written of it is read back as it is, but for the lists, which the file
/// leaves to the option file.
bool IsWellRead(const LogicConfig& config) {
    LogicConfig again;
    bool same = DecodeVdr810(EncodeVdr810(config), "x", again).Done();
    again.Vdr810.SettingsVersion = config.Vdr810.SettingsVersion; // reals are written with two decimals
    again.Vdr810.FormatNumber = config.Vdr810.FormatNumber;
    again.Version = config.Version;
    for (const UnitInfo& unit : UnitTable) {
        for (int g = 1; HasUnit(config, unit.Number) && g <= config.GroupCount; ++g) {
            same = same && config.Group(g).Unit(unit.Number) == again.Group(g).Unit(unit.Number);
            same = same && config.Group(g).OutputWords == again.Group(g).OutputWords;
            same = same && config.Group(g).Timers == again.Group(g).Timers;
        }
    }
    return same && HeadOf(again) == HeadOf(config);
}

/// The logic before the refused line of `text`: that of the lines before, or where the head ends within that
/// line, that of the head.
LogicConfig BeforeRefusal(const std::string& text) {
    Vdr810Read before = ReadText(BeforeRefusedLine(text));
    if (before.Reading.Error.Failed()) {
        TextCursor cursor(text);
        Vdr810Head head;
        EXPECT_FALSE(ReadVdr810Head(cursor, "x", head).Failed());
        BecomeVdr810(before.Config, head);
    }
    EXPECT_FALSE(before.Reading.Refusal.has_value());
    return before.Config;
}

/// What is wrong with how `text` is read; empty where it is a file error that leaves the logic, a box that
/// leaves the lines before the refused one, or a logic.
std::string Complaint(const std::string& text) {
    const LogicConfig untouched;
    const Vdr810Read read = ReadText(text);
    if (read.Reading.Error.Failed()) {
        if (read.Reading.Refusal || !IsStatedError(read.Reading.Error)) {
            return "an error that is not stated: " + read.Reading.Error.Source;
        }
        return SameVdr810(untouched, read.Config) ? "" : "the error changed the logic";
    }
    if (!read.Reading.Refusal) {
        return IsWellRead(read.Config) ? "" : "what was read is no logic";
    }
    if (!IsStatedBox(*read.Reading.Refusal)) {
        return "a box that is not stated: " + read.Reading.Refusal->Text;
    }
    return SameVdr810(BeforeRefusal(text), read.Config) ? "" : "the refused line left a trace";
}

/// The outcome in a word: "error 13", "box" or "read".
std::string OutcomeOf(const std::string& text) {
    const Vdr810Reading reading = ReadText(text).Reading;
    if (reading.Error.Failed()) {
        return "error " + std::to_string(reading.Error.Number);
    }
    return reading.Refusal ? "box" : "read";
}

TEST(Vdr810Malformed, TheSmallFileIsWellFormed) {
    EXPECT_EQ("read", OutcomeOf(SmallFile().Text()));
    EXPECT_EQ("", Complaint(SmallFile().Text()));
}

TEST(Vdr810Malformed, EveryLineWithOneFieldFewerIsRefused) {
    const std::vector<std::string> lines = SmallFile().Lines();
    for (std::size_t i = 11; i < lines.size(); ++i) {
        if (lines[i].front() == '<' || lines[i] == "-1,END") {
            continue;
        }
        std::vector<std::string> fewer = lines;
        fewer[i].erase(fewer[i].rfind(','));
        EXPECT_EQ("box", OutcomeOf(Joined(fewer))) << fewer[i];
        EXPECT_EQ("", Complaint(Joined(fewer))) << fewer[i];
    }
}

TEST(Vdr810Malformed, EveryLineWithOneFieldMoreIsRefused) {
    const std::vector<std::string> lines = SmallFile().Lines();
    for (std::size_t i = 10; i < lines.size(); ++i) {
        if (lines[i].front() == '<' || lines[i] == "-1,END") {
            continue;
        }
        for (const char* field : {",", ",1"}) {
            std::vector<std::string> more = lines;
            more[i] += field;
            const bool endsHead = i == 10 && std::string(field) == ","; // its value is ended twice
            EXPECT_EQ(endsHead ? "read" : "box", OutcomeOf(Joined(more))) << more[i];
            EXPECT_EQ("", Complaint(Joined(more))) << more[i];
        }
    }
}

TEST(Vdr810Malformed, EveryLineMissingOrTwiceIsReadOrRefusedAsStated) {
    const std::vector<std::string> lines = SmallFile().Lines();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::vector<std::string> missing = lines;
        missing.erase(missing.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_EQ("", Complaint(Joined(missing))) << "without " << lines[i];
        std::vector<std::string> twice = lines;
        twice.insert(twice.begin() + static_cast<std::ptrdiff_t>(i), lines[i]);
        EXPECT_EQ("", Complaint(Joined(twice))) << "twice " << lines[i];
    }
}

TEST(Vdr810Malformed, AnyTwoLinesExchangedAreReadOrRefusedAsStated) {
    const std::vector<std::string> lines = SmallFile().Lines();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t j = i + 1; j < lines.size(); ++j) {
            std::vector<std::string> exchanged = lines;
            std::swap(exchanged[i], exchanged[j]);
            EXPECT_EQ("", Complaint(Joined(exchanged))) << lines[i] << " and " << lines[j];
        }
    }
}

TEST(Vdr810Malformed, EveryNumberBeyondItsTypeIsRefused) {
    const std::vector<std::string> lines = SmallFile().Lines();
    for (std::size_t i = 3; i < lines.size(); ++i) { // what stands before is text and reals
        for (std::size_t at = 0; at < lines[i].size(); ++at) {
            const std::string& line = lines[i];
            const bool starts = at == 0 || line[at - 1] == ',';
            if (!starts || line.front() == '<' || line.find_first_of("0123456789", at) == std::string::npos) {
                continue;
            }
            std::vector<std::string> large = lines;
            const std::size_t end = std::min(line.find(',', at), line.size());
            large[i].replace(at, end - at, "2147483648");
            EXPECT_EQ(i < 11 ? "error 6" : "box", OutcomeOf(Joined(large))) << large[i];
            EXPECT_EQ("", Complaint(Joined(large))) << large[i];
        }
    }
}

TEST(Vdr810Malformed, ATextCutAtAnyByteIsReadOrRefusedAsStated) {
    for (const char* lineEnd : {"\r\n", "\n"}) {
        const std::string text = SmallFile().Text(lineEnd);
        const std::size_t headEnd = text.find("1,16") + 3; // the last value may be cut to its first digit
        for (std::size_t size = 0; size < text.size(); ++size) {
            const std::string cut = text.substr(0, size);
            EXPECT_EQ("", Complaint(cut)) << cut;
            EXPECT_EQ(size < headEnd, OutcomeOf(cut).rfind("error", 0) == 0) << cut;
        }
    }
}

TEST(Vdr810Malformed, AnyByteReplacedIsReadOrRefusedAsStated) {
    const std::string text = SmallFile().Text();
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (const char byte : {'\0', '\n', '\r', ' ', ',', '-', '.', '0', '7', '9', '<', 'A', '\xFF'}) {
            std::string changed = text;
            changed[at] = byte;
            ASSERT_EQ("", Complaint(changed)) << changed;
        }
    }
}

TEST(Vdr810Malformed, AnyByteTakenOutOrPutInIsReadOrRefusedAsStated) {
    const std::string text = SmallFile().Text();
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string changed = text;
        ASSERT_EQ("", Complaint(changed.erase(at, 1))) << changed;
        for (const char byte : {'\n', ' ', ',', '-', '1', '<'}) {
            changed = text;
            ASSERT_EQ("", Complaint(changed.insert(at, 1, byte))) << changed;
        }
    }
}

TEST(Vdr810Malformed, FilesThatAreNoneOfOursAreFileErrors) {
    EXPECT_EQ("error 62", OutcomeOf(""));
    EXPECT_EQ("error 62", OutcomeOf("\r\n\r\n \r\n"));
    EXPECT_EQ("error 13", OutcomeOf(std::string(2048, '\n') + "plcd,1,x"));
    EXPECT_EQ("error 13", OutcomeOf("plcd" + std::string(4, '\0') + "2.30  \n" + std::string(2034, '\0')));
    EXPECT_EQ("error 62", OutcomeOf(std::string(100000, 'x')));
    EXPECT_EQ("error 13", OutcomeOf(std::string(100000, ',')));
}

TEST(Vdr810Malformed, AHeadAloneIsALogicWithoutALine) {
    const Vdr810Read read = ReadText(Vdr810Text().Text());
    EXPECT_TRUE(read.Reading.Done());
    EXPECT_EQ(std::vector<int>{1}, IncompleteUnits(read.Config, read.Reading));
}

TEST(Vdr810Malformed, ALineOfAMillionFieldsIsRefused) {
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 1 DATA 1)\r\nExtra 999998Fields\r\nArray Element = 1\r\n"
              "Should be Have 3 Fields.\r\nAborting",
              RefusalOf(Vdr810Text().Line("<TIMER 1>").Line("1" + std::string(1000000, ',')).Text()));
}

RC_GTEST_PROP(Vdr810Malformed, PiecesOfFilesInAnyOrderAreReadOrRefusedAsStated, ()) {
    static const std::vector<std::string> pieces{"\r\n",
                                                 "\n",
                                                 ",",
                                                 " ",
                                                 "\r\n1,",
                                                 "\r\n2,1,",
                                                 "\r\n3,1,",
                                                 "\r\n4,1,",
                                                 "\r\n-1",
                                                 "1",
                                                 "16",
                                                 "17",
                                                 "-1",
                                                 "2147483648",
                                                 "32768",
                                                 "END",
                                                 "FALSE",
                                                 "x",
                                                 "<",
                                                 "<TIMER 1>",
                                                 "<TIMER 2>",
                                                 "<LATCH 1 RESET>",
                                                 "<LATCH 2 SET>",
                                                 "<CATEGORY INFO>",
                                                 "<LABEL INFO>",
                                                 "\r\n<TIMER 1>\r\n",
                                                 "\r\n<LABEL INFO>\r\n",
                                                 "\r\n1,104,FALSE\r\n",
                                                 "\r\n1,1,1\r\n",
                                                 "\r\n<LATCH 1 SET>\r\n"};
    std::string text = SmallFile().Text();
    text = text.substr(0, *rc::gen::weightedElement<std::size_t>({{3, text.find("<TIMER 1>")}, {1, 0}}));
    for (const std::string& piece :
         *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces))) {
        text += piece;
    }
    RC_ASSERT(Complaint(text).empty());
}

} // namespace
} // namespace brindle
