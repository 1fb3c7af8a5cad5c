#include "files/vdr810_section_reader.h"

#include "files/text_fields.h"
#include "files/vdr810_refusal.h"
#include "files/vdr810_sections.h"
#include "model/output_map.h"

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

constexpr int CategoryFields = 2;
constexpr int LabelFields = 3;
constexpr int LabelFieldsStated = 2; // the number that the box has always named
constexpr int FieldsBeforeValues = 2;

std::string_view FirstField(std::string_view line) {
    std::string_view first;
    FieldCursor(line).Next(first);
    return Trimmed(first);
}

} // namespace

Vdr810SectionReader::Vdr810SectionReader(LogicConfig& config, std::array<UnitLinesRead, UnitsPerGroup>& lines)
    : config_(config), lines_(lines), banks_(BankCount(config)), falseCode_(config.Coding.FalseCode) {}

std::optional<MessageBox> Vdr810SectionReader::Take(std::string_view line) {
    const std::string_view first = FirstField(line);
    if (!first.empty() && first.front() == '<') { // most lines are told apart without a look at the tags
        if (const int unit = UnitOfTag(first); unit != 0) {
            return BeginUnit(unit, first);
        }
        if (BeginList(first)) {
            return {};
        }
    }
    ++element_;
    switch (section_) {
    case Section::Categories:
        return TakeCategory(line, first);
    case Section::Labels:
        return TakeLabel(line);
    case Section::Unit:
        return TakeUnitLine(line, first);
    case Section::Ended:
        return {};
    case Section::None:
        break;
    }
    return RefusedLine(UnitPlace(0, first), "No section has begun.", element_);
}

