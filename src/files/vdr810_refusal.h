#pragma once

#include "files/text_fields.h"
#include "platform/message_box.h"

#include <string>
#include <string_view>

/// The boxes that tell why a line of a VDR810 logic file was refused. Entries and lines count from 1.
namespace brindle {

/// Where a line stands: the first lines of its box.
std::string CategoryPlace();
std::string LabelPlace();
/// `unit` 0: before the first section. `record` as it stands in the file, a long one cut.
std::string UnitPlace(int unit, std::string_view record);

/// A line of `found` fields where `needed` belong; `stated` is the number that the box names.
MessageBox WrongFieldCount(const std::string& place, int found, int needed, int stated, int element);

/// A line refused for another `cause`, a sentence.
MessageBox RefusedLine(const std::string& place, const std::string& cause, int element);

/// "Field 4 is not a number.", or that it is out of range.
std::string FaultOfField(int field, NumberFault fault);

} // namespace brindle
