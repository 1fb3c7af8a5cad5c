#include "model/bool16.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(Bool16, TrueIsStoredAsMinusOneAndFalseAsZero) {
    EXPECT_EQ(-1, Bool16(true).Raw());
    EXPECT_EQ(0, Bool16(false).Raw());
}

TEST(Bool16, IsFalseUntilSet) {
    EXPECT_EQ(0, Bool16().Raw());
}

TEST(Bool16, TakesTwoBytes) {
    EXPECT_EQ(2U, sizeof(Bool16));
}

TEST(Bool16, IsAssignedAndTestedLikeABool) {
    Bool16 flag;
    flag = true;
    EXPECT_TRUE(flag);
    EXPECT_TRUE(flag == Bool16(true));
    flag = !flag;
    EXPECT_FALSE(flag);
}

TEST(Bool16, ANumberOtherThanZeroIsTrueAndStillStoredAsMinusOne) {
    const int outputs = 4;
    EXPECT_EQ(-1, Bool16(outputs != 0).Raw());
    EXPECT_EQ(-1, Bool16(static_cast<bool>(outputs)).Raw());
}

} // namespace
} // namespace brindle
