#include "settings/program_version.h"
#include "settings/recent_files.h"
#include "settings/setting_keys.h"
#include "settings/settings_file.h"

#include <iostream>
#include <string>

/// Writes a settings file, or reads one that this program wrote on another system and tells what came out
/// wrong. Started with "write" or "read" and the folder of the file. Exit code 0 is well.
namespace {

using namespace brindle;

constexpr int SmallestTop = -120; // twips; a window may stand above the screen

RecentFiles Used() {
    RecentFiles files;
    files[0] = {"C:\\Relays\\Feeder 12.pl", "Feeder 12.pl", RelayKind::Vdr812};
    files[1] = {"/home/me/two breakers.c10", "two breakers.c10", RelayKind::Vdr810};
    return files;
}

bool Write(SettingsFile& settings) {
    CheckProgramVersion(settings, 1, 7, 3);
    bool well = settings.Write(KeyHomeDir, "C:\\Relays\\", SectionBrindle) &&
                settings.Write(MainWindowKeys.Top, std::to_string(SmallestTop), SectionBrindle);
    const RecentFiles files = Used();
    for (std::size_t entry = 0; entry < files.size(); ++entry) {
        well =
            settings.Write(KeyRecent + std::to_string(entry), RecentFileValue(files[entry]), SectionRecent) &&
            well;
    }
    return well;
}

bool Same(const std::string& what, const std::string& wanted, const std::string& found) {
    if (wanted != found) {
        std::cerr << what << ": \"" << found << "\" in the place of \"" << wanted << "\"\n";
    }
    return wanted == found;
}

/// Whether what was written reads back.
bool Read(SettingsFile& settings) {
    CheckProgramVersion(settings, 1, 7, 3); // of the same version, so nothing is dropped
    bool well = Same("home", "C:\\Relays\\", settings.Read(SectionBrindle, KeyHomeDir));
    well = Same("top", std::to_string(SmallestTop),
                std::to_string(settings.ReadInt(SectionBrindle, MainWindowKeys.Top))) &&
           well;
    well = Same("version", "1.070000", settings.Read(SectionBrindle, KeyBrindleVersion)) && well;
    well = Same("revision", "3", settings.Read(SectionBrindle, KeyRevision)) && well;
    const RecentFiles files = Used();
    for (std::size_t entry = 0; entry < files.size(); ++entry) {
        const std::string key = KeyRecent + std::to_string(entry);
        well = Same(key, RecentFileValue(files[entry]), settings.Read(SectionRecent, key)) && well;
    }
    return well;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "settings_exchange write|read FOLDER\n";
        return 2;
    }
    SettingsFile settings(argv[2], SystemProfile(RealFileSystem()), RealFileSystem(),
                          [](const MessageBox& box) {
                              std::cerr << box.Text << '\n';
                              return MessageAnswer::Ok;
                          });
    const bool writes = std::string(argv[1]) == "write";
    return (writes ? Write(settings) : settings.Exists() && Read(settings)) ? 0 : 1;
}
