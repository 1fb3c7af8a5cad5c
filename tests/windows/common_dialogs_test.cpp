#include "platform/common_dialogs.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

constexpr const char* TwoFilters = "Text File (*.txt)|*.txt |All Files (*.*)|*.*";

TEST(QtNameFilters, TakeThePatternAndKeepTheDescription) {
    EXPECT_EQ(QtNameFilters("Vdr812 PLC Files (*.pl)|*.pl"),
              QStringList{QStringLiteral("Vdr812 PLC Files (*.pl)")});
    EXPECT_EQ(QtNameFilters(TwoFilters),
              (QStringList{QStringLiteral("Text File (*.txt)"), QStringLiteral("All Files (*.*)")}));
}

TEST(FilterIndexOfName, IsThatOfTheFilterWhoseExtensionTheNameBears) {
    const std::string filter = "Binary File (*.pl)|*.pl|VDR810 (*.c10)|*.c10";
    EXPECT_EQ(FilterIndexOfName(filter, QStringLiteral("/a/x.pl"), 2), 1);
    EXPECT_EQ(FilterIndexOfName(filter, QStringLiteral("/a/x.C10"), 1), 2);
}

TEST(FilterIndexOfName, IsThePresetOneWhenNoFilterHasTheExtension) {
    EXPECT_EQ(FilterIndexOfName("Vdr812 PLC Files (*.pl)|*.pl", QStringLiteral("x.c10"), 2), 2);
    EXPECT_EQ(FilterIndexOfName("Vdr812 PLC Files (*.pl)|*.pl", QStringLiteral("x.c10"), 1), 1);
    EXPECT_EQ(FilterIndexOfName(TwoFilters, QStringLiteral("x.doc"), 1), 1)
        << "a filter for all files claims none";
}

} // namespace
} // namespace brindle
