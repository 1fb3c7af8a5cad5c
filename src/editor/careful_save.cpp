#include "editor/careful_save.h"

#include <algorithm>
#include <optional>

namespace brindle {

namespace {

LossAnswer AnswerOf(MessageAnswer answer) {
    switch (answer) {
    case MessageAnswer::Yes:
        return LossAnswer::WriteInPlace;
    case MessageAnswer::No:
        return LossAnswer::Replace;
    default:
        return LossAnswer::Cancel;
    }
}

} // namespace

MessageBox LossQuestion(const std::string& path, const FileTraits& lost) {
    const bool mayLockOut = lost.Owner || lost.Group || lost.AccessList;
    return {
        path + " can not be replaced by a new file without losing " + ListOfTraits(lost) + "." +
            (mayLockOut ? "  Others may then not be able to open it." : "") +
            "\r\nSelect Yes to write into the file that is there, which loses nothing, No to replace it all "
            "the same, Cancel to leave it as it is.",
        MessageIcon::Exclamation, MessageButtons::YesNoCancel};
}

ReplaceRules RulesOfSave(const std::string& path, const std::string& programFolder,
                         const ShowMessageBox& showMessageBox) {
    const auto ask = [path, showMessageBox,
                      answer = std::optional<LossAnswer>()](const FileTraits& lost) mutable {
        if (!answer) {
            answer = AnswerOf(showMessageBox(LossQuestion(path, lost)));
        }
        return *answer;
    };
    return {programFolder, ask};
}

MessageBox CopiesLeftNotice(const std::vector<std::string>& copies) {
    constexpr std::size_t greatestShown = 5;
    std::string list;
    for (std::size_t i = 0; i < std::min(copies.size(), greatestShown); ++i) {
        list += "\r\n" + copies[i];
    }
    if (copies.size() > greatestShown) {
        list += "\r\nand " + std::to_string(copies.size() - greatestShown) + " more there";
    }
    return {"Saving a file in its place was broken off.  What it held before is kept in" + list +
                "\r\nCompare it with the file, and remove the copy when you do not need it any more.",
            MessageIcon::Exclamation};
}

} // namespace brindle
