#include "report/print_fonts.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>

namespace brindle {
namespace {

using Names = std::vector<std::string>;

TEST(FontForPrinter, TheFirstOfTheFourInThePrintersOrderIsTaken) {
    EXPECT_EQ("Tahoma", FontForPrinter({"Symbol", "Tahoma", "Times New Roman", "Courier New", "Arial"}));
    EXPECT_EQ("Courier New", FontForPrinter({"Courier New", "Arial"}));
    EXPECT_EQ("Times New Roman", FontForPrinter({"Bookman", "Times New Roman", "Arial"}));
    EXPECT_EQ("Arial", FontForPrinter({"Courier", "Arial", "Tahoma"}));
}

TEST(FontForPrinter, WithoutAnyOfTheFourItIsThePrintersFirst) {
    EXPECT_EQ("Symbol", FontForPrinter({"Symbol", "Arial Narrow", "Courier"}));
}

TEST(FontForPrinter, APrinterWithoutFontsHasNone) {
    EXPECT_EQ("", FontForPrinter({}));
}

TEST(FontsOnBoth, AreInThePrintersOrder) {
    EXPECT_EQ((Names{"C", "A"}), FontsOnBoth({"C", "B", "A"}, {"A", "C", "D"}));
}

TEST(FontsOnBoth, AFontThatThePrinterNamesTwiceIsOfferedOnce) {
    EXPECT_EQ((Names{"A", "B"}), FontsOnBoth({"A", "B", "A"}, {"B", "A"}));
}

RC_GTEST_PROP(FontsOnBoth, AreThoseAndOnlyThoseThatBothHave, ()) {
    const auto lists = rc::gen::container<Names>(rc::gen::elementOf(Names{"A", "B", "C", "D", "E"}));
    const Names printer = *lists;
    const Names screen = *lists;
    const Names both = FontsOnBoth(printer, screen);
    for (const std::string name : {"A", "B", "C", "D", "E"}) {
        const bool wanted = std::count(printer.begin(), printer.end(), name) > 0 &&
                            std::count(screen.begin(), screen.end(), name) > 0;
        RC_ASSERT(std::count(both.begin(), both.end(), name) == (wanted ? 1 : 0));
    }
}

TEST(FontListing, LineByLine) {
    EXPECT_EQ("Printer: Office\r\n"
              "Current Font: >Arial< \r\n"
              "Printer Font Count: >2\r\n"
              " Screen Font Count: >3\r\n"
              "Fonts Available: Printer   ,    screen \r\n"
              "Line Printer    ,    \r\n"
              "Arial    ,    Arial\r\n"
              "Fonts Available: Screen   ,    Printer \r\n"
              "Arial    ,    Arial\r\n"
              "System    ,    \r\n"
              "Fixed    ,    \r\n"
              " Number of Matches: 1\r\n",
              FontListing("Office", "Arial", {"Line Printer", "Arial"}, {"Arial", "System", "Fixed"}));
}

TEST(FontListing, OfNoFontsAtAllHasItsHeadings) {
    EXPECT_EQ("Printer: \r\n"
              "Current Font: >< \r\n"
              "Printer Font Count: >0\r\n"
              " Screen Font Count: >0\r\n"
              "Fonts Available: Printer   ,    screen \r\n"
              "Fonts Available: Screen   ,    Printer \r\n"
              " Number of Matches: 0\r\n",
              FontListing("", "", {}, {}));
}

} // namespace
} // namespace brindle
