#include "files/vdr810_section_reader.h"

#include "files/text_fields.h"
#include "files/vdr810_refusal.h"
#include "files/vdr810_sections.h"
#include "model/output_map.h"
#include "platform/ascii.h"

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

constexpr std::size_t OwnCategoryFields = 2;
constexpr std::size_t OwnLabelFields = 3;
constexpr int OwnLabelFieldsStated = 2;   // the number that the box has always named
constexpr std::size_t UsualEntries = 512; // of a list: room is made at once, for more as they come

/// The place in an array of what counts from 1.
std::size_t Index(int number) {
    return static_cast<std::size_t>(number - 1);
}

bool IsUnitRecord(int record) {
    return record >= InputRecord && record <= DropOutRecord;
}

bool IsInput(int number) {
    return number >= 1 && number <= InputsPerUnit;
}

/// Empties a list that the head says to have so many entries.
template<class Entry>
void BeginEntries(std::vector<Entry>& list, std::int16_t promised) {
    list.clear();
    list.reserve(std::min(static_cast<std::size_t>(promised) + 1, UsualEntries)); // one more for END
}

std::string_view FirstField(std::string_view line) {
    std::string_view first;
    FieldCursor(line).Next(first);
    return Trimmed(first);
}

} // namespace

Vdr810SectionReader::Vdr810SectionReader(LogicConfig& config, std::array<UnitLinesRead, UnitsPerGroup>& lines)
    : config_(config), lines_(lines), banks_(BankCount(config)), falseCode_(config.Coding.FalseCode) {}

std::optional<MessageBox> Vdr810SectionReader::Take(std::string_view line) {
    if (!IsDigit(line.front())) { // most lines are told apart from tags by their first byte
        const std::string_view tag = FirstField(line);
        if (const int unit = UnitOfTag(tag); unit != 0) {
            return BeginUnit(unit, tag);
        }
        if (BeginList(tag)) {
            return {};
        }
    }
    ++element_;
    switch (section_) {
    case Section::Categories:
        return TakeCategory(line);
    case Section::Labels:
        return TakeLabel(line);
    case Section::Unit:
        return TakeUnitLine(line);
    case Section::Ended:
        return {};
    case Section::None:
        break;
    }
    return RefusedLine(UnitPlace(0, FirstField(line)), "No section has begun.", element_);
}

std::optional<MessageBox> Vdr810SectionReader::BeginUnit(int unit, std::string_view tag) {
    if (!HasUnit(config_, unit)) {
        return RefusedLine(UnitPlace(unit, tag), "The header promises no such unit.", 1);
    }
    section_ = Section::Unit;
    unit_ = unit;
    element_ = 0;
    ClearUnitRead();
    return {};
}

bool Vdr810SectionReader::BeginList(std::string_view tag) {
    if (tag == CategoryTag) {
        section_ = Section::Categories;
        BeginEntries(config_.Lists.Categories, config_.Vdr810.CategoryCount);
    } else if (tag == LabelTag) {
        section_ = Section::Labels;
        BeginEntries(config_.Lists.Labels, config_.Vdr810.LabelCount);
        config_.Coding.FalseCode = falseCode_;
    } else {
        return false;
    }
    element_ = 0;
    return true;
}

void Vdr810SectionReader::ClearUnitRead() {
    Lines() = {};
    const int slot = Unit(unit_).MapSlot;
    const bool otherSideMapped = std::any_of(UnitTable.begin(), UnitTable.end(), [&](const UnitInfo& unit) {
        return unit.MapSlot == slot && lines_.at(static_cast<std::size_t>(unit.Number - 1)).OutputMap;
    });
    for (LogicGroup& group : config_.Groups) {
        group.Unit(unit_).Inputs.fill(UnconnectedCode(config_));
        if (IsTimer(unit_)) {
            group.Timer(unit_) = {};
        }
        if (!otherSideMapped) {
            group.OutputWords.at(static_cast<std::size_t>(slot - 1)).fill(0);
        }
    }
}

std::optional<MessageBox> Vdr810SectionReader::TakeCategory(std::string_view line) {
    Vdr810Category category;
    const NumberFault fault = ParseNumber(FirstField(line), category.Number);
    if (fault == NumberFault::None && category.Number == EndNumber) {
        config_.Lists.Categories.push_back({EndNumber, EndName, EndName});
        section_ = Section::Ended;
        return {};
    }
    std::array<std::string_view, OwnCategoryFields> fields;
    if (!SplitFields(line, fields)) {
        return WrongFieldCount(CategoryPlace(), FieldCount(line), OwnCategoryFields, OwnCategoryFields,
                               element_);
    }
    if (fault != NumberFault::None) {
        return RefusedLine(CategoryPlace(), FaultOfField(1, fault), element_);
    }
    category.Caption = OneField(fields[1]);
    category.Name = OneField(fields[1]);
    if (element_ > config_.Vdr810.CategoryCount) {
        return RefusedLine(CategoryPlace(), "The header promises fewer categories.", element_);
    }
    config_.Lists.Categories.push_back(std::move(category));
    return {};
}

