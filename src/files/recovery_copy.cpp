#include "files/recovery_copy.h"

#include "files/file_stamp.h"
#include "files/option_file.h"
#include "files/program_file.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace brindle {

namespace {

constexpr std::string_view FirstLine = "Brindle recovery copy 2\n";
constexpr std::string_view FirstLineWithoutSum = "Brindle recovery copy 1\n";

constexpr int HashDigits = 16;

std::string HashText(std::uint64_t hash) {
    std::array<char, HashDigits> hex{};
    char* end = std::to_chars(hex.data(), hex.data() + hex.size(), hash, HashDigits).ptr;
    const std::string number(hex.data(), end);
    return std::string(HashDigits - number.size(), '0') + number;
}

std::string SumLine(std::string_view bytes) {
    return "sum=" + HashText(HashOfBytes(bytes)) + "\n";
}

constexpr std::array<std::pair<FileOrigin, std::string_view>, 3> OriginWords{
    {{FileOrigin::New, "yes"}, {FileOrigin::Part, "part"}, {FileOrigin::Opened, "no"}}};

std::string_view WordOf(FileOrigin origin) {
    return std::find_if(OriginWords.begin(), OriginWords.end(),
                        [=](const auto& row) { return row.first == origin; })
        ->second;
}

bool ReadOrigin(std::string_view word, FileOrigin& origin) {
    const auto* const row = std::find_if(OriginWords.begin(), OriginWords.end(),
                                         [=](const auto& known) { return known.second == word; });
    if (row != OriginWords.end()) {
        origin = row->first;
    }
    return row != OriginWords.end();
}

std::string StampText(const FileStamp& stamp) {
    return stamp.Status.Type == FileType::Regular
               ? std::to_string(stamp.Status.Size) + "," + HashText(stamp.Hash)
               : "none";
}

bool ReadStamp(std::string_view text, FileStamp& stamp) {
    stamp = UnknownStamp();
    if (text == "none") {
        return true;
    }
    const char* end = text.data() + text.size();
    const auto size = std::from_chars(text.data(), end, stamp.Status.Size);
    if (size.ec != std::errc{} || size.ptr == end || *size.ptr != ',') {
        return false;
    }
    const auto hash = std::from_chars(size.ptr + 1, end, stamp.Hash, HashDigits);
    stamp.Status.Type = FileType::Regular;
    // One spelling alone: what is read is written as the same again.
    return hash.ec == std::errc{} && StampText(stamp) == text;
}

/// What a copy says after its head; none when that is of no format of ours or tells of other bytes.
std::optional<std::string_view> BodyOf(std::string_view bytes) {
    if (bytes.starts_with(FirstLineWithoutSum)) {
        return bytes.substr(FirstLineWithoutSum.size());
    }
    const std::size_t head = FirstLine.size() + SumLine("").size();
    if (!bytes.starts_with(FirstLine) || bytes.size() < head) {
        return {};
    }
    const std::string_view body = bytes.substr(head);
    const bool whole = bytes.substr(FirstLine.size(), head - FirstLine.size()) == SumLine(body);
    return whole ? std::optional(body) : std::nullopt;
}

std::string Block(const char* name, std::string_view bytes) {
    return std::string(name) + "=" + std::to_string(bytes.size()) + "\n" + std::string(bytes) + "\n";
}

/// Takes the lines and blocks of a copy off its bytes, one after the other.
class Parts {
  public:
    explicit Parts(std::string_view bytes) : rest_(bytes) {}

    [[nodiscard]] std::string_view Rest() const { return rest_; }

    bool TakeLine(std::string_view expected) {
        std::string_view line;
        return NextLine(line) && line == expected;
    }

    bool TakeText(std::string_view name, std::string_view& text) {
        std::string_view line;
        if (!NextLine(line) || !line.starts_with(name) || line.substr(name.size(), 1) != "=") {
            return false;
        }
        text = line.substr(name.size() + 1);
        return true;
    }

