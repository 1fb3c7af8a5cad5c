#include "files/program_file.h"
#include "fuzz/check.h"

#include <algorithm>
#include <string_view>

/// Any bytes as a program file: they load, show, and save as the same 2048 bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindle;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    LogicConfig config;
    DecodeProgram(bytes, config);
    ShowAndReport(config, size + (size > 0 ? data[size / 2] : 0U));

    ProgramImage image{};
    Require(!EncodeProgram(config, image).Failed(), "what loads saves");
    LogicConfig again;
    DecodeProgram({image.data(), image.size()}, again);
    Require(again.Groups == config.Groups && again.Header == config.Header,
            "what was saved loads as the same logic");
    ProgramImage second{};
    Require(!EncodeProgram(again, second).Failed() && second == image, "saved twice, the bytes are the same");
    return 0;
}
