#include "model/code_page.h"
#include "model/signal_catalogue.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(CodePage, AsciiIsItself) {
    std::string ascii;
    for (char c = 0; c < 127; ++c) {
        ascii += c;
    }
    EXPECT_EQ(Utf8OfWindows1252(ascii), ascii);
}

TEST(CodePage, LettersAndSignsBeyondAsciiBecomeUtf8) {
    EXPECT_EQ(Utf8OfWindows1252("\xDC\x62\x65r"), "\xC3\x9C"
                                                  "ber");
    EXPECT_EQ(Utf8OfWindows1252("\x80"), "\xE2\x82\xAC") << "the euro sign";
    EXPECT_EQ(Utf8OfWindows1252("\x9F\xA0\xFF"), "\xC5\xB8\xC2\xA0\xC3\xBF");
    EXPECT_EQ(Utf8OfWindows1252("\x81"), "\xC2\x81");
}

TEST(CodePage, TheNamesOfACatalogueAreUtf8) {
    Vdr810Lists lists;
    lists.Categories = {{1, "&\xC4", "\xC4"}};
    lists.Labels = {{1, 5, "\xB5s", "\xB5", true, true}};
    const SignalCatalogue catalogue = BuildVdr810Catalogue(lists);
    EXPECT_EQ(catalogue.Categories[0].Caption, "&\xC3\x84");
    EXPECT_EQ(catalogue.Categories[0].Name, "\xC3\x84");
    EXPECT_EQ(catalogue.Signals[0].Name, "\xC2\xB5s");
    EXPECT_EQ(catalogue.Signals[0].Label, "\xC2\xB5");
}

} // namespace
} // namespace brindle
