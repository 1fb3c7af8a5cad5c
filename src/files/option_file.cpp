#include "files/option_file.h"

#include "files/text_fields.h"
#include "files/vdr810_sections.h"
#include "files/whole_file.h"
#include "platform/ascii.h"
#include "platform/memory_guard.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace brindle {

namespace {

constexpr std::size_t CategoryFields = 3;
constexpr std::size_t LabelFields = 6;
constexpr std::size_t Digits = 5;

/// A number after its letters, filled up to five digits; a longer one stands alone.
std::string NamePart(const std::string& letters, long number) {
    const std::string digits = std::to_string(number);
    return digits.size() < Digits ? letters + std::string(Digits - digits.size(), '0') + digits : digits;
}

bool SameLetters(std::string_view text, std::string_view upper) {
    return std::equal(text.begin(), text.end(), upper.begin(), upper.end(),
                      [](char a, char b) { return UpperLetter(a) == b; });
}

template<class Number>
int ReadNumber(std::string_view field, Number& value) {
    return ErrorOfNumber(ParseNumber(field, value));
}

int ReadFlag(std::string_view field, Bool16& flag) {
    const std::string_view word = Trimmed(field);
    flag = SameLetters(word, "TRUE");
    return flag || SameLetters(word, "FALSE") ? NoFileError : TypeMismatchError;
}

int FirstError(std::initializer_list<int> errors) {
    const auto* failed =
        std::find_if(errors.begin(), errors.end(), [](int error) { return error != NoFileError; });
    return failed == errors.end() ? NoFileError : *failed;
}

/// Takes the lines after the unconnected signal's.
class ListReader {
  public:
    explicit ListReader(OptionFile& option) : option_(option), unconnected_(option.Unconnected) {}

    /// 0, or the number of the error for which the line is refused.
    int Take(std::string_view line) {
        std::string_view first;
        FieldCursor(line).Next(first);
        first = Trimmed(first);
        if (Begin(first)) {
            return NoFileError;
        }
        switch (section_) {
        case Section::Categories:
            return TakeCategory(line, first);
        case Section::Labels:
            return TakeLabel(line);
        case Section::Ended:
            return NoFileError;
        case Section::None:
            break;
        }
        return SubscriptError;
    }

    /// Whether each list has its END entry or all the entries that the head promises.
    [[nodiscard]] bool Whole() const {
        return Whole(option_.Lists.Categories, option_.Head.Categories) &&
               Whole(option_.Lists.Labels, option_.Head.Labels);
    }

  private:
    enum class Section { None, Categories, Labels, Ended };

    /// Of a repeated section the last holds.
    bool Begin(std::string_view tag) {
        if (tag == CategoryTag) {
            section_ = Section::Categories;
            option_.Lists.Categories.clear();
        } else if (tag == LabelTag) {
            section_ = Section::Labels;
            option_.Lists.Labels.clear();
            option_.Unconnected = unconnected_;
        } else {
            return false;
        }
        return true;
    }

    int TakeCategory(std::string_view line, std::string_view first) {
        std::array<std::string_view, CategoryFields> fields;
        Vdr810Category category;
        const int error = ReadNumber(first, category.Number);
        if (error == NoFileError && category.Number == EndNumber) {
            section_ = Section::Ended;
            option_.Lists.Categories.push_back({EndNumber, EndName, EndName});
            return NoFileError;
        }
        if (!SplitFields(line, fields)) {
            return SubscriptError;
        }
        category.Caption = OneField(fields[1]);
        category.Name = OneField(fields[2]);
        return error != NoFileError
                   ? error
                   : Add(option_.Lists.Categories, std::move(category), option_.Head.Categories);
    }

    int TakeLabel(std::string_view line) {
        std::array<std::string_view, LabelFields> fields;
        if (!SplitFields(line, fields)) {
            return SubscriptError;
        }
        Vdr810Label label;
        label.Name = OneField(fields[2]);
        label.Caption = OneField(fields[3]);
        const int error =
            FirstError({ReadNumber(fields[0], label.Category), ReadNumber(fields[1], label.Signal),
                        ReadFlag(fields[4], label.Enabled), ReadFlag(fields[5], label.Visible),
                        label.Name == FalseName ? ReadNumber(fields[1], option_.Unconnected) : NoFileError});
        return error != NoFileError ? error
                                    : Add(option_.Lists.Labels, std::move(label), option_.Head.Labels);
    }

