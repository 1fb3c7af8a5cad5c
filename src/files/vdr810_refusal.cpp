#include "files/vdr810_refusal.h"

#include <cstdlib>

namespace brindle {

namespace {

constexpr const char* Title = "VDR810 File Read in Problem";
constexpr std::size_t RecordShown = 20; // a file that is none of ours can have a line of megabytes

MessageBox Refusal(const std::string& text) {
    return {text + "\r\nAborting", MessageIcon::CriticalStop, MessageButtons::Ok, Title};
}

} // namespace

std::string CategoryPlace() {
    return "VDR810 File Read in Problem (Category Info)";
}

std::string LabelPlace() {
    return "VDR810 File Read in Problem (Label Info)";
}

std::string UnitPlace(int unit, std::string_view record) {
    std::string shown(record.substr(0, RecordShown));
    if (shown.size() < record.size()) {
        shown += "...";
    }
    return "VDR810 File Read in Problem!\r\n(Unit " + std::to_string(unit) + " DATA " + shown + ")";
}

MessageBox WrongFieldCount(const std::string& place, int found, int needed, int stated, int element) {
    return Refusal(place + "\r\n" + (found < needed ? "Missing " : "Extra ") +
                   std::to_string(std::abs(found - needed)) + "Fields\r\nArray Element = " +
                   std::to_string(element) + "\r\nShould be Have " + std::to_string(stated) + " Fields.");
}

MessageBox RefusedLine(const std::string& place, const std::string& cause, int element) {
    return Refusal(place + "\r\n" + cause + "\r\nArray Element = " + std::to_string(element));
}

std::string FaultOfField(int field, NumberFault fault) {
    return "Field " + std::to_string(field) +
           (fault == NumberFault::OutOfRange ? " is out of range." : " is not a number.");
}

} // namespace brindle
