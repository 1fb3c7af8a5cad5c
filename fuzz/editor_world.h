#pragma once

#include "editor/editor.h"
#include "support/fake_file_system.h"
#include "support/fake_folders.h"
#include "support/fake_locks.h"

#include <cstdint>
#include <memory>
#include <optional>
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

/// How a run of the program ends.
enum class RunEnd {
    Closed,
    Killed,    ///< at once; the system lets go of the locks
    PowerLost, ///< the same, and what was not flushed is gone
};

/// An editor over files in memory, whose boxes and dialogs are answered by the decisions. The disk holds good
/// and bad files of both relays and two option files, and has faults when it is told to.
class EditorWorld {
  public:
    explicit EditorWorld(Decisions& decisions);

    Editor& operator*() { return *editor_; }

    Editor* operator->() { return editor_.get(); }

    FakeFileSystem Disk;

    /// Answers what a start asks about work that was left; without it the decisions do.
    std::optional<MessageAnswer> AnswerAtStart;

    static constexpr const char* ProgramFolder = "/opt/brindle";

    /// Ends the program and starts it again on the same disk.
    void StartAgain(RunEnd end);

    /// The paths of the recovery copies on the disk.
    [[nodiscard]] std::vector<std::string> RecoveryCopies() const;

    /// The files that dialogs choose from; some of them do not exist.
    static const std::vector<std::string>& Paths();

  private:
    void Start();
    EditorSurroundings Surroundings();
    EditorWindow Window();
    MessageAnswer Answer(const MessageBox& box);

    Decisions& decisions_;
    FakeFolders folders_;
    FakeLocks locks_;
    FormBounds bounds_{0, 0, 9000, 12000};
    std::unique_ptr<Editor> editor_;
};

} // namespace brindle
