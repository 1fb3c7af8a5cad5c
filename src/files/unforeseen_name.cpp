#include "files/unforeseen_name.h"

#include <array>
#include <charconv>

namespace brindle {

namespace {

constexpr int Attempts = 16; // each is lost only to a program that has just taken the same name
constexpr std::size_t DigitsOfName = 16;

std::string HexadecimalText(std::uint64_t number) {
    constexpr int base = 16;
    std::array<char, DigitsOfName> digits{};
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number, base).ptr;
    const std::string text(digits.data(), end);
    return std::string(DigitsOfName - text.size(), '0') + text;
}

} // namespace

FileError CreateUnforeseen(const FileSystem& files,
                           const std::function<FileError(const std::string& digits)>& create) {
    FileError error;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        error = create(HexadecimalText(files.Chance()));
        if (error.Number != FileAlreadyExistsError) {
            return error;
        }
    }
    return {InternalError, "The folder takes no new file: each name that was tried is taken already.",
            error.Source};
}

} // namespace brindle