std::optional<MessageBox> Vdr810SectionReader::TakeLabel(std::string_view line) {
    std::array<std::string_view, OwnLabelFields> fields;
    if (!SplitFields(line, fields)) {
        return WrongFieldCount(LabelPlace(), FieldCount(line), OwnLabelFields, OwnLabelFieldsStated,
                               element_);
    }
    Vdr810Label label;
    if (const NumberFault fault = ParseNumber(fields[0], label.Category); fault != NumberFault::None) {
        return RefusedLine(LabelPlace(), FaultOfField(1, fault), element_);
    }
    std::int16_t falseCode = config_.Coding.FalseCode;
    NumberFault fault = ParseNumber(fields[1], label.Signal);
    if (fault == NumberFault::None && fields[2] == FalseName) {
        fault = ParseNumber(fields[1], falseCode);
    }
    if (fault != NumberFault::None) {
        return RefusedLine(LabelPlace(), FaultOfField(2, fault), element_);
    }
    label.Name = OneField(fields[2]);
    label.Caption = OneField(fields[2]);
    if (IsEnd(label)) {
        section_ = Section::Ended;
    } else if (element_ > config_.Vdr810.LabelCount) {
        return RefusedLine(LabelPlace(), "The header promises fewer labels.", element_);
    }
    config_.Coding.FalseCode = falseCode;
    config_.Lists.Labels.push_back(std::move(label));
    return {};
}

int Vdr810SectionReader::FieldsNeeded(int record) const {
    const int valuesPerGroup = record == OutputMapRecord ? banks_ : 1;
    return static_cast<int>(FieldsBeforeValues) + config_.GroupCount * valuesPerGroup;
}

bool Vdr810SectionReader::IsIgnored(int record) const {
    return !IsTimer(unit_) && (record == PickUpRecord || record == DropOutRecord);
}

std::optional<MessageBox> Vdr810SectionReader::TakeUnitLine(std::string_view line) {
    const auto fields = static_cast<int>(ReadNumbers(line, numbers_));
    const auto [record, number] = std::pair(numbers_[0], numbers_[1]);
    const bool whole = fields != 0 && IsUnitRecord(record) && fields == FieldsNeeded(record);
    if (!whole || (record == InputRecord && !IsInput(number))) {
        return JudgeUnitLine(line);
    }
    if (!IsIgnored(record)) {
        Store(record, number);
    }
    return {};
}

std::optional<MessageBox> Vdr810SectionReader::JudgeUnitLine(std::string_view line) const {
    const std::string_view first = FirstField(line);
    const auto refuse = [&](const std::string& cause) {
        return RefusedLine(UnitPlace(unit_, first), cause, element_);
    };
    std::int32_t record = 0;
    if (const NumberFault fault = ParseNumber(first, record); fault != NumberFault::None) {
        return refuse(FaultOfField(1, fault));
    }
    if (!IsUnitRecord(record)) {
        return refuse("Record type " + std::to_string(record) + " is not known.");
    }
    const int needed = FieldsNeeded(record);
    const int fields = FieldCount(line);
    if (fields != needed) {
        return WrongFieldCount(UnitPlace(unit_, first), fields, needed, needed, element_);
    }
    if (IsIgnored(record)) {
        return {};
    }
    FieldCursor cursor(line);
    std::string_view text;
    for (int field = 1; cursor.Next(text); ++field) {
        std::int32_t value = 0;
        if (const NumberFault fault = ParseNumber(text, value); fault != NumberFault::None) {
            return refuse(FaultOfField(field, fault));
        }
    }
    return refuse("There is no input " + std::to_string(numbers_[1]) + ".");
}

void Vdr810SectionReader::Store(int record, int number) {
    const std::int32_t* value = &numbers_[FieldsBeforeValues];
    const auto storeInGroups = [&](const auto& place) {
        std::for_each_n(config_.Groups.begin(), config_.GroupCount,
                        [&](LogicGroup& group) { place(group) = *value++; });
    };
    switch (record) {
    case InputRecord:
        storeInGroups([unit = Index(unit_), input = Index(number)](LogicGroup& group) -> UnitInput& {
            return group.Units[unit].Inputs[input];
        });
        Lines().Inputs.set(Index(number));
        break;
    case OutputMapRecord:
        std::for_each_n(config_.Groups.begin(), config_.GroupCount, [&](LogicGroup& group) {
            std::copy_n(value, banks_, group.OutputWords.at(Index(Unit(unit_).MapSlot)).begin());
            value += banks_;
        });
        Lines().OutputMap = true;
        break;
    case PickUpRecord:
        storeInGroups([this](LogicGroup& group) -> std::int32_t& { return group.Timer(unit_).PickUp; });
        Lines().PickUp = true;
        break;
    default:
        storeInGroups([this](LogicGroup& group) -> std::int32_t& { return group.Timer(unit_).DropOut; });
        Lines().DropOut = true;
        break;
    }
}

} // namespace brindle
