#pragma once

#include "files/file_origin.h"
#include "files/file_stamp.h"
#include "platform/message_box.h"

#include <optional>
#include <string>
#include <vector>

namespace brindle {

/// What is known of the file that the logic in the editor is of.
struct LogicFile {
    FileOrigin Origin = FileOrigin::New;
    FileStamp Stamp{};                    ///< its state when it was read or written here last
    FileChange Change = FileChange::None; ///< what had become of it since, when it was last looked at
    std::string Foreign{};              ///< what it is instead of a file of the logic's relay; empty for one
    std::vector<std::string> Misfits{}; ///< of the logic's option file; a sentence each

    [[nodiscard]] bool NeverSaved() const { return Origin != FileOrigin::Opened; }
};

/// The sentences of the line at the foot of the window, the weightiest first; none when all is well.
std::vector<std::string> StatusNotices(const LogicFile& file);

/// The question before Save replaces the file at `path`, which is not, or no longer, what the user takes it
/// for; nothing where Save may go on. `change` is what has become of the file until now.
std::optional<MessageBox> ReplaceQuestion(const LogicFile& file, const std::string& path, FileChange change);

} // namespace brindle
