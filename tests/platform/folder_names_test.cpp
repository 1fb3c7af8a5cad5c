#include "platform/folders.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

TEST(SortFolderNames, IsWithoutRegardToCaseAndPutsOtherLettersThanAsciisLast) {
    const std::string greek = "\xCE\xA9";
    std::vector<std::string> names{greek, "beta", "Gamma", "Alpha", "alpha"};
    SortFolderNames(names);
    EXPECT_EQ((std::vector<std::string>{"Alpha", "alpha", "beta", "Gamma", greek}), names);
}

} // namespace
} // namespace brindle
