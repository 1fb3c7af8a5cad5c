#include "editor/connect_rule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace brindle {
namespace {

constexpr UnitInput False = 255;

/// Unit 3 of group 2 of a new logic.
class ConnectRule : public testing::Test {
  protected:
    void New(float version) { MakeNewVdr812(Config, version); }

    void Fill(const std::vector<UnitInput>& codes) {
        std::copy(codes.begin(), codes.end(), Config.Group(2).Unit(3).Inputs.begin());
    }

    [[nodiscard]] std::vector<UnitInput> Codes() const {
        const auto& inputs = Config.Group(2).Unit(3).Inputs;
        return {inputs.begin(), inputs.end()};
    }

    void Connect(int input, UnitInput code) { ConnectSignal(Config, {2, 3, input}, code); }

    void Flip(int input) { FlipInput(Config, {2, 3, input}); }

    LogicConfig Config;
};

TEST_F(ConnectRule, TheFirstSignalOfA230UnitSetsItsGateTrueAndTheOtherShownGateFalse) {
    New(Version230);
    Connect(6, 85);
    EXPECT_EQ(Codes(),
              (std::vector<UnitInput>{0, 0, 0, 0, 1, 85, 1, 1, False, False, False, False, 0, 0, 0, 0}));
}

TEST_F(ConnectRule, TheFirstSignalOfA100UnitSetsItsGateTrueAndThreeGatesFalse) {
    New(Version100);
    Connect(16, 85);
    EXPECT_EQ(Codes(), (std::vector<UnitInput>{False, False, False, False, False, False, False, False, False,
                                               False, False, False, 1, 1, 1, 85}));
}

TEST_F(ConnectRule, TheFirstSignalMayBeFalseItself) {
    New(Version230);
    Connect(5, False);
    EXPECT_EQ(Codes(),
              (std::vector<UnitInput>{0, 0, 0, 0, False, 1, 1, 1, False, False, False, False, 0, 0, 0, 0}));
}

TEST_F(ConnectRule, AnUnconnectedInputOfAPartlyConnectedUnitIsTheFirstSignalAnew) {
    New(Version230);
    Fill({7, 7, 7, 7, 20, 0, 30, 1, 40, 0, 50, 60, 8, 8, 8, 8});
    Connect(6, 85);
    EXPECT_EQ(Codes(),
              (std::vector<UnitInput>{7, 7, 7, 7, 1, 85, 1, 1, False, False, False, False, 8, 8, 8, 8}));
}

TEST_F(ConnectRule, ASignalIntoAGateWhollyFalseTurnsTheGatesOtherInputsTrue) {
    New(Version230);
    Fill({0, 0, 0, 0, 20, 1, 1, 1, False, False, False, False, 0, 0, 0, 0});
    Connect(12, 86);
    EXPECT_EQ(Codes(), (std::vector<UnitInput>{0, 0, 0, 0, 20, 1, 1, 1, 1, 1, 1, 86, 0, 0, 0, 0}));
}

TEST_F(ConnectRule, ASignalIntoAGatePartlyFalseChangesItsInputAlone) {
    New(Version230);
    Fill({0, 0, 0, 0, False, False, False, 30, False, False, False, False, 0, 0, 0, 0});
    Connect(5, 86);
    EXPECT_EQ(Codes(), (std::vector<UnitInput>{0, 0, 0, 0, 86, False, False, 30, False, False, False, False,
                                               0, 0, 0, 0}));
}

TEST_F(ConnectRule, ASignalInPlaceOfAnotherChangesItsInputAlone) {
    New(Version100);
    Fill({False, False, False, False, 9, 9, 9, 9, False, False, False, False, 1, 1, 1, 2});
    Connect(8, 86);
    EXPECT_EQ(Codes(), (std::vector<UnitInput>{False, False, False, False, 9, 9, 9, 86, False, False, False,
                                               False, 1, 1, 1, 2}));
}

TEST_F(ConnectRule, AnInvertedCodeIsStoredAsItIs) {
    New(Version230);
    Connect(5, 256 - 85);
    EXPECT_EQ(Config.InputCode(2, 3, 5), 171);
}

TEST_F(ConnectRule, EveryConnectMarksTheLogicModified) {
    New(Version230);
    Fill({0, 0, 0, 0, 20, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0});
    Connect(5, 20);
    EXPECT_TRUE(Config.Modified);
}

TEST_F(ConnectRule, ADoubleClickTurnsTrueToFalse) {
    New(Version230);
    Fill({0, 0, 0, 0, 20, 1, 1, 1, False, False, False, False, 0, 0, 0, 0});
    Flip(6);
    EXPECT_EQ(Codes(),
              (std::vector<UnitInput>{0, 0, 0, 0, 20, False, 1, 1, False, False, False, False, 0, 0, 0, 0}));
}

TEST_F(ConnectRule, ADoubleClickOnTheFalseOfAGatePartlyFalseTurnsItTrueAlone) {
    New(Version230);
    Fill({0, 0, 0, 0, 20, False, False, 1, 1, 1, 1, 1, 0, 0, 0, 0});
    Flip(6);
    EXPECT_EQ(Codes(), (std::vector<UnitInput>{0, 0, 0, 0, 20, 1, False, 1, 1, 1, 1, 1, 0, 0, 0, 0}));
}

TEST_F(ConnectRule, ADoubleClickInAGateWhollyFalseTurnsTheGateTrue) {
    New(Version230);
    Fill({0, 0, 0, 0, 20, 1, 1, 1, False, False, False, False, 0, 0, 0, 0});
    Flip(10);
    EXPECT_EQ(Codes(), (std::vector<UnitInput>{0, 0, 0, 0, 20, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0}));
}

TEST_F(ConnectRule, ADoubleClickInvertsASignalAndTakesTheInversionBack) {
    New(Version100);
    Fill({20});
    Flip(1);
    EXPECT_EQ(Config.InputCode(2, 3, 1), 236);
    Flip(1);
    EXPECT_EQ(Config.InputCode(2, 3, 1), 20);
}

TEST_F(ConnectRule, ADoubleClickOnNoConnectChangesNothingButMarksTheLogicModified) {
    New(Version230);
    const auto before = Config.Groups;
    Flip(5);
    EXPECT_EQ(Config.Groups, before);
    EXPECT_TRUE(Config.Modified);
}

TEST_F(ConnectRule, AVdr810LogicGoesByItsOwnCodes) {
    New(Version230);
    Config.RelayModel = RelayKind::Vdr810;
    Config.Coding = {1000, 400};
    Config.Group(2).Unit(3).Inputs.fill(400);
    Connect(7, 33);
    EXPECT_EQ(Codes(), (std::vector<UnitInput>{400, 400, 400, 400, 1, 1, 33, 1, 400, 400, 400, 400, 400, 400,
                                               400, 400}));
    Flip(7);
    EXPECT_EQ(Config.InputCode(2, 3, 7), 967);
    Flip(5);
    EXPECT_EQ(Config.InputCode(2, 3, 5), 400);
}

} // namespace
} // namespace brindle
