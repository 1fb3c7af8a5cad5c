#include "fuzz/check.h"
#include "settings/profile_text.h"
#include "settings/program_version.h"
#include "settings/recent_files.h"
#include "settings/web_links.h"
#include "settings/window_placement.h"
#include "support/memory_profile.h"

#include <optional>
#include <string>
#include <string_view>

namespace brindle {
namespace {

/// What stands before the next zero byte; it and the byte are taken off.
std::string TakePart(std::string_view& bytes) {
    const std::size_t end = bytes.find('\0');
    std::string part(bytes.substr(0, end));
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    return part;
}

/// An entry that is stored reads back, and its deletion brings it to an end.
void RequireEdit(std::string_view text, const std::string& section, const std::string& key,
                 const std::string& value) {
    if (!IsProfileEntry(section, key, value)) {
        return;
    }
    const std::string set = SetProfileValue(text, section, key, value);
    const std::optional<std::string> found = FindProfileValue(set, section, key);
    Require(found == value, "a value reads back as it was stored");
    Require(SetProfileValue(set, section, key, value) == set, "storing the same again changes nothing");
    Require(!FindProfileValue(DeleteProfileKey(set, section, key), section, key), "a deleted key is gone");
    Require(!FindProfileValue(DeleteProfileSection(set, section), section, key), "a deleted section is gone");
}

/// All that a start of the program reads, and what it stores.
void StartWith(const std::string& text) {
    MemoryProfile profile;
    profile.Text = text;
    SettingsFile settings = profile.Settings();
    CheckProgramVersion(settings, 1, 0, 0);
    const WebLinks links = ReadWebLinks(settings);
    Require(IsWebAddress(links.FtpSite) && IsWebAddress(links.FilePage), "an address that is offered is one");
    FormBounds bounds{0, 0, 9000, 12000};
    PlacedForm form;
    form.Screen = [] { return ScreenSize{16200, 28800}; };
    form.State = [] { return WindowState::Normal; };
    form.Bounds = [&bounds] { return bounds; };
    form.Place = [&bounds](const FormBounds& placed) { bounds = placed; };
    form.Maximise = [] {};
    RestorePlacement(settings, SectionBrindle, form, MainWindowKeys);
    Require(bounds.Height > 0 && bounds.Width > 0, "a window has a size");
    Require(bounds.Top < 16200 && bounds.Left < 28800, "a window begins on the screen");
    for (int index = 0; index < RecentFileCount; ++index) {
        const std::string value = settings.Read(SectionRecent, KeyRecent + std::to_string(index), "EMPTY");
        if (const std::optional<RecentFile> file = ParseRecentFile(value)) {
            Require(ParseRecentFile(RecentFileValue(*file)) == file,
                    "a recent file is stored as it was read");
        }
    }
}

} // namespace
} // namespace brindle

/// A settings file of any bytes, after a section, a key and a value that each end at a zero byte.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindle;
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string section = TakePart(bytes);
    const std::string key = TakePart(bytes);
    const std::string value = TakePart(bytes);
    RequireEdit(bytes, section, key, value);
    StartWith(std::string(bytes));
    return 0;
}
