#pragma once

#include "files/text_fields.h"
#include "model/logic_config.h"
#include "platform/file_error.h"

#include <cstdint>
#include <string>

/// The twelve values with which a VDR810 logic file (.c10) and an option file (.810) begin. Both formats are
/// described in docs/.
namespace brindle {

inline constexpr double GreatestVersion = 1000000; ///< a hundred times it is part of a file name
inline constexpr std::int32_t LeastSignals = 2;    ///< a "TRUE" and what it is inverted to

struct Vdr810Head {
    std::string Identity;
    float FormatNumber = 0;
    float Version = 0;           ///< of the relay's settings file, 0 to 1000000
    double SettingsVersion = 0;  ///< the same in double precision
    std::int16_t Options = 0;    ///< 0 or more
    std::int16_t Groups = 0;     ///< 1 to 8
    std::int16_t Timers = 0;     ///< 0 to 6
    std::int16_t Latches = 0;    ///< 0 to 2, and 1 at least where there are no timers
    std::int16_t Labels = 0;     ///< 0 or more
    std::int16_t Categories = 0; ///< 0 or more
    std::int32_t Signals = 0;    ///< 2 or more: the catalogue size of the coding
    std::int16_t FirstOutput = 0;
    std::int16_t LastOutput = 0; ///< no less than the first, at most 8 banks of outputs in all

    bool operator==(const Vdr810Head&) const = default;
};

/// The error number of a field's fault: TypeMismatchError or OverflowError, 0 for none.
int ErrorOfNumber(NumberFault fault);

/// Reads the head from the beginning of a file's text. A value that is no number is TypeMismatchError, one
/// that its type cannot hold OverflowError, one outside the ranges above SubscriptError, a text that ends
/// early InputPastEndError; `source` names the file in the error. On failure `head` is unchanged.
FileError ReadVdr810Head(TextCursor& text, const std::string& source, Vdr810Head& head);

/// A settings file version in hundredths, as a file has it: rounded to the two decimals that are written.
long VersionHundredths(double version);

/// The head of a logic, the lists counted as its header counts them.
Vdr810Head HeadOf(const LogicConfig& config);

/// The head as files hold it: eleven lines, each ended by CR LF.
std::string Vdr810HeadText(const Vdr810Head& head);

/// A number on a line of its own, a blank in the place of a plus sign, ended by CR LF.
std::string AloneOnLine(std::int32_t value);

/// Makes `config` an empty VDR810 logic of this head, without lists: model, version, groups, coding, outputs.
/// All groups are cleared to the unconnected signal, which stays. File path, title and `Modified` are the
/// caller's.
void BecomeVdr810(LogicConfig& config, const Vdr810Head& head);

} // namespace brindle
