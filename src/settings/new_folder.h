#pragma once

#include "platform/folders.h"
#include "platform/input_box.h"
#include "platform/message_box.h"
#include "platform/paths.h"

#include <optional>
#include <string>
#include <string_view>

/// Making a folder whose name the user types.
namespace brindle {

inline constexpr std::size_t GreatestFolderName = 100; // characters

/// What is wrong with a folder's name, in the order in which it is looked for.
enum class FolderNameFault {
    None,
    TooLong, ///< more than GreatestFolderName characters
    Empty,
    IllegalCharacter
};

struct JudgedFolderName {
    FolderNameFault Fault = FolderNameFault::None;
    std::string Offered;   ///< of a name that is too long: its first characters, as many as may be
    std::string Character; ///< the first illegal one
};

/// Judges a name, UTF-8. Letters A to Z of either case, digits, "_", "-", "~" and blanks may stand in one.
JudgedFolderName JudgeFolderName(std::string_view name);

/// What making a folder asks of the world around it.
struct NewFolderFunctions {
    FolderFunctions Folders;
    brindle::ShowMessageBox ShowMessageBox;
    brindle::ShowInputBox ShowInputBox;
};

/// Asks for the name of a folder to make in `folder`, judges it and makes it. Returns its path; nothing when
/// the user cancelled or the folder was not made, which the user then has been told.
std::optional<std::string> MakeNewFolder(const std::string& folder, const NewFolderFunctions& functions,
                                         const PathStyle& style = SystemPaths);

} // namespace brindle
