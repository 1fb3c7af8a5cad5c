#include "files/program_file.h"
#include "files/recovery_copy.h"
#include "fuzz/check.h"

#include <string>
#include <string_view>

namespace brindle {
namespace {

/// What the bytes after the first stand for.
enum class Part {
    File,    ///< the whole copy
    Logic,   ///< its part that is the logic
    Program, ///< the program of a VDR812, cut or filled to its size
    Texts,   ///< logic file and option file of a VDR810, a zero byte between them
    Count
};

std::string Block(const char* name, std::string_view bytes) {
    return std::string(name) + "=" + std::to_string(bytes.size()) + "\n" + std::string(bytes) + "\n";
}

/// The part of a copy that is the logic, of any bytes but with counts that are right.
std::string AnyLogic(Part part, std::string_view bytes) {
    if (part == Part::Program) {
        std::string program(bytes);
        program.resize(ProgramFileSize);
        return Block("logic", program);
    }
    if (part == Part::Texts) {
        const std::size_t end = bytes.find('\0');
        const bool two = end != std::string_view::npos;
        return Block("text", bytes.substr(0, end)) + Block("option", two ? bytes.substr(end + 1) : "");
    }
    return std::string(bytes);
}

/// A copy around a logic, with whatever guards it against damage.
std::string CopyAround(const std::string& logic) {
    RecoveryCopy copy;
    copy.Path = "/home/a\nb.pl";
    copy.Title = "a\nb.pl";
    copy.Origin = logic.size() % 2 == 1 ? FileOrigin::New : FileOrigin::Opened;
    copy.KeptAt = "21.11.2026 14:02";
    copy.Logic = logic;
    return EncodeRecoveryCopy(copy);
}

void RequireSameAgain(const RecoveryCopy& copy, const LogicConfig& config) {
    RecoveryCopy again;
    LogicConfig configAgain;
    Require(DecodeRecoveryCopy(EncodeRecoveryCopy(copy), again, configAgain), "what was read can be kept");
    Require(again.Path == copy.Path && again.Title == copy.Title && again.Origin == copy.Origin &&
                again.KeptAt == copy.KeptAt && again.Logic == copy.Logic,
            "a copy reads back as it was kept");
    Require(configAgain.FilePath == copy.Path && configAgain.FileTitle == copy.Title,
            "the logic has the name of its file");
    const std::string logic = RecoveryLogic(config);
    Require(!logic.empty(), "a logic that was read can be kept");
    Require(RecoveryLogic(configAgain) == logic, "a copy holds the logic that it was made of");
    RecoveryCopy kept = copy;
    kept.Logic = logic;
    Require(DecodeRecoveryCopy(EncodeRecoveryCopy(kept), again, configAgain),
            "a logic that was kept comes back");
    Require(RecoveryLogic(configAgain) == logic, "a logic comes back as it was kept");
}

/// A copy of which a byte was changed is refused, whichever it was.
void RequireDamageFound(const RecoveryCopy& copy, std::size_t pick) {
    std::string bytes = EncodeRecoveryCopy(copy);
    char& changed = bytes.at(pick * 31 % bytes.size());
    changed = static_cast<char>(changed ^ static_cast<char>(1 + pick % 255));
    RecoveryCopy damaged;
    LogicConfig config;
    Require(!DecodeRecoveryCopy(bytes, damaged, config), "a damaged copy is refused");
}

} // namespace
} // namespace brindle

/// Any bytes as a recovery copy, or as the logic in one: refused, and nothing changed, or read, shown, kept
/// and read as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindle;
    if (size == 0) {
        return 0;
    }
    const auto part = static_cast<Part>(data[0] % static_cast<int>(Part::Count));
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string file = part == Part::File ? std::string(bytes) : CopyAround(AnyLogic(part, bytes));
    RecoveryCopy copy;
    copy.Path = "before";
    LogicConfig config;
    const LogicConfig before = config;
    if (!DecodeRecoveryCopy(file, copy, config)) {
        Require(copy.Path == "before" && copy.Logic.empty(), "a copy that is refused changes nothing");
        Require(config.Groups == before.Groups && config.FilePath == before.FilePath,
                "a copy that is refused changes no logic");
        Require(part != Part::Program, "any program comes back");
        return 0;
    }
    ShowAndReport(config, size);
    RequireSameAgain(copy, config);
    RequireDamageFound(copy, size);
    return 0;
}
