#pragma once

#include "platform/browser.h"
#include "platform/file_system.h"
#include "platform/message_box.h"
#include "settings/settings_file.h"

#include <string>
#include <string_view>
#include <vector>

/// The web pages of the Help menu, and how one is opened. They stand in the settings file:
///
///     [Brindle Web]
///     Page1=https://brindle.example/     the address of an item; empty: no such item
///     Page1Caption=Brindle &Home Page    its text in the menu, "&" marks the access key
///     ...                                up to Page9
///     FtpSite=ftp://ftp.brindle.example/ the address of Software FTP Site
///     FilePage=https://brindle.example/  the address written into Ripplet.htm
///
/// Keys that are missing stand as here (two pages); the domain "example" belongs to nobody, so that nothing
/// is opened by mistake until someone sets an address.
namespace brindle {

inline constexpr const char* SectionWeb = "Brindle Web";
inline constexpr int WebPageItems = 9;

struct WebLink {
    std::string Caption; ///< the address itself where the settings file has none
    std::string Address;

    bool operator==(const WebLink&) const = default;
};

struct WebLinks {
    std::vector<WebLink> Pages; ///< in the order of the menu, at most WebPageItems
    std::string FtpSite;
    std::string FilePage;
};

/// The links of the settings file. One whose address is none that IsWebAddress takes is left out, and
/// `FtpSite` or `FilePage` stands as if it were missing.
WebLinks ReadWebLinks(const SettingsFile& settings);

/// Whether a text can be handed to a browser as its one argument: it begins with "http://", "https://" or
/// "ftp://" and holds no blanks, quotes or control characters, which another program could take for more
/// arguments.
bool IsWebAddress(std::string_view address);

inline constexpr const char* BrowserFileName = "Ripplet.htm"; ///< in the program's folder

/// What opening an address asks of the world around it.
struct WebFunctions {
    std::string ProgramFolder;
    std::string FilePage; ///< the content of the file that the browser is found by, when it is created
    FileSystem Files;
    BrowserFunctions Browser;
    brindle::ShowMessageBox ShowMessageBox;
};

/// Opens a web address in the user's browser, the program that files of the type ".htm" belong to. False, and
/// the user told why, when there is none or it cannot be started.
bool OpenWebAddress(const std::string& address, const WebFunctions& functions);

} // namespace brindle
