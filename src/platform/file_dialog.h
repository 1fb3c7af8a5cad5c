#pragma once

#include <functional>
#include <optional>
#include <string>

namespace brindle {

enum class FileDialogKind {
    Open,  ///< the file and its folder must exist
    SaveAs ///< asks before an existing file is chosen; the folder must exist
};

/// What the common file dialog is asked to show.
struct FileDialogRequest {
    FileDialogKind Kind = FileDialogKind::Open;
    std::string Title;
    std::string Filter;           ///< pairs of description and pattern, all joined by "|"
    int FilterIndex = 1;          ///< preset entry of the filter, from 1; may lie beyond the last
    std::string DefaultExtension; ///< without a point
    std::string InitialFileName;  ///< a name, or a path whose folder the dialog opens in; may be a pattern
};

struct FileDialogAnswer {
    std::string FileName;  ///< full path of the chosen file
    std::string FileTitle; ///< its name without folder
    int FilterIndex = 1;   ///< the filter whose extension the name bears, else the preset one
};

/// Runs the dialog and makes the chosen file's folder current; no answer when the user cancelled.
using RunFileDialog = std::function<std::optional<FileDialogAnswer>(const FileDialogRequest& request)>;

} // namespace brindle
