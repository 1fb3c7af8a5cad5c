#pragma once

#include "model/logic_config.h"
#include "platform/ascii.h"
#include "platform/paths.h"

#include <optional>
#include <string>

namespace brindle {

/// The model that a file's extension tells: "pl" or "c10", in capitals or not; nothing for any other.
inline std::optional<RelayKind> ModelOfPath(const std::string& path) {
    std::string extension = Get_File_Name_Parts(path).Extension;
    for (char& c : extension) {
        c = UpperLetter(c);
    }
    if (extension == "PL") {
        return RelayKind::Vdr812;
    }
    return extension == "C10" ? std::optional(RelayKind::Vdr810) : std::nullopt;
}

} // namespace brindle
