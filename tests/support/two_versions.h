#pragma once

#include "files/program_file.h"
#include "files/vdr810_writer.h"
#include "support/program_bytes.h"
#include "support/vdr810_scheme.h"

#include <string>

namespace brindle {

/// Two versions of the logic of one relay, told apart by a time, and their bytes.
struct TwoVersions {
    LogicConfig Logic[2];
    std::string Bytes[2];
    const char* Name = nullptr; ///< of the file

    [[nodiscard]] FileError Save(const FileSystem& files, const std::string& path, int version) const {
        const LogicConfig& logic = Logic[version];
        return logic.RelayModel == RelayKind::Vdr812 ? WriteProgramFile(files, path, logic)
                                                     : WriteVdr810File(files, path, logic);
    }

    [[nodiscard]] bool IsWhole(const std::string& content) const {
        return content == Bytes[0] || content == Bytes[1];
    }
};

inline TwoVersions ProgramVersions() {
    TwoVersions versions;
    versions.Name = "x.pl";
    for (int version : {0, 1}) {
        MakeNewVdr812(versions.Logic[version], Version230);
        versions.Logic[version].Group(8).Timer(6).DropOut = 100 + version;
        versions.Bytes[version] = ProgramBytes(versions.Logic[version]);
    }
    return versions;
}

inline TwoVersions Vdr810Versions() {
    TwoVersions versions;
    versions.Name = "x.c10";
    for (int version : {0, 1}) {
        versions.Logic[version] = SchemeLists(2.3, 12);
        versions.Logic[version].Group(8).Timer(6).DropOut = 60000 + version; // as long as each other
        versions.Bytes[version] = EncodeVdr810(versions.Logic[version]);
    }
    return versions;
}

} // namespace brindle
