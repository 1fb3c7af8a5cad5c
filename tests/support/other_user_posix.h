#pragma once

#include "support/child_process.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <grp.h>
#include <unistd.h>
#include <vector>

namespace brindle {

/// A user of the tests who is not the superuser; no account needs to be there.
inline constexpr uid_t OtherUser = 61234;
inline constexpr gid_t OwnGroup = 61234;    ///< the first group of OtherUser
inline constexpr gid_t SharedGroup = 61300; ///< one that OtherUser belongs to as well
inline constexpr gid_t ClosedGroup = 61301; ///< one that OtherUser does not belong to

/// Runs `body` as OtherUser in a child; whether all that it expected held. Only for the superuser.
inline bool RunAsOtherUser(const std::function<void()>& body) {
    ChildProcess child([&] {
        const std::vector<gid_t> groups{OwnGroup, SharedGroup};
        if (::setgroups(groups.size(), groups.data()) != 0 || ::setgid(OwnGroup) != 0 ||
            ::setuid(OtherUser) != 0) {
            return false;
        }
        body();
        std::fflush(nullptr); // what failed is said by the child
        return !testing::Test::HasFailure();
    });
    return child.EndsWell();
}

} // namespace brindle
