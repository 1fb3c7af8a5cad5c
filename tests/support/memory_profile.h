#pragma once

#include "platform/file_system.h"
#include "platform/message_box.h"
#include "settings/profile.h"
#include "settings/settings_file.h"

#include <optional>
#include <string>
#include <vector>

namespace brindle {

/// A settings file in memory that records every attempt to write and fails on demand. Outlives what uses it.
struct MemoryProfile {
    std::optional<std::string> Text; ///< of the file; none: there is no file
    std::vector<std::string> Writes; ///< "[section] key=value", "[section] removed"
    std::size_t FailFrom = 0;        ///< the attempt, from 1, from which on writes fail; 0 never
    std::vector<MessageBox> Boxes;   ///< shown by the settings file

    ProfileFunctions Functions();
    FileSystem Files(); ///< only Status may be called
    ShowMessageBox Show();
    /// The settings file of a program in `folder`.
    SettingsFile Settings(const std::string& folder = "/opt/brindle");
};

} // namespace brindle
