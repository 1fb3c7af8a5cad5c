#include "cli/logic_json.h"
#include "files/program_file.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"
#include "fuzz/check.h"

#include <string>
#include <string_view>

namespace brindle {
namespace {

/// The relay's file of a logic that JSON described says the same JSON.
void RequireFileSaysTheSame(const LogicConfig& config, const std::string& json) {
    LogicConfig read;
    if (config.RelayModel == RelayKind::Vdr812) {
        ProgramImage image{};
        Require(!EncodeProgram(config, image).Failed(), "a logic of JSON can be written");
        DecodeProgram({image.data(), image.size()}, read);
    } else {
        read.Coding.FalseCode = config.Coding.FalseCode; // the file does not tell it, so it stays
        Require(DecodeVdr810(EncodeVdr810(config), "read x.c10", read).Done(),
                "a logic of JSON can be written and read");
    }
    Require(LogicToJson(read) == json, "the relay's file says the same as the JSON");
}

} // namespace
} // namespace brindle

/// Any bytes as JSON: refused with words, or a logic that the relay's file and the JSON of it tell the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindle;
    LogicConfig config;
    const LogicConfig before = config;
    const std::string refusal = LogicFromJson({reinterpret_cast<const char*>(data), size}, config);
    if (!refusal.empty()) {
        Require(config.Groups == before.Groups && config.Header == before.Header &&
                    config.RelayModel == before.RelayModel,
                "what is refused changes nothing");
        return 0;
    }
    ShowAndReport(config, size);
    const std::string json = LogicToJson(config);
    LogicConfig again;
    Require(LogicFromJson(json, again).empty(), "JSON of ours is taken");
    Require(LogicToJson(again) == json, "JSON of ours says the same again");
    RequireFileSaysTheSame(config, json);
    return 0;
}
