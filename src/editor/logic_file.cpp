#include "editor/logic_file.h"

namespace brindle {

namespace {

MessageBox KeepBothQuestion(const std::string& why, const std::string& lost) {
    return {why + "\r\nSave As keeps it and saves this logic under another name.  Overwrite replaces " +
                lost + ".",
            MessageIcon::Exclamation, MessageButtons::SaveAsOverwriteCancel};
}

} // namespace

std::vector<std::string> StatusNotices(const LogicFile& file) {
    std::vector<std::string> notices;
    if (file.Change == FileChange::Changed) {
        notices.emplace_back("Another program has changed this file since it was opened or saved here.");
    }
    if (file.Change == FileChange::Gone) {
        notices.emplace_back("This file has been moved or deleted since it was opened or saved here.");
    }
    if (!file.Foreign.empty()) {
        notices.push_back(file.Foreign);
    }
    notices.insert(notices.end(), file.Misfits.begin(), file.Misfits.end());
    return notices;
}

std::optional<MessageBox> ReplaceQuestion(const LogicFile& file, const std::string& path, FileChange change) {
    if (file.NeverSaved()) {
        return {};
    }
    if (change == FileChange::Changed) {
        return KeepBothQuestion("Another program has changed the file " + path +
                                    " since it was opened or saved here.",
                                "what the other program wrote");
    }
    if (!file.Foreign.empty() && change != FileChange::Gone) {
        return KeepBothQuestion(path + "\r\n" + file.Foreign, "it");
    }
    return {};
}

} // namespace brindle
