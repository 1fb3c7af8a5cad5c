#pragma once

#include "files/whole_file.h"
#include "platform/message_box.h"

#include <string>
#include <vector>

/// What a save asks and tells about the file that it replaces.
namespace brindle {

/// The question about a file that can only be replaced by one that lacks `lost`: Yes writes it in place, No
/// replaces it all the same.
MessageBox LossQuestion(const std::string& path, const FileTraits& lost);

/// How the file at `path` is replaced by one save: the user is asked about a loss, once however often the
/// saving is tried again; the copy of a file that is written in place is kept in `programFolder`.
ReplaceRules RulesOfSave(const std::string& path, const std::string& programFolder,
                         const ShowMessageBox& showMessageBox);

/// Tells of copies that saves left which were broken off; at least one.
MessageBox CopiesLeftNotice(const std::vector<std::string>& copies);

} // namespace brindle
