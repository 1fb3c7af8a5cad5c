#include "platform/system_error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <utility>
#include <vector>

namespace brindle {
namespace {

TEST(SystemFileError, EveryFailureOfTheSystemHasItsNumber) {
    const std::vector<std::pair<int, int>> expected{
        {ENOENT, 53}, {ENOTDIR, 76},   {EACCES, 70}, {EPERM, 70},  {EBUSY, 70},     {ETXTBSY, 70},
        {EROFS, 75},  {EISDIR, 75},    {ELOOP, 75},  {EINVAL, 52}, {ENOSPC, 61},    {ENAMETOOLONG, 52},
        {EDQUOT, 61}, {EFBIG, 61},     {EMFILE, 67}, {ENFILE, 67}, {ENXIO, 68},     {ENODEV, 68},
        {EIO, 57},    {ENOMEDIUM, 71}, {EXDEV, 74},  {EEXIST, 58}, {EBADF, 54},     {EAGAIN, 68},
        {EPIPE, 68},  {EHOSTDOWN, 68}, {ESTALE, 68}, {EILSEQ, 52}, {ETIMEDOUT, 68}, {ENOTEMPTY, 75},
    };
    for (const auto& [systemError, number] : expected) {
        const FileError error = SystemFileError(systemError, "open x");
        EXPECT_EQ(number, error.Number) << systemError;
        EXPECT_EQ(FileErrorDescription(number), error.Description) << systemError;
        EXPECT_EQ("open x", error.Source);
    }
}

TEST(SystemFileError, AFailureWithoutANumberIsDescribedInTheSystemsOwnWords) {
    const FileError error = SystemFileError(ENOMEM, "open x");
    EXPECT_EQ(InternalError, error.Number);
    EXPECT_EQ("Cannot allocate memory", error.Description);
    EXPECT_EQ("open x", error.Source);
}

TEST(SystemFileError, NoFailureOfTheSystemReadsAsWell) {
    for (int systemError = -1; systemError < 200; ++systemError) {
        EXPECT_TRUE(SystemFileError(systemError, "open x").Failed()) << systemError;
    }
}

} // namespace
} // namespace brindle
