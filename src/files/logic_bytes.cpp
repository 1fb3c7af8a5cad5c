#include "files/logic_bytes.h"

#include "files/program_file.h"
#include "files/vdr810_writer.h"

namespace brindle {

FileError EncodeLogic(const LogicConfig& config, std::string& bytes) {
    if (config.RelayModel == RelayKind::Vdr810) {
        bytes = EncodeVdr810(config);
        return {};
    }
    ProgramImage image{};
    FileError error = EncodeProgram(config, image);
    if (!error.Failed()) {
        bytes.assign(image.data(), image.size());
    }
    return error;
}

} // namespace brindle
