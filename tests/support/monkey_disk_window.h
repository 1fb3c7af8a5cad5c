#pragma once

#include "platform/file_system.h"
#include "platform/folders.h"
#include "support/monkey_chance.h"

#include <QTemporaryDir>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace brindle {

/// The disk of a random user: real folders of his own, in which he and other programs do mischief too. It
/// keeps account of every file, so that one that the program tore, lost or left behind is found out.
class MonkeyDisk {
  public:
    explicit MonkeyDisk(MonkeyChance& chance);

    /// The real file system, watched: what is written outside the user's folders fails the test, and in a bad
    /// spell operations fail now and then.
    FileSystem Files();

    /// The real folders; a folder made outside the user's own fails the test.
    FolderFunctions Folders();

    [[nodiscard]] std::string ProgramFolder() const { return folders_.front(); }

    /// Whether `path` is the user's root folder or lies in it.
    [[nodiscard]] bool Owns(const std::string& path) const;

    /// The path of a file that is there, or is not, or cannot be used: any name in any of the folders.
    std::string AnyPath(const std::string& extension);

    /// A logic file that may be opened, or be anything else.
    std::string AnyLogicPath();

    /// One thing that another program does: a file is removed, torn, marked read-only or made; or the disk
    /// fails for a while.
    void DoMischief();

    /// What happened since the last BeginAction.
    void BeginAction();

    [[nodiscard]] bool Read(const std::string& path) const { return read_.contains(path); }

    [[nodiscard]] const std::set<std::string>& FilesRead() const { return read_; }

    [[nodiscard]] const std::set<std::string>& FilesWritten() const { return wrote_; }

    [[nodiscard]] bool Wrote(const std::string& path) const { return wrote_.contains(path); }

    /// A file whose logic this program's rules need not hold for: nobody checks the bytes of a file.
    [[nodiscard]] bool IsForeign(const std::string& path) const { return foreign_.contains(path); }

    void MarkForeign(const std::string& path, bool foreign);

    [[nodiscard]] bool HadBadSpell() const { return hadBadSpell_; }

    void ForgetBadSpells();

    /// Called when the program has put a file in its place, with its path and content.
    std::function<void(const std::string& path, const std::string& content)> WhenWritten =
        [](const std::string&, const std::string&) {};

    /// Every file holds what was last written to it, and there is none that nobody made.
    void ExpectAllKept() const;

    [[nodiscard]] std::size_t FaultsInjected() const { return faults_; }

    [[nodiscard]] std::size_t WriteCount() const { return writeCount_; }

  private:
    void Put(const std::string& path, const std::string& content, bool foreign);
    void PutLogicFiles();
    void PutRandomFile();
    void RemoveOrTear();
    void RemovePrints(); ///< they are large, and each is looked at again and again
    std::string AnyKnownFile();
    std::string AnyFileName(const std::string& extension);
    [[nodiscard]] FileError Fault(const std::string& operation);
    void ExpectOwn(const std::string& path) const;
    void WatchWritingInPlace(FileSystem& files, const FileSystem& real);
    void NoteBrokenOff(FileHandle handle);

    MonkeyChance& chance_;
    QTemporaryDir outer_; ///< holds the root and nothing else
    std::string root_;
    std::vector<std::string> folders_; ///< the program's first
    std::map<std::string, std::string> files_;
    std::set<std::string> foreign_;
    std::set<std::string> read_;
    std::set<std::string> wrote_;
    std::map<FileHandle, std::string> inPlace_; ///< files that are being written where they stand
    std::set<std::string> brokenOff_;           ///< those of them, in this action, of which a writing failed
    int badOperations_ = 0;                     ///< operations until the disk is well again
    bool hadBadSpell_ = false;
    std::size_t faults_ = 0;
    std::size_t writeCount_ = 0;
};

} // namespace brindle
