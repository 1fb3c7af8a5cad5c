#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The lines and fields of a text file that is held in memory. Nothing is copied: what is returned points
/// into the text. Lines end at CR LF, at LF or at the end of the text, fields at commas.
namespace brindle {

/// A place in a text that moves forward line by line or value by value.
class TextCursor {
  public:
    explicit TextCursor(std::string_view text) : rest_(text) {}

    /// The next line without its end; false at the end of the text.
    bool NextLine(std::string_view& line);

    /// The next line that is not blank; false when there is none.
    bool NextFilledLine(std::string_view& line);

    /// What stands before the next comma or end of line; false at the end of the text.
    bool NextValue(std::string_view& value);

    /// Passes over blank lines; does nothing within a line.
    void SkipBlankLines();

  private:
    std::string_view rest_;
    bool atLineStart_ = true;
};

/// The fields of a line, one after the other.
class FieldCursor {
  public:
    explicit FieldCursor(std::string_view line) : rest_(line), more_(true) {}

    /// The next field; false after the last. An empty line has one empty field.
    bool Next(std::string_view& field);

  private:
    std::string_view rest_;
    bool more_;
};

/// The fields of a line that must have exactly so many; false, and fields of no meaning, for any other.
template<std::size_t Count>
bool SplitFields(std::string_view line, std::array<std::string_view, Count>& fields) {
    FieldCursor cursor(line);
    std::size_t found = 0;
    for (std::string_view field; cursor.Next(field); ++found) {
        if (found == Count) {
            return false;
        }
        fields.at(found) = field;
    }
    return found == Count;
}

/// Number of fields of a line, at least 1.
int FieldCount(std::string_view line);

/// `text` without the blanks and tabs around it.
std::string_view Trimmed(std::string_view text);

/// `text` as a field holds it: commas, carriage returns and line feeds become blanks. What is read from a
/// field goes through here too, for a carriage return amid its line.
std::string OneField(std::string_view text);

enum class NumberFault {
    None,
    NotANumber, ///< not a whole number, or for a real not a decimal number
    OutOfRange  ///< a number that the type asked for cannot hold
};

/// The number that a field holds, blanks around it allowed: an optional sign and digits, for the reals also a
/// point and an exponent. The same in every locale. `value` is set only without a fault.
NumberFault ParseNumber(std::string_view field, std::int16_t& value);
NumberFault ParseNumber(std::string_view field, std::int32_t& value);
NumberFault ParseNumber(std::string_view field, float& value);
NumberFault ParseNumber(std::string_view field, double& value);

/// Reads the fields of a line that are all 32-bit numbers into `numbers` and returns how many they are; 0 for
/// a line with any other field and for one of more fields than `numbers` has room for. The quick way for the
/// many lines that nothing is wrong with.
std::size_t ReadNumbers(std::string_view line, std::span<std::int32_t> numbers);

} // namespace brindle
