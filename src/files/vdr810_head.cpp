#include "files/vdr810_head.h"

#include "model/number_text.h"
#include "model/output_map.h"

#include <charconv>
#include <string_view>

namespace brindle {

namespace {

/// Reads the values of a head one by one until the first that fails.
class HeadReader {
  public:
    explicit HeadReader(TextCursor& text) : text_(text) {}

    /// The next value as it stands; an empty line is an empty text.
    HeadReader& Text(std::string& value) {
        std::string_view field;
        if (Take(field)) {
            value = OneField(field);
        }
        return *this;
    }

    template<class Number>
    HeadReader& Value(Number& value) {
        text_.SkipBlankLines();
        std::string_view field;
        if (Take(field)) {
            fault_ = ErrorOfNumber(ParseNumber(field, value));
        }
        return *this;
    }

    /// A version is held in both precisions, each read from the digits.
    HeadReader& Version(float& single, double& precise) {
        text_.SkipBlankLines();
        std::string_view field;
        if (Take(field)) {
            fault_ = ErrorOfNumber(ParseNumber(field, precise));
        }
        if (fault_ == NoFileError) {
            fault_ = ErrorOfNumber(ParseNumber(field, single));
        }
        return *this;
    }

    [[nodiscard]] int Fault() const { return fault_; }

    /// Number of the value read last, from 1.
    [[nodiscard]] int Place() const { return place_; }

  private:
    bool Take(std::string_view& field) {
        if (fault_ != NoFileError) {
            return false;
        }
        ++place_;
        if (!text_.NextValue(field)) {
            fault_ = InputPastEndError;
        }
        return fault_ == NoFileError;
    }

    TextCursor& text_;
    int fault_ = NoFileError;
    int place_ = 0;
};

bool InRanges(const Vdr810Head& head) {
    const int outputs = head.LastOutput - head.FirstOutput + 1;
    return head.SettingsVersion >= 0 && head.SettingsVersion <= GreatestVersion && head.Options >= 0 &&
           head.Groups >= 1 && head.Groups <= MaxGroups && head.Timers >= 0 &&
           head.Timers <= TimersPerGroup && head.Latches >= 0 && head.Latches <= LatchesPerGroup &&
           head.Timers + head.Latches > 0 && head.Labels >= 0 && head.Categories >= 0 &&
           head.Signals >= LeastSignals && head.FirstOutput >= 0 && outputs >= 1 &&
           outputs <= MapBanks * OutputsPerBank;
}

} // namespace

int ErrorOfNumber(NumberFault fault) {
    switch (fault) {
    case NumberFault::NotANumber:
        return TypeMismatchError;
    case NumberFault::OutOfRange:
        return OverflowError;
    case NumberFault::None:
        break;
    }
    return NoFileError;
}

std::string AloneOnLine(std::int32_t value) {
    return (value < 0 ? "" : " ") + std::to_string(value) + "\r\n";
}

FileError ReadVdr810Head(TextCursor& text, const std::string& source, Vdr810Head& head) {
    Vdr810Head read;
    HeadReader reader(text);
    reader.Text(read.Identity).Value(read.FormatNumber).Version(read.Version, read.SettingsVersion);
    reader.Value(read.Options).Value(read.Groups).Value(read.Timers).Value(read.Latches);
    reader.Value(read.Labels).Value(read.Categories).Value(read.Signals);
    reader.Value(read.FirstOutput).Value(read.LastOutput);
    if (reader.Fault() != NoFileError) {
        return MakeFileError(reader.Fault(),
                             source + ", value " + std::to_string(reader.Place()) + " of the header");
    }
    if (!InRanges(read)) {
        return MakeFileError(SubscriptError, source + ", header");
    }
    head = read;
    return {};
}

long VersionHundredths(double version) {
    std::string digits = FormatFixed(version, 2);
    digits.erase(digits.find('.'), 1);
    long hundredths = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), hundredths);
    return hundredths;
}

Vdr810Head HeadOf(const LogicConfig& config) {
    const Vdr810Header& header = config.Vdr810;
    Vdr810Head head;
    head.Identity = header.Identity;
    head.FormatNumber = header.FormatNumber;
    head.Version = config.Version;
    head.SettingsVersion = header.SettingsVersion;
    head.Options = header.Options;
    head.Groups = static_cast<std::int16_t>(config.GroupCount);
    head.Timers = header.TimerCount;
    head.Latches = header.LatchCount;
    head.Labels = header.LabelCount;
    head.Categories = header.CategoryCount;
    head.Signals = config.Coding.InvertBase;
    head.FirstOutput = config.FirstOutput;
    head.LastOutput = config.LastOutput;
    return head;
}

std::string Vdr810HeadText(const Vdr810Head& head) {
    std::string text = OneField(head.Identity) + "\r\n" + FormatFixed(head.FormatNumber, 2) + "\r\n" +
                       FormatFixed(head.SettingsVersion, 2) + "\r\n";
    for (const std::int32_t value :
         {std::int32_t{head.Options}, std::int32_t{head.Groups}, std::int32_t{head.Timers},
          std::int32_t{head.Latches}, std::int32_t{head.Labels}, std::int32_t{head.Categories},
          head.Signals}) {
        text += AloneOnLine(value);
    }
    return text + std::to_string(head.FirstOutput) + "," + std::to_string(head.LastOutput) + "\r\n";
}

void BecomeVdr810(LogicConfig& config, const Vdr810Head& head) {
    config.RelayModel = RelayKind::Vdr810;
    config.Version = head.Version;
    config.GroupCount = head.Groups;
    config.Coding.InvertBase = head.Signals;
    config.FirstOutput = head.FirstOutput;
    config.LastOutput = head.LastOutput;
    config.Vdr810 = {head.Identity, head.FormatNumber, head.SettingsVersion, head.Options,
                     head.Timers,   head.Latches,      head.Labels,          head.Categories};
    config.Lists = {};
    for (LogicGroup& group : config.Groups) {
        ClearGroup(group, UnconnectedCode(config));
    }
}

} // namespace brindle
