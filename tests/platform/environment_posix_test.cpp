#include "platform/environment.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace brindle {
namespace {

TEST(Environment, AVariableHasItsValueAndOneThatIsNotSetHasNone) {
    ASSERT_EQ(0, ::setenv("BRINDLE_TEST_VARIABLE", "/tmp/\xC3\xA4 b", 1));
    EXPECT_EQ("/tmp/\xC3\xA4 b", EnvironmentVariable("BRINDLE_TEST_VARIABLE"));
    ASSERT_EQ(0, ::unsetenv("BRINDLE_TEST_VARIABLE"));
    EXPECT_EQ("", EnvironmentVariable("BRINDLE_TEST_VARIABLE"));
}

} // namespace
} // namespace brindle
