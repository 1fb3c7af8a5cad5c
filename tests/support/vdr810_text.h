#pragma once

#include "files/vdr810_head.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_sections.h"
#include "model/logic_config.h"

#include <array>
#include <string>
#include <vector>

namespace brindle {

/// The text of a VDR810 logic or option file, put together line by line. It begins with the head of a small
/// relay: one group, one timer, no latch, outputs 1 to 16, 3 labels, 2 categories, 256 signals.
class Vdr810Text {
  public:
    /// Head value `number` (1 to 12), as it is to stand in the file.
    Vdr810Text& Value(int number, const std::string& text) {
        head_.at(static_cast<std::size_t>(number - 1)) = text;
        return *this;
    }

    Vdr810Text& Units(int groups, int timers, int latches) {
        groups_ = groups;
        return Value(5, std::to_string(groups))
            .Value(6, std::to_string(timers))
            .Value(7, std::to_string(latches));
    }

    Vdr810Text& Outputs(int first, int last) {
        banks_ = (last - first + 16) / 16;
        return Value(11, std::to_string(first)).Value(12, std::to_string(last));
    }

    Vdr810Text& Line(const std::string& line) {
        body_.push_back(line);
        return *this;
    }

    /// A line of a unit's section with `value` for each group, for the output map for each group and bank.
    Vdr810Text& Record(int record, int number, int value) {
        std::string line = std::to_string(record) + "," + std::to_string(number);
        for (int i = 0; i < groups_ * (record == OutputMapRecord ? banks_ : 1); ++i) {
            line += "," + std::to_string(value);
        }
        return Line(line);
    }

    /// The whole section of a unit (1 to 10), the same value all over.
    Vdr810Text& Section(int unit, int value) {
        Line(std::string(UnitTags.at(static_cast<std::size_t>(unit - 1))));
        for (int input = 1; input <= InputsPerUnit; ++input) {
            Record(InputRecord, input, value);
        }
        Record(OutputMapRecord, Unit(unit).MapSlot, value);
        if (IsTimer(unit)) {
            Record(PickUpRecord, unit, value).Record(DropOutRecord, unit, value);
        }
        return *this;
    }

    /// The lines of the head, the two outputs on one, then those that were added.
    [[nodiscard]] std::vector<std::string> Lines() const {
        std::vector<std::string> lines(head_.begin(), head_.end() - 2);
        lines.push_back(head_[10] + "," + head_[11]);
        lines.insert(lines.end(), body_.begin(), body_.end());
        return lines;
    }

    [[nodiscard]] std::string Text(const std::string& lineEnd = "\r\n") const {
        std::string text;
        for (const std::string& line : Lines()) {
            text += line + lineEnd;
        }
        return text;
    }

  private:
    std::array<std::string, 12> head_{"LINE 7 EAST", "1.00", "2.30", "12",  "1", "1",
                                      "0",           "3",    "2",    "256", "1", "16"};
    int groups_ = 1;
    int banks_ = 1;
    std::vector<std::string> body_;
};

/// The logic that a text is read into, with what reading it came to.
struct Vdr810Read {
    LogicConfig Config;
    Vdr810Reading Reading;
};

inline Vdr810Read ReadText(const std::string& text) {
    Vdr810Read read;
    read.Reading = DecodeVdr810(text, "read x.c10", read.Config);
    return read;
}

/// The text of the box that refuses `text`; empty where there is none.
inline std::string RefusalOf(const std::string& text) {
    const Vdr810Reading reading = ReadText(text).Reading;
    return reading.Refusal ? reading.Refusal->Text : "";
}

/// Whether two VDR810 logics agree in all that their files hold.
inline bool SameVdr810(const LogicConfig& a, const LogicConfig& b) {
    return a.RelayModel == b.RelayModel && HeadOf(a) == HeadOf(b) &&
           a.Coding.FalseCode == b.Coding.FalseCode && a.Lists == b.Lists && a.Groups == b.Groups;
}

} // namespace brindle
