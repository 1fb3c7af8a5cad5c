#pragma once

#include "files/text_fields.h"
#include "files/vdr810_reader.h"

#include <optional>
#include <string_view>

namespace brindle {

/// Takes the lines after the head of a VDR810 logic file, one by one, into a logic that the head has made. A
/// line is taken whole or refused whole.
class Vdr810SectionReader {
  public:
    /// Both must outlive the reader; `lines` is told which lines of the units were there.
    Vdr810SectionReader(LogicConfig& config, std::array<UnitLinesRead, UnitsPerGroup>& lines);

    /// Takes a line that is not blank; returns the box where it is refused.
    [[nodiscard]] std::optional<MessageBox> Take(std::string_view line);

  private:
    using Refused = std::optional<MessageBox>;
    static constexpr std::size_t FieldsBeforeValues = 2;
    enum class Section { None, Categories, Labels, Unit, Ended };

    [[nodiscard]] Refused BeginUnit(int unit, std::string_view tag);
    [[nodiscard]] bool BeginList(std::string_view tag);
    /// Of a repeated section the last holds.
    void ClearUnitRead();
    [[nodiscard]] Refused TakeCategory(std::string_view line);
    [[nodiscard]] Refused TakeLabel(std::string_view line);
    [[nodiscard]] Refused TakeUnitLine(std::string_view line);
    /// Looks again at a line that is not as it should be; a latch's times may hold anything.
    [[nodiscard]] Refused JudgeUnitLine(std::string_view line) const;
    void Store(int record, int number);
    [[nodiscard]] int FieldsNeeded(int record) const;
    [[nodiscard]] bool IsIgnored(int record) const;

    [[nodiscard]] UnitLinesRead& Lines() { return lines_.at(static_cast<std::size_t>(unit_ - 1)); }

    LogicConfig& config_;
    std::array<UnitLinesRead, UnitsPerGroup>& lines_;
    int banks_;
    std::int16_t falseCode_; ///< the unconnected signal before any label told it
    Section section_ = Section::None;
    int unit_ = 0;
    int element_ = 0; ///< lines or entries of the section so far
    std::array<std::int32_t, FieldsBeforeValues + std::size_t{MaxGroups} * MapBanks>
        numbers_{}; ///< the fields of the line that is being taken
};

} // namespace brindle
