#include "platform/symbol_font.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

/// Fonts in which no text can be read, by what their tables say.
namespace brindle {
namespace {

std::string Os2Table(char familyKind) {
    std::string table(96, '\0');
    table[32] = familyKind;
    return table;
}

std::string CmapTable(std::initializer_list<std::pair<char, char>> encodings) {
    std::string table{0, 0, 0, static_cast<char>(encodings.size())};
    for (const auto& [platform, encoding] : encodings) {
        table += std::string{0, platform, 0, encoding, 0, 0, 0, 0};
    }
    return table;
}

TEST(SymbolFont, AFontForTextIsNone) {
    EXPECT_FALSE(IsSymbolFont("DejaVu Sans", Os2Table(2), CmapTable({{0, 3}, {1, 0}, {3, 1}})));
    EXPECT_FALSE(IsSymbolFont("Unclassified", Os2Table(0), CmapTable({{3, 10}})));
    EXPECT_FALSE(IsSymbolFont("Of an old Macintosh", "", CmapTable({{1, 0}})));
    EXPECT_FALSE(IsSymbolFont("Without tables", "", ""));
}

TEST(SymbolFont, APictorialOneIs) {
    EXPECT_TRUE(IsSymbolFont("Pictures", Os2Table(5), CmapTable({{0, 3}, {3, 1}})));
}

TEST(SymbolFont, OneWhoseCharactersHaveNoUnicodeNumbersIs) {
    EXPECT_TRUE(IsSymbolFont("Pictures", Os2Table(2), CmapTable({{1, 0}, {3, 0}})));
    EXPECT_FALSE(IsSymbolFont("Letters too", Os2Table(2), CmapTable({{3, 0}, {3, 1}})));
    EXPECT_FALSE(IsSymbolFont("Letters too", Os2Table(2), CmapTable({{0, 4}, {3, 0}})));
}

TEST(SymbolFont, OneWhoseTablesClaimLettersIsKnownByItsName) {
    EXPECT_TRUE(IsSymbolFont("D050000L", Os2Table(1), CmapTable({{0, 3}, {3, 1}})));
}

TEST(SymbolFont, ATableThatIsCutIsReadNoFurther) {
    const std::string os2 = Os2Table(5);
    EXPECT_FALSE(IsSymbolFont("", os2.substr(0, 32), ""));
    const std::string cmap = CmapTable({{3, 0}});
    for (std::size_t size = 0; size <= 5; ++size) {
        EXPECT_FALSE(IsSymbolFont("", "", cmap.substr(0, size))) << size;
    }
    EXPECT_TRUE(IsSymbolFont("", "", cmap));
}

} // namespace
} // namespace brindle
