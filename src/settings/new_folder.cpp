#include "settings/new_folder.h"

#include "settings/file_command.h"
#include "settings/utf8_characters.h"

namespace brindle {

namespace {

constexpr std::string_view AllowedCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                               "abcdefghijklmnopqrstuvwxyz"
                                               "0123456789_-~ ";
constexpr const char* AbortedTitle = "Aborted Make Directory Function";

bool MayUseCutName(const std::string& cutName, const ShowMessageBox& showMessageBox) {
    const MessageBox box{"The folder name must be less than " + std::to_string(GreatestFolderName) +
                             " characters.  To use the truncated name " + cutName + " select ok.",
                         MessageIcon::Exclamation, MessageButtons::OkCancel};
    return showMessageBox(box) == MessageAnswer::Ok;
}

void RefuseCharacter(const std::string& character, const ShowMessageBox& showMessageBox) {
    showMessageBox({"The illegal character '" + character +
                        "' was used in the folder name.  \r\n"
                        "Only the characters A to Z, a to z, 0 to 9, and the symbols '_', '-', '~', and "
                        "spaces are allowed.",
                    MessageIcon::Exclamation, MessageButtons::Ok, AbortedTitle});
}

/// The name that the user settles on; nothing when he gave up or the name cannot be used.
std::optional<std::string> AskName(const std::string& folder, const NewFolderFunctions& functions) {
    const InputBox box{"Enter Folder Name", "Enter the folder name to create in " + folder + ".",
                       "New Folder"};
    std::string name = functions.ShowInputBox(box).value_or("");
    JudgedFolderName judged = JudgeFolderName(name);
    if (judged.Fault == FolderNameFault::TooLong) {
        if (!MayUseCutName(judged.Offered, functions.ShowMessageBox)) {
            return {};
        }
        name = judged.Offered;
        judged = JudgeFolderName(name);
    }
    if (judged.Fault == FolderNameFault::IllegalCharacter) {
        RefuseCharacter(judged.Character, functions.ShowMessageBox);
    }
    return judged.Fault == FolderNameFault::None ? std::optional(name) : std::nullopt;
}

} // namespace

JudgedFolderName JudgeFolderName(std::string_view name) {
    if (CharacterCount(name) > GreatestFolderName) {
        return {FolderNameFault::TooLong, std::string(FirstCharacters(name, GreatestFolderName)), {}};
    }
    if (name.empty()) {
        return {FolderNameFault::Empty, {}, {}};
    }
    const std::size_t illegal = name.find_first_not_of(AllowedCharacters);
    if (illegal != std::string_view::npos) {
        return {FolderNameFault::IllegalCharacter, {}, std::string(FirstCharacters(name.substr(illegal), 1))};
    }
    return {};
}

std::optional<std::string> MakeNewFolder(const std::string& folder, const NewFolderFunctions& functions,
                                         const PathStyle& style) {
    const std::optional<std::string> name = AskName(folder, functions);
    if (!name) {
        return {};
    }
    const std::string path = JoinPath(folder, *name, style);
    if (functions.Folders.FolderExists(path)) {
        functions.ShowMessageBox({"The folder '" + *name + "' already exists.", MessageIcon::Exclamation,
                                  MessageButtons::Ok, AbortedTitle});
        return {};
    }
    const FileOutcome outcome =
        RunFileCommand({[&] { return functions.Folders.MakeFolder(path); }},
                       "There was an error trying to create the folder.", functions.ShowMessageBox);
    return outcome == FileOutcome::Done ? std::optional(path) : std::nullopt;
}

} // namespace brindle