std::optional<MessageBox> Vdr810SectionReader::BeginUnit(int unit, std::string_view tag) {
    if (!HasUnit(config_, unit)) {
        return RefusedLine(UnitPlace(unit, tag), "The header promises no such unit.", 0);
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
        config_.Lists.Categories.clear();
    } else if (tag == LabelTag) {
        section_ = Section::Labels;
        config_.Lists.Labels.clear();
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

std::optional<MessageBox> Vdr810SectionReader::TakeCategory(std::string_view line, std::string_view first) {
    Vdr810Category category;
    const NumberFault fault = ParseNumber(first, category.Number);
    if (fault == NumberFault::None && category.Number == EndNumber) {
        config_.Lists.Categories.push_back({EndNumber, EndName, EndName});
        section_ = Section::Ended;
        return {};
    }
    const int fields = FieldCount(line);
    if (fields != CategoryFields) {
        return WrongFieldCount(CategoryPlace(), fields, CategoryFields, CategoryFields, element_);
    }
    if (fault != NumberFault::None) {
        return RefusedLine(CategoryPlace(), FaultOfField(1, fault), element_);
    }
    category.Name = line.substr(line.find(',') + 1);
    category.Caption = category.Name;
    if (IsEnd(category)) {
        section_ = Section::Ended;
    } else if (element_ > config_.Vdr810.CategoryCount) {
        return RefusedLine(CategoryPlace(), "The header promises fewer categories.", element_);
    }
    config_.Lists.Categories.push_back(std::move(category));
    return {};
}

std::optional<MessageBox> Vdr810SectionReader::TakeLabel(std::string_view line) {
    const int fields = FieldCount(line);
    if (fields != LabelFields) {
        return WrongFieldCount(LabelPlace(), fields, LabelFields, LabelFieldsStated, element_);
    }
    FieldCursor cursor(line);
    std::string_view field;
    Vdr810Label label;
    cursor.Next(field);
    if (const NumberFault fault = ParseNumber(field, label.Category); fault != NumberFault::None) {
        return RefusedLine(LabelPlace(), FaultOfField(1, fault), element_);
    }
    cursor.Next(field);
    if (const NumberFault fault = ParseNumber(field, label.Signal); fault != NumberFault::None) {
        return RefusedLine(LabelPlace(), FaultOfField(2, fault), element_);
    }
    std::int16_t falseCode = config_.Coding.FalseCode;
    const std::string_view number = field;
    cursor.Next(field);
    label.Name = field;
    label.Caption = label.Name;
    if (label.Name == FalseName) {
        if (const NumberFault fault = ParseNumber(number, falseCode); fault != NumberFault::None) {
            return RefusedLine(LabelPlace(), FaultOfField(2, fault), element_);
        }
    }
    if (IsEnd(label)) {
        section_ = Section::Ended;
    } else if (element_ > config_.Vdr810.LabelCount) {
        return RefusedLine(LabelPlace(), "The header promises fewer labels.", element_);
    }
    config_.Coding.FalseCode = falseCode;
    config_.Lists.Labels.push_back(std::move(label));
    return {};
}

int Vdr810SectionReader::ValuesPerGroup(int record) const {
    return record == OutputMapRecord ? banks_ : 1;
}

std::optional<MessageBox> Vdr810SectionReader::TakeUnitLine(std::string_view line, std::string_view first) {
    const auto refuse = [&](const std::string& cause) {
        return RefusedLine(UnitPlace(unit_, first), cause, element_);
    };
    std::int32_t record = 0;
    if (const NumberFault fault = ParseNumber(first, record); fault != NumberFault::None) {
        return refuse(FaultOfField(1, fault));
    }
    if (record < InputRecord || record > DropOutRecord) {
        return refuse("Record type " + std::to_string(record) + " is not known.");
    }
    const int needed = FieldsBeforeValues + config_.GroupCount * ValuesPerGroup(record);
    const int fields = FieldCount(line);
    if (fields != needed) {
        return WrongFieldCount(UnitPlace(unit_, first), fields, needed, needed, element_);
    }
    if (!IsTimer(unit_) && (record == PickUpRecord || record == DropOutRecord)) {
        return {}; // a latch has no times
    }
    std::int32_t number = 0;
    int field = 0;
    if (const NumberFault fault = ParseValues(line, number, field); fault != NumberFault::None) {
        return refuse(FaultOfField(field, fault));
    }
    if (record == InputRecord && (number < 1 || number > InputsPerUnit)) {
        return refuse("There is no input " + std::to_string(number) + ".");
    }
    Store(record, number);
    return {};
}

NumberFault Vdr810SectionReader::ParseValues(std::string_view line, std::int32_t& number, int& field) {
    FieldCursor cursor(line);
    std::string_view text;
    cursor.Next(text);
    cursor.Next(text);
    field = FieldsBeforeValues;
    NumberFault fault = ParseNumber(text, number);
    for (std::size_t i = 0; fault == NumberFault::None && cursor.Next(text); ++i) {
        ++field;
        fault = ParseNumber(text, values_.at(i));
    }
    return fault;
}

void Vdr810SectionReader::Store(int record, int number) {
    const int slot = Unit(unit_).MapSlot;
    std::size_t next = 0;
    for (int g = 1; g <= config_.GroupCount; ++g) {
        LogicGroup& group = config_.Group(g);
        switch (record) {
        case InputRecord:
            group.Unit(unit_).Inputs.at(static_cast<std::size_t>(number - 1)) = values_.at(next++);
            break;
        case OutputMapRecord:
            for (int bank = 1; bank <= banks_; ++bank) {
                group.OutputMap(slot, bank) = static_cast<std::uint32_t>(values_.at(next++));
            }
            break;
        case PickUpRecord:
            group.Timer(unit_).PickUp = values_.at(next++);
            break;
        default:
            group.Timer(unit_).DropOut = values_.at(next++);
            break;
        }
    }
    switch (record) {
    case InputRecord:
        Lines().Inputs.set(static_cast<std::size_t>(number - 1));
        break;
    case OutputMapRecord:
        Lines().OutputMap = true;
        break;
    case PickUpRecord:
        Lines().PickUp = true;
        break;
    default:
        Lines().DropOut = true;
        break;
    }
}

} // namespace brindle
