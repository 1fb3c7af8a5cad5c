#include "files/signal_constants.h"

#include "files/whole_file.h"
#include "platform/paths.h"

namespace brindle {

namespace {

constexpr int LastBit = 100;
constexpr int ValueOfFirstBit = 2; // the programs that use the constants count from here
constexpr std::size_t BitDigits = 3;

std::string ThreeDigits(int bit) {
    const std::string digits = std::to_string(bit);
    return std::string(BitDigits - digits.size(), '0') + digits;
}

} // namespace

std::string SignalConstantsText() {
    std::string text;
    for (int bit = 0; bit <= LastBit; ++bit) {
        text += "Public Const PLBIT" + ThreeDigits(bit) +
                " As Integer = " + std::to_string(bit + ValueOfFirstBit) + "\r\n";
    }
    return text;
}

FileError ExportSignalConstants(const FileSystem& files, const std::string& currentFolder) {
    return ReplaceWholeFile(files, JoinPath(currentFolder, SignalConstantsFileName), SignalConstantsText());
}

} // namespace brindle
