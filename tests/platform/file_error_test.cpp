#include "platform/file_error.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(FileError, NumberZeroIsWell) {
    EXPECT_FALSE(FileError{}.Failed());
    EXPECT_TRUE(MakeFileError(FileNotFoundError, "open x").Failed());
}

TEST(FileError, AMadeErrorCarriesNumberDescriptionAndSource) {
    const FileError error = MakeFileError(DiskFullError, "write /home/me/x.pl");
    EXPECT_EQ(61, error.Number);
    EXPECT_EQ("Disk full", error.Description);
    EXPECT_EQ("write /home/me/x.pl", error.Source);
}

TEST(FileError, EveryNumberThatWeGiveHasADescription) {
    for (const int number : {6, 51, 52, 53, 54, 55, 57, 58, 61, 62, 67, 68, 70, 71, 74, 75, 76}) {
        EXPECT_NE("Unknown error", FileErrorDescription(number)) << number;
        EXPECT_FALSE(FileErrorDescription(number).empty()) << number;
    }
}

TEST(FileError, ANumberThatWeNeverGiveIsUnknown) {
    EXPECT_EQ("Unknown error", FileErrorDescription(0));
    EXPECT_EQ("Unknown error", FileErrorDescription(999));
    EXPECT_EQ("Unknown error", FileErrorDescription(-1));
}

} // namespace
} // namespace brindle