    bool TakeBlock(std::string_view name, std::string_view& block) {
        std::string_view text;
        std::size_t size = 0;
        if (!TakeText(name, text)) {
            return false;
        }
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), size);
        if (error != std::errc{} || stop != text.data() + text.size() || size >= rest_.size()) {
            return false;
        }
        block = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return TakeLine("");
    }

  private:
    bool NextLine(std::string_view& line) {
        const std::size_t end = rest_.find('\n');
        if (end == std::string_view::npos) {
            return false;
        }
        line = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        return true;
    }

    std::string_view rest_;
};

std::optional<LogicConfig> DecodeVdr812Logic(std::string_view logic) {
    Parts parts(logic);
    std::string_view program;
    if (!parts.TakeBlock("logic", program) || program.size() != ProgramFileSize || !parts.Rest().empty()) {
        return {};
    }
    LogicConfig config;
    DecodeProgram(program, config);
    return config;
}

std::optional<LogicConfig> DecodeVdr810Logic(std::string_view logic) {
    Parts parts(logic);
    std::string_view text;
    std::string_view lists;
    OptionFile option;
    LogicConfig config;
    const bool read = parts.TakeBlock("text", text) && parts.TakeBlock("option", lists) &&
                      parts.Rest().empty() && !DecodeOptionFile(lists, "recovery copy", option).Failed() &&
                      DecodeVdr810(text, "recovery copy", config).Done();
    if (!read || option.Head.Signals != config.Coding.InvertBase) {
        return {}; // both parts were made of one logic
    }
    config.Coding.FalseCode = option.Unconnected;
    config.Lists = option.Lists;
    return config;
}

} // namespace

std::string RecoveryLogic(const LogicConfig& config) {
    if (config.RelayModel == RelayKind::Vdr810) {
        return Block("text", EncodeVdr810(config)) + Block("option", EncodeOptionFile(config));
    }
    ProgramImage image{};
    return EncodeProgram(config, image).Failed() ? "" : Block("logic", {image.data(), image.size()});
}

std::string EncodeRecoveryCopy(const RecoveryCopy& copy) {
    const std::string body = "new=" + std::string(WordOf(copy.Origin)) + "\nfile=" + StampText(copy.Stamp) +
                             "\n" + Block("kept", copy.KeptAt) + Block("path", copy.Path) +
                             Block("title", copy.Title) + copy.Logic;
    return std::string(FirstLine) + SumLine(body) + body;
}

bool DecodeRecoveryCopy(std::string_view bytes, RecoveryCopy& copy, LogicConfig& config) {
    const std::optional<std::string_view> body = BodyOf(bytes);
    if (!body) {
        return false;
    }
    Parts parts(*body);
    RecoveryCopy read;
    std::string_view origin;
    std::string_view stamp = "none";
    std::string_view keptAt;
    std::string_view path;
    std::string_view title;
    const bool first = bytes.starts_with(FirstLineWithoutSum);
    const bool whole = parts.TakeText("new", origin) && ReadOrigin(origin, read.Origin) &&
                       (first || parts.TakeText("file", stamp)) && ReadStamp(stamp, read.Stamp) &&
                       parts.TakeBlock("kept", keptAt) && parts.TakeBlock("path", path) &&
                       parts.TakeBlock("title", title);
    if (!whole) {
        return false;
    }
    read.KeptAt = keptAt;
    read.Path = path;
    read.Title = title;
    read.Logic = parts.Rest();
    std::optional<LogicConfig> logic =
        read.Logic.starts_with("text=") ? DecodeVdr810Logic(read.Logic) : DecodeVdr812Logic(read.Logic);
    if (!logic) {
        return false;
    }
    config = *logic;
    config.FilePath = read.Path;
    config.FileTitle = read.Title;
    copy = read;
    return true;
}

} // namespace brindle
