#pragma once

#include "editor/gate_rows.h"
#include "model/logic_config.h"
#include "model/signal_catalogue.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>

/// What the main window shows of one unit, as captions, texts, visibilities and colours. A pure function of
/// the logic and the selection: the window copies it onto its controls and decides nothing.
namespace brindle {

/// A colour value in blue-green-red order, 0x00BBGGRR.
using Colour = std::uint32_t;

inline constexpr Colour HighlightColour = 0x00FFFF80;     ///< selected group number and unit label
inline constexpr Colour SelectedInputColour = 0x00FFC0C0; ///< selected input box
inline constexpr Colour WhiteColour = 0x00FFFFFF;         ///< input box that is not selected
inline constexpr Colour UnselectedColour = 0x00C0C0C0;    ///< group number or unit label that is not selected

/// How the current input came to be selected, which decides the spelling of the "Connect Signal to:" caption.
enum class InputSelection {
    WithUnit, ///< by showing the unit: caption by the unit's tag, always ":11"
    ByItself  ///< by the user: caption by the input's tag, latch sides named the other way round
};

/// What is selected and how it is shown; view state beside the logic.
struct ViewSelection {
    int Group = 1; ///< 1 to the logic's group count
    int Unit = 1;  ///< 1 to 10
    int Input = 1; ///< 1 to 16
    InputSelection InputSelected = InputSelection::WithUnit;
    InputSet NumbersShown; ///< inputs whose texts carry the stored codes
    bool Printing = false; ///< units are being stepped through for printing: unselected labels are white
};

/// A clickable label of the group or the unit strip, with the menu item beside it.
struct StripLabelView {
    bool Visible = true;
    bool Checked = false; ///< check mark of the menu item
    Colour BackColour = UnselectedColour;
};

struct InputView {
    std::string Text;        ///< of the input box
    std::string LineCaption; ///< unit tag and input tag, "T211"
    bool Visible = true;     ///< box, caption and lines of its gate row
    bool InvertMark = false; ///< never set on a hidden input
    bool Idle = false;       ///< "FALSE" or "NO CONNECT": the text stands back behind the signals in use
    Colour BackColour = WhiteColour;

    bool operator==(const InputView&) const = default;
};

struct GateView {
    std::string Caption; ///< "T2A1"
    bool Visible = true;
};

struct TimerView {
    std::string PickUpCaption;  ///< in the timer symbol: "T1PU"
    std::string DropOutCaption; ///< "T1DO"
    std::string PickUpText;     ///< milliseconds as decimal
    std::string DropOutText;
    std::string PickUpReadOut; ///< "Min:1 Sec:1 mSec:5"
    std::string DropOutReadOut;
};

struct LatchView {
    std::string Caption;             ///< in the latch symbol: "Q1"
    std::string OtherSideCaption;    ///< of the set/reset picture: "Latch Set Signal"
    UnitKind Side = UnitKind::Timer; ///< the side that the shown inputs drive
};

/// Everything that showing a unit sets. Arrays hold element n of the window's control arrays at n - 1.
struct UnitView {
    std::string GroupCaption;         ///< "Group:"
    std::string UnitCaption;          ///< "Timer:", "Latch Reset:" or "Latch Set:"
    std::string SelectedInputCaption; ///< "Connect Signal to:  G3 - T2:11"
    std::array<StripLabelView, MaxGroups> Groups;
    std::array<StripLabelView, UnitsPerGroup> Units;
    std::array<InputView, InputsPerUnit> Inputs;
    std::array<GateView, GatesPerUnit> Gates;
    std::string OrCaption; ///< "T2OR"
    Bool16 LatchShown;     ///< the latch elements are shown and the timer elements hidden, or the reverse
    TimerView Timer;       ///< empty texts while a latch is shown
    LatchView Latch;       ///< empty texts while a timer is shown
    std::string FeedbackCaption;   ///< of the VDR810's feedback panel: "T1FB"; empty hides it
    std::map<int, bool> OutputSet; ///< per output number in range, whether its box is ticked
};

UnitView BuildUnitView(const LogicConfig& config, const SignalCatalogue& catalogue,
                       const ViewSelection& selection);

/// A time in milliseconds as "Min:" minutes " Sec:" seconds " mSec:" milliseconds.
std::string TimeReadOut(std::int32_t milliseconds);

} // namespace brindle
