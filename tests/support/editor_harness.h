#pragma once

#include "editor/editor.h"
#include "support/memory_profile.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace brindle {

/// An editor without a window: files in memory by path, boxes and dialogs answered from lists, and a log of
/// what was asked of the window. Folders exist when `Folders` names them.
class EditorHarness {
  public:
    EditorHarness();

    /// Makes the editor, initialises and loads it.
    void Start();

    Editor& operator*() { return *editor_; }

    Editor* operator->() { return editor_.get(); }

    /// The lines of `Log` that begin with `start`.
    [[nodiscard]] std::size_t Count(const std::string& start) const;

    void AnswerBox(MessageAnswer answer) { boxAnswers_.push_back(answer); }

    void ChooseFile(const std::string& folder, const std::string& name, int filterIndex = 1);

    void CancelFile() { fileAnswers_.emplace_back(); }

    static constexpr const char* ProgramFolder = "/opt/brindle";

    MemoryProfile Profile;
    bool ProfileOnDisk = false; ///< the settings are kept in a file of `Surroundings.Files` instead
    EditorSurroundings Surroundings;
    std::map<std::string, std::string> Files; ///< content by path
    std::set<std::string> Folders{"/opt/brindle"};
    int FailWith = 0; ///< every file operation that opens or creates fails with this error number
    std::string CurrentFolder = "/";
    std::vector<MessageBox> Boxes;
    std::vector<FileDialogRequest> Dialogs;
    /// What the user does in the options dialog; false, or none, cancels it.
    std::function<bool(Vdr810Options& options)> ChooseOptions;
    std::vector<std::string> OfferedVersions; ///< in the options dialog shown last
    std::vector<std::string> ShownStatus;     ///< the sentences at the foot of the window
    std::vector<std::string> Log;             ///< what was asked of the window, in order

  private:
    void SupplyFiles();
    void SupplySettings();
    EditorWindow LoggingWindow();
    [[nodiscard]] std::vector<std::string> FilesIn(const std::string& folder) const;

    std::unique_ptr<Editor> editor_;
    std::deque<MessageAnswer> boxAnswers_;
    std::deque<std::optional<FileDialogAnswer>> fileAnswers_;
    FormBounds bounds_{0, 0, 9000, 12000};
    std::string openPath_; ///< of the file being read or written
    std::size_t readPosition_ = 0;
};

} // namespace brindle
