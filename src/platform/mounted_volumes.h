#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindle {

/// A volume that a user keeps files on.
struct MountedVolume {
    std::string Folder;  ///< where it is mounted
    bool Remote = false; ///< on another machine, which may not answer

    bool operator==(const MountedVolume&) const = default;
};

/// The volumes of a mount table (the text of /proc/self/mounts), "/" first and the others in the order of
/// their folders. Disks, network folders and "/" are volumes; what the system mounts for itself is none.
std::vector<MountedVolume> MountedVolumes(std::string_view mountTable);

} // namespace brindle
