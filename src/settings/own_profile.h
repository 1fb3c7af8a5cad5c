#pragma once

#include "platform/file_system.h"
#include "settings/profile.h"

namespace brindle {

/// A settings file beyond this is read up to here and not written any more.
inline constexpr std::size_t GreatestProfileSize = std::size_t{1} << 20; // bytes

/// The private-profile functions for systems that have none. Each read takes the file anew and each change
/// replaces it whole, so that programs that take turns see each other's keys. A file that exists but
/// cannot be read reads as its defaults and is never written: that would wipe what it holds.
ProfileFunctions OwnProfile(const FileSystem& files);

} // namespace brindle
