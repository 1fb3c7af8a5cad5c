#pragma once

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace rc {

/// Runs `property` on its cases. Too many that it discards are a fault of the test, as with RapidCheck.
inline void RunProperty(const std::function<void()>& property) {
    constexpr int greatestDiscards = 10 * CasesAProperty;
    Chance().Engine.seed(1);
    int discards = 0;
    for (int number = 1; number <= CasesAProperty && discards <= greatestDiscards;) {
        Chance().Size = number;
        try {
            property();
            ++number;
        } catch (const CaseDiscarded&) {
            ++discards;
        } catch (const CaseFailed& failed) {
            FAIL() << failed.File << ':' << failed.Line << ": case " << number << ": " << failed.Expression;
        }
    }
    EXPECT_GE(greatestDiscards, discards) << "hardly any case fits the property";
}

/// A property that takes values, each of which may be anything.
template<class... Values>
void RunProperty(void (*property)(Values...)) {
    RunProperty(std::function<void()>([property] { property(*gen::arbitrary<std::decay_t<Values>>()...); }));
}

} // namespace rc

#define RC_GTEST_PROP(Suite, Name, Arguments)                                                                \
    static void Property_##Suite##_##Name Arguments;                                                         \
    TEST(Suite, Name) {                                                                                      \
        ::rc::RunProperty(&Property_##Suite##_##Name);                                                       \
    }                                                                                                        \
    static void Property_##Suite##_##Name Arguments

/// The fixture is made anew for each case.
#define RC_GTEST_FIXTURE_PROP(Fixture, Name, Arguments)                                                      \
    class Property_##Fixture##_##Name : public Fixture {                                                     \
      public:                                                                                                \
        void RunCase() {                                                                                     \
            SetUp();                                                                                         \
            Check();                                                                                         \
            TearDown();                                                                                      \
        }                                                                                                    \
                                                                                                             \
      private:                                                                                               \
        void TestBody() override {}                                                                          \
        void Check Arguments;                                                                                \
    };                                                                                                       \
    TEST(Fixture##_RapidCheck, Name) {                                                                       \
        ::rc::RunProperty(std::function<void()>([] { Property_##Fixture##_##Name().RunCase(); }));           \
    }                                                                                                        \
    void Property_##Fixture##_##Name::Check Arguments
