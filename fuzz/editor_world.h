#pragma once

#include "editor/editor.h"
#include "support/fake_file_system.h"
#include "support/fake_folders.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace brindle {

/// Bytes that decide what happens, one after the other; 0 once they are used up.
class Decisions {
  public:
    explicit Decisions(std::string_view bytes) : rest_(bytes) {}

    [[nodiscard]] bool Left() const { return !rest_.empty(); }

    int Byte();

    /// A number from `least` to `greatest`.
    int Number(int least, int greatest);

    /// Some of the bytes that are left, at most `longest`.
    std::string Text(std::size_t longest);

  private:
    std::string_view rest_;
};

/// An editor over files in memory, whose boxes and dialogs are answered by the decisions. The disk holds good
/// and bad files of both relays and two option files, and has faults when it is told to.
class EditorWorld {
  public:
    explicit EditorWorld(Decisions& decisions);

    Editor& operator*() { return *editor_; }

    Editor* operator->() { return editor_.get(); }

    FakeFileSystem Disk;

    /// The files that dialogs choose from; some of them do not exist.
    static const std::vector<std::string>& Paths();

  private:
    EditorSurroundings Surroundings();
    EditorWindow Window();
    MessageAnswer Answer(const MessageBox& box);

    Decisions& decisions_;
    FakeFolders folders_;
    FormBounds bounds_{0, 0, 9000, 12000};
    std::unique_ptr<Editor> editor_;
};

} // namespace brindle