    template<class Entry>
    int Add(std::vector<Entry>& list, Entry entry, std::int16_t promised) {
        if (IsEnd(entry)) {
            section_ = Section::Ended;
        } else if (list.size() >= static_cast<std::size_t>(promised)) {
            return SubscriptError;
        }
        list.push_back(std::move(entry));
        return NoFileError;
    }

    template<class Entry>
    static bool Whole(const std::vector<Entry>& list, std::int16_t promised) {
        return list.size() >= static_cast<std::size_t>(promised) || (!list.empty() && IsEnd(list.back()));
    }

    OptionFile& option_;
    std::int16_t unconnected_; ///< as the line before the lists tells it
    Section section_ = Section::None;
};

/// The entries of a list as a head can count them; the END entry may be one too many.
template<class Entry>
std::int16_t CountOf(const std::vector<Entry>& list) {
    constexpr std::size_t greatest = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(list.size(), greatest));
}

std::string_view FlagWord(Bool16 flag) {
    return flag ? "True" : "False";
}

} // namespace

std::string OptionFileName(double version, int options) {
    return NamePart("PLC", VersionHundredths(version)) + NamePart("_OPT", options) + ".810";
}

namespace {

/// As DecodeOptionFile, but when memory runs out it throws.
FileError DecodeOption(std::string_view text, const std::string& source, OptionFile& option) {
    OptionFile read;
    TextCursor cursor(text);
    FileError error = ReadVdr810Head(cursor, source, read.Head);
    if (error.Failed()) {
        return error;
    }
    std::string_view line;
    if (!cursor.NextFilledLine(line)) {
        return MakeFileError(InputPastEndError, source);
    }
    if (const int number = ReadNumber(line, read.Unconnected); number != NoFileError) {
        return MakeFileError(number, source + ", unconnected signal");
    }
    ListReader lists(read);
    for (int place = 1; cursor.NextFilledLine(line); ++place) {
        if (const int number = lists.Take(line); number != NoFileError) {
            return MakeFileError(number, source + ", line " + std::to_string(place) +
                                             " after the unconnected signal");
        }
    }
    if (!lists.Whole()) {
        return MakeFileError(InputPastEndError, source);
    }
    option = std::move(read);
    return {};
}

} // namespace

FileError DecodeOptionFile(std::string_view text, const std::string& source, OptionFile& option) {
    return TellLackOfMemory([&] { return DecodeOption(text, source, option); });
}

FileError ReadOptionFile(const FileSystem& files, const std::string& path, OptionFile& option) {
    return TellLackOfMemory([&] {
        std::string text;
        const FileError error = ReadWholeText(files, path, text);
        return error.Failed() ? error : DecodeOption(text, "read " + path, option);
    });
}

std::string EncodeOptionFile(const LogicConfig& config) {
    Vdr810Head head = HeadOf(config);
    head.Categories = CountOf(config.Lists.Categories);
    head.Labels = CountOf(config.Lists.Labels);
    std::string text = Vdr810HeadText(head) + AloneOnLine(config.Coding.FalseCode);
    text += std::string(CategoryTag) + "\r\n";
    for (const Vdr810Category& category : config.Lists.Categories) {
        text += std::to_string(category.Number) + "," + OneField(category.Caption) + "," +
                OneField(category.Name) + "\r\n";
    }
    text += std::string(LabelTag) + "\r\n";
    for (const Vdr810Label& label : config.Lists.Labels) {
        text += std::to_string(label.Category) + "," + std::to_string(label.Signal) + "," +
                OneField(label.Name) + "," + OneField(label.Caption) + "," +
                std::string(FlagWord(label.Enabled)) + "," + std::string(FlagWord(label.Visible)) + "\r\n";
    }
    return text;
}

FileError WriteOptionFile(const FileSystem& files, const std::string& folder, const LogicConfig& config) {
    const std::string path =
        JoinPath(folder, OptionFileName(config.Vdr810.SettingsVersion, config.Vdr810.Options));
    FileStatus status;
    FileError error = files.Status(path, status);
    if (error.Failed() || status.Type != FileType::Absent) {
        return error;
    }
    return ReplaceWholeFile(files, path, EncodeOptionFile(config));
}

void TakeLists(LogicConfig& config, const OptionFile& option) {
    Vdr810Lists lists = option.Lists; // apart: memory may run out
    if (option.Unconnected < config.Coding.InvertBase) {
        config.Coding.FalseCode = option.Unconnected;
    }
    config.Lists = std::move(lists);
}

void MakeNewVdr810(LogicConfig& config, const OptionFile& option) {
    config.Coding.FalseCode = option.Unconnected;
    BecomeVdr810(config, option.Head);
    config.Lists = option.Lists;
}

} // namespace brindle
