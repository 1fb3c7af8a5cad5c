#include "files/option_file.h"
#include "files/program_file.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"
#include "support/example_files.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

/// Every example cut at every byte and with every byte changed: it loads or is refused in words, and what
/// loads saves and loads as the same. That is every place of a program file; of the longer texts it is every
/// fourth. A byte is changed to one other. With BRINDLE_EVERY_CHANGE set it is every place of each, and a
/// byte is changed to each of the 255 others, which takes an hour.
namespace brindle {
namespace {

testing::AssertionResult ProgramHolds(const std::string& bytes) {
    LogicConfig config;
    DecodeProgram(bytes, config);
    ProgramImage image{};
    LogicConfig again;
    if (EncodeProgram(config, image).Failed()) {
        return testing::AssertionFailure() << "loads and does not save";
    }
    DecodeProgram({image.data(), image.size()}, again);
    return again.Groups == config.Groups && again.Header == config.Header
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "does not load as it was saved";
}

testing::AssertionResult LogicFileHolds(const std::string& text) {
    LogicConfig config;
    const Vdr810Reading reading = DecodeVdr810(text, "read x.c10", config);
    if (reading.Error.Failed()) {
        return reading.Error.Description.empty() || reading.Error.Source.rfind("read x.c10", 0) != 0
                   ? testing::AssertionFailure() << "an error without words"
                   : testing::AssertionSuccess();
    }
    if (reading.Refusal) {
        return reading.Refusal->Text.find("\r\nAborting") == std::string::npos
                   ? testing::AssertionFailure() << "a refusal without words"
                   : testing::AssertionSuccess();
    }
    LogicConfig again;
    const std::string saved = EncodeVdr810(config);
    const bool same =
        DecodeVdr810(saved, "read x.c10", again).Done() && again.Vdr810.Identity == config.Vdr810.Identity &&
        again.GroupCount == config.GroupCount && again.Coding.InvertBase == config.Coding.InvertBase;
    // Groups and units that the relay lacks are no part of the file.
    return same && EncodeVdr810(again) == saved
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "does not load as it was saved";
}

testing::AssertionResult OptionFileHolds(const std::string& text) {
    OptionFile option;
    const FileError error = DecodeOptionFile(text, "read x.810", option);
    if (error.Failed()) {
        return error.Description.empty() || error.Source.rfind("read x.810", 0) != 0
                   ? testing::AssertionFailure() << "an error without words"
                   : testing::AssertionSuccess();
    }
    LogicConfig config;
    MakeNewVdr810(config, option);
    OptionFile again;
    return !DecodeOptionFile(EncodeOptionFile(config), "read x.810", again).Failed() &&
                   again.Lists == option.Lists && again.Unconnected == option.Unconnected
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "does not load as it was saved";
}

bool EveryChange() {
    return std::getenv("BRINDLE_EVERY_CHANGE") != nullptr;
}

struct ExampleKind {
    const char* Extension;
    std::size_t Step; ///< from one place to the next
    std::function<testing::AssertionResult(const std::string& bytes)> Holds;
};

class ChangedExample : public testing::TestWithParam<ExampleKind> {};

TEST_P(ChangedExample, CutAnywhereLoadsOrIsRefusedInWords) {
    for (const std::string& name : ExamplesEndingIn(GetParam().Extension)) {
        const std::string whole = ExampleContent(name + GetParam().Extension);
        for (std::size_t size = 0; size <= whole.size(); size += EveryChange() ? 1 : GetParam().Step) {
            ASSERT_TRUE(GetParam().Holds(whole.substr(0, size))) << name << " cut at " << size;
        }
    }
}

/// What to change the byte at `place` to.
std::string OtherBytes(char byte, std::size_t place) {
    std::string others;
    if (EveryChange()) {
        for (int change = 1; change < 256; ++change) {
            others += static_cast<char>(byte ^ change);
        }
        return others;
    }
    static const std::string telling("\0,\n9-\r \xFF<T", 10);
    const char other = telling[place / 4 % telling.size()];
    return std::string(1, other == byte ? static_cast<char>(byte ^ 1) : other);
}

TEST_P(ChangedExample, WithAnyByteChangedLoadsOrIsRefusedInWords) {
    for (const std::string& name : ExamplesEndingIn(GetParam().Extension)) {
        const std::string whole = ExampleContent(name + GetParam().Extension);
        std::string changed = whole;
        for (std::size_t place = 0; place < whole.size(); place += EveryChange() ? 1 : GetParam().Step) {
            for (const char other : OtherBytes(whole[place], place)) {
                changed[place] = other;
                ASSERT_TRUE(GetParam().Holds(changed))
                    << name << ", byte " << place << " as " << static_cast<int>(other);
            }
            changed[place] = whole[place];
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ChangedExample,
                         testing::Values(ExampleKind{".pl", 1, ProgramHolds},
                                         ExampleKind{".c10", 4, LogicFileHolds},
                                         ExampleKind{".810", 4, OptionFileHolds}),
                         [](const auto& kind) { return std::string(kind.param.Extension + 1); });

} // namespace
} // namespace brindle
