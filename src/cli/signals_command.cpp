#include "cli/commands.h"
#include "cli/complaint.h"
#include "cli/logic_input.h"
#include "files/file_model.h"
#include "files/option_file.h"
#include "model/logic_config.h"
#include "model/signal_catalogue.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string_view>

namespace brindle {

namespace {

constexpr std::size_t ColumnCount = 6;
using TableRow = std::array<std::string, ColumnCount>;

constexpr std::array<bool, ColumnCount> FlushRight{true, true, false, false, false, false};
constexpr std::string_view ColumnGap = "  ";

std::string CategoryText(const SignalCatalogue& catalogue, std::int16_t category) {
    if (category == NoCategory) {
        return "-";
    }
    const auto entry =
        std::find_if(catalogue.Categories.begin(), catalogue.Categories.end(),
                     [category](const CategoryEntry& each) { return each.Number == category; });
    return std::to_string(category) + (entry == catalogue.Categories.end() ? "" : " " + entry->Name);
}

std::vector<TableRow> SignalRows(const SignalCatalogue& catalogue) {
    std::vector<TableRow> rows{{"Number", "Code", "Name", "Category", "Enabled", "Visible"}};
    const std::size_t count = SignalCount(catalogue);
    for (std::size_t number = 0; number < count; ++number) {
        const SignalEntry& signal = catalogue.Signals.at(number);
        rows.push_back({std::to_string(number), std::to_string(signal.Code), signal.Name,
                        CategoryText(catalogue, signal.Category), signal.Enabled ? "yes" : "no",
                        signal.Visible ? "yes" : "no"});
    }
    return rows;
}

/// Characters of a UTF-8 text: all bytes but those that follow in a character.
std::size_t Width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string AlignedLine(const TableRow& row, const std::array<std::size_t, ColumnCount>& widths) {
    std::string line;
    for (std::size_t column = 0; column < ColumnCount; ++column) {
        const std::string fill(widths.at(column) - Width(row.at(column)), ' ');
        const bool last = column + 1 == ColumnCount; // a line ends without blanks
        line += column == 0 ? "" : ColumnGap;
        line += FlushRight.at(column) ? fill + row.at(column) : row.at(column) + (last ? "" : fill);
    }
    return line;
}

void WriteTable(const SignalCatalogue& catalogue, const CommandEnvironment& environment) {
    const std::vector<TableRow> rows = SignalRows(catalogue);
    std::array<std::size_t, ColumnCount> widths{};
    for (const TableRow& row : rows) {
        for (std::size_t column = 0; column < ColumnCount; ++column) {
            widths.at(column) = std::max(widths.at(column), Width(row.at(column)));
        }
    }
    for (const TableRow& row : rows) {
        environment.Out << AlignedLine(row, widths) << '\n';
    }
}

int ListOptionFile(const std::string& file, const CommandEnvironment& environment) {
    OptionFile option;
    const FileError error = ReadOptionFile(environment.Files, file, option);
    if (error.Failed()) {
        return ComplainOfFile(environment, file, error);
    }
    WriteTable(BuildVdr810Catalogue(option.Lists), environment);
    return ExitWell;
}

} // namespace

int SignalsCommand(const std::string& version, const CommandEnvironment& environment) {
    if (version != "1.00" && version != "2.30") {
        Complain(environment, "version \"" + version + "\" is neither 1.00 nor 2.30");
        return ExitBadArguments;
    }
    WriteTable(BuildVdr812Catalogue(version == "1.00" ? Version100 : Version230), environment);
    return ExitWell;
}

int FileSignalsCommand(const LogicInput& input, const CommandEnvironment& environment) {
    if (!input.Model && !ModelOfPath(input.File)) {
        return ListOptionFile(input.File, environment);
    }
    LogicConfig config;
    const int result = ReadLogicInput(environment, input, config);
    if (result != ExitFailed) {
        WriteTable(BuildCatalogue(config), environment);
    }
    return result;
}

} // namespace brindle
