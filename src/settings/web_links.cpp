#include "settings/web_links.h"

#include "files/whole_file.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brindle {

namespace {

const std::array<WebLink, 2> UsualPages{
    WebLink{"Brindle &Home Page", "https://brindle.example/"},
    WebLink{"Relay &Documentation", "https://brindle.example/documentation/"},
};
constexpr const char* UsualFtpSite = "ftp://ftp.brindle.example/";
constexpr const char* UsualFilePage = "https://brindle.example/";

constexpr const char* KeyFtpSite = "FtpSite";
constexpr const char* KeyFilePage = "FilePage";

std::string PageKey(int page) {
    return "Page" + std::to_string(page);
}

WebLink UsualPage(int page) {
    const auto index = static_cast<std::size_t>(page - 1);
    return index < UsualPages.size() ? UsualPages[index] : WebLink{};
}

std::string WithoutAccessKey(std::string_view text) {
    std::string caption;
    for (const char c : text) {
        caption.append(c == '&' ? 2 : 1, c);
    }
    return caption;
}

WebLink ReadPage(const SettingsFile& settings, int page) {
    const WebLink usual = UsualPage(page);
    WebLink link;
    link.Address = settings.Read(SectionWeb, PageKey(page), usual.Address);
    // A page of another address is not the one that the usual caption speaks of.
    const std::string caption =
        link.Address == usual.Address ? usual.Caption : WithoutAccessKey(link.Address);
    link.Caption = settings.Read(SectionWeb, PageKey(page) + "Caption", caption);
    return link;
}

std::string ReadAddress(const SettingsFile& settings, const char* key, const char* usual) {
    const std::string address = settings.Read(SectionWeb, key, usual);
    return IsWebAddress(address) ? address : usual;
}

std::string BrowserFaultText(int fault) {
    switch (fault) {
    case OutOfMemoryFault:
        return "The system is out of memory or resources.";
    case ProgramNotFoundFault:
        return "File not found.  Your browser could not be located.";
    case ProgramPathNotFoundFault:
        return "Path not found.  Your browser could not be located.";
    case CorruptProgramFault:
        return "Your browser could not be started.  It may have a corrupt executable file.";
    case NoAssociationFault:
        return "Your browser does not have the necessary file associations.";
    default:
        return "An unknown error occured trying to open your browser.";
    }
}

/// There is to be a file of the type whose program is asked for. Where it cannot be created, the question
/// itself tells whether it was needed.
void ProvideBrowserFile(const WebFunctions& functions, const std::string& path) {
    if (IsAbsent(functions.Files, path)) {
        ReplaceWholeFile(functions.Files, path, functions.FilePage + "\r\n");
    }
}

} // namespace

bool IsWebAddress(std::string_view address) {
    constexpr std::array<std::string_view, 3> schemes{"http://", "https://", "ftp://"};
    const bool hasScheme = std::any_of(schemes.begin(), schemes.end(), [&](std::string_view scheme) {
        return address.size() > scheme.size() && address.substr(0, scheme.size()) == scheme;
    });
    return hasScheme && std::none_of(address.begin(), address.end(), [](char c) {
               const auto code = static_cast<unsigned char>(c);
               return code <= ' ' || code == 0x7F || c == '"' || c == '\'' || c == '\\';
           });
}

WebLinks ReadWebLinks(const SettingsFile& settings) {
    WebLinks links;
    for (int page = 1; page <= WebPageItems; ++page) {
        WebLink link = ReadPage(settings, page);
        if (IsWebAddress(link.Address)) {
            links.Pages.push_back(std::move(link));
        }
    }
    links.FtpSite = ReadAddress(settings, KeyFtpSite, UsualFtpSite);
    links.FilePage = ReadAddress(settings, KeyFilePage, UsualFilePage);
    return links;
}

bool OpenWebAddress(const std::string& address, const WebFunctions& functions) {
    const std::string file = JoinPath(functions.ProgramFolder, BrowserFileName);
    ProvideBrowserFile(functions, file);
    std::string program;
    int result = functions.Browser.FindExecutable(file, program);
    if (result > GreatestProgramFault) {
        result = functions.Browser.StartProgram(program.substr(0, program.find('\0')), address);
    }
    if (result > GreatestProgramFault) {
        return true;
    }
    functions.ShowMessageBox(
        {"The internet connection could not be established.  The following error was reported:\r\n" +
             BrowserFaultText(result),
         MessageIcon::Exclamation});
    return false;
}

} // namespace brindle
