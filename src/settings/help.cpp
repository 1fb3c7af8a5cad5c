#include "settings/help.h"

#include "platform/paths.h"

namespace brindle {

void ShowHelp(const std::string& programFolder, const HelpFunctions& functions) {
    const std::string file = JoinPath(programFolder, HelpFileName);
    FileStatus status;
    const bool exists = !functions.Files.Status(file, status).Failed() && status.Type == FileType::Regular;
    if (!exists || !functions.OpenWithEngine(file)) {
        functions.ShowGuide();
    }
}

} // namespace brindle
