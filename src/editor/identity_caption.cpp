#include "editor/identity_caption.h"

#include "model/number_text.h"

namespace brindle {

namespace {

/// Pattern "0000".
std::string FourDigits(int number) {
    constexpr std::size_t width = 4;
    std::string digits = std::to_string(number < 0 ? -number : number);
    if (digits.size() < width) {
        digits.insert(0, width - digits.size(), '0');
    }
    return number < 0 ? "-" + digits : digits;
}

} // namespace

std::string IdentityCaption(const LogicConfig& config, const std::string& date, const std::string& time,
                            const std::string& missingOptionFile) {
    if (config.RelayModel == RelayKind::Vdr812) {
        return {};
    }
    std::string caption = "File: " + config.FileTitle + "\r\nDate:" + date + "  Time:" + time +
                          "\r\nVersion:" + FormatFixed(config.Vdr810.SettingsVersion, 2) +
                          "  Options:" + FourDigits(config.Vdr810.Options);
    if (!missingOptionFile.empty()) {
        caption += "\r\nMissing: " + missingOptionFile;
    }
    return caption;
}

} // namespace brindle
