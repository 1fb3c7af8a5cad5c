#include "settings/own_profile.h"
#include "settings/profile.h"

namespace brindle {

ProfileFunctions SystemProfile(const FileSystem& files) {
    return OwnProfile(files);
}

} // namespace brindle
