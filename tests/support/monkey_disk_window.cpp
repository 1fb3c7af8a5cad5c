#include "support/monkey_disk_window.h"

#include "platform/paths.h"
#include "settings/setting_keys.h"
#include "support/native_path.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace brindle {

namespace {

namespace fs = std::filesystem;

/// The last three are no names on Windows.
constexpr std::array Stems{"scheme", "New_File", "line 7",     "\u00F6st & v\u00E4st", "100%s", "a.b.c",
                           "-x",     "it's 1",   "comma, too", "\U0001F642",           "UPPER", "[*]",
                           "\"1\"",  "tab\there"};
constexpr int StemsOnWindows = 11;

/// Names are UTF-8 here, and on Windows not what a path takes for one.
fs::path OnDisk(const std::string& path) {
    return std::u8string(path.begin(), path.end());
}

std::string NameOf(const fs::directory_entry& entry) {
    const std::u8string name = entry.path().u8string();
    return {name.begin(), name.end()};
}

std::string ContentOf(const std::string& name) {
    const fs::path path = OnDisk(name);
    std::error_code failed;
    const std::uintmax_t size = fs::file_size(path, failed);
    std::string content(failed ? 0 : static_cast<std::size_t>(size), '\0');
    std::ifstream(path, std::ios::binary).read(content.data(), static_cast<std::streamsize>(content.size()));
    return content;
}

bool IsLogicName(const std::string& path) {
    return path.ends_with(".pl") || path.ends_with(".c10") || path.ends_with(".PL");
}

void SetReadOnly(const std::string& path, bool readOnly) {
    const auto writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code ignored;
    fs::permissions(OnDisk(path), readOnly ? writing : fs::perms::owner_write,
                    readOnly ? fs::perm_options::remove : fs::perm_options::add, ignored);
}

} // namespace

MonkeyDisk::MonkeyDisk(MonkeyChance& chance) : chance_(chance) {
    root_ = JoinPath(NativePath(outer_.path()), "root");
    for (const char* name : {"program", "work", "work/north bay", "work/s\u00FCd, 100%"}) {
        folders_.push_back(AbsolutePath(root_, name));
        fs::create_directories(OnDisk(folders_.back()));
    }
    fs::create_directories(OnDisk(JoinPath(folders_[1], "folder.pl"))); // a folder named like a file
    Put(JoinPath(ProgramFolder(), "PLC00100_OPT00000.810"), SchemeOptionFile(1.0, 0, 3), false);
    Put(JoinPath(ProgramFolder(), "PLC00230_OPT00012.810"), SchemeOptionFile(2.3, 12), false);
    PutLogicFiles();
}

void MonkeyDisk::PutLogicFiles() {
    const std::string scheme = SchemeLogicFile(2.3, 12);
    Put(JoinPath(folders_[1], "good.c10"), scheme, false);
    Put(JoinPath(folders_[1], "lists of its own.c10"), SchemeLogicFile(3.5, 4), false);
    Put(JoinPath(folders_[1], "refused.c10"), scheme + "9,1\r\n", true);
    Put(JoinPath(folders_[1], "cut.c10"), scheme.substr(0, scheme.size() / 2), true);
    Put(JoinPath(folders_[1], "empty.pl"), "", true);
    Put(JoinPath(folders_[1], "text.pl"), scheme, true);
    Put(JoinPath(folders_[1], "short.pl"), std::string(700, '\1'), true);
    Put(JoinPath(folders_[1], "readonly.pl"), std::string(2048, '\2'), true);
    SetReadOnly(JoinPath(folders_[1], "readonly.pl"), true);
}

void MonkeyDisk::Put(const std::string& path, const std::string& content, bool foreign) {
    SetReadOnly(path, false);
    std::ofstream file(OnDisk(path), std::ios::binary);
    if (!file) {
        return; // too long a name
    }
    file << content;
    files_[path] = content;
    MarkForeign(path, foreign);
}

void MonkeyDisk::MarkForeign(const std::string& path, bool foreign) {
    if (foreign) {
        foreign_.insert(path);
    } else {
        foreign_.erase(path);
    }
}

bool MonkeyDisk::Owns(const std::string& path) const {
    return path == root_ || path.starts_with(AddTrailingSeparator(root_));
}

void MonkeyDisk::ExpectOwn(const std::string& path) const {
    EXPECT_TRUE(Owns(path)) << "outside the user's folders: " << path;
}

FileError MonkeyDisk::Fault(const std::string& operation) {
    if (badOperations_ == 0) {
        return {};
    }
    --badOperations_;
    if (!chance_.OneIn(4)) {
        return {};
    }
    ++faults_;
    static constexpr std::array numbers{DeviceIoError,         DiskFullError,   DeviceUnavailableError,
                                        PermissionDeniedError, PathAccessError, InternalError};
    return MakeFileError(chance_.Pick(numbers), operation);
}

FileSystem MonkeyDisk::Files() {
    FileSystem files = RealFileSystem();
    const FileSystem real = files;
    files.OpenForReading = [this, real](const std::string& path, FileHandle& handle) {
        FileError fault = Fault("open " + path);
        if (fault.Failed()) {
            return fault;
        }
        brokenOff_.erase(path); // tried again: what it holds is read first
        FileError error = real.OpenForReading(path, handle);
        if (!error.Failed() && IsLogicName(path)) {
            read_.insert(path);
        }
        return error;
    };
    files.OpenItself = [this, real](const std::string& path, FileHandle& handle) {
        FileError fault = Fault("open " + path);
        FileError error = fault.Failed() ? fault : real.OpenItself(path, handle);
        if (!error.Failed() && path.ends_with(".brindle")) {
            read_.insert(path);
        }
        return error;
    };
    files.CreateNew = [this, real](const std::string& path, std::uint32_t mode, FileHandle& handle) {
        ExpectOwn(path);
        FileError fault = Fault("create " + path);
        return fault.Failed() ? fault : real.CreateNew(path, mode, handle);
    };
    files.CreateLike = [this, real](const std::string& path, const std::string& old, FileHandle& handle,
                                    FileTraits& lost) {
        ExpectOwn(path);
        FileError fault = Fault("create " + path);
        return fault.Failed() ? fault : real.CreateLike(path, old, handle, lost);
    };
    files.Write = [this, real](FileHandle handle, const char* bytes, std::size_t size) {
        FileError fault = Fault("write");
        if (fault.Failed()) {
            NoteBrokenOff(handle);
            static_cast<void>(real.Write(handle, bytes, size / 2)); // as a disk that becomes full does
            return fault;
        }
        return real.Write(handle, bytes, size);
    };
    // The real flush is what takes the time of a long run, and no power fails here.
    files.Flush = [this](FileHandle handle) {
        FileError fault = Fault("flush");
        if (fault.Failed()) {
            NoteBrokenOff(handle);
        }
        return fault;
    };
    files.FlushFolder = [this](const std::string& folder) { return Fault("flush " + folder); };
    files.Rename = [this, real](const std::string& from, const std::string& to) {
        ExpectOwn(to);
        FileError error = Fault("rename to " + to);
        if (!error.Failed()) {
            error = real.Rename(from, to);
        }
        if (!error.Failed()) {
            ++writeCount_;
            files_.erase(from); // a recovery copy that was meddled with is put aside
            wrote_.insert(to);
            files_[to] = ContentOf(to);
            WhenWritten(to, files_[to]);
        }
        return error;
    };
    files.Remove = [this, real](const std::string& path) {
        ExpectOwn(path);
        FileError error = real.Remove(path);
        if (!error.Failed() && path.ends_with(".brindle")) { // a recovery copy that is needed no more
            files_.erase(path);
        }
        return error;
    };
    WatchWritingInPlace(files, real);
    return files;
}

/// A file that is written where it stands counts as written once it is closed, unless that was broken off:
/// then what it held is written back.
void MonkeyDisk::WatchWritingInPlace(FileSystem& files, const FileSystem& real) {
    files.OpenInPlace = [this, real](const std::string& path, FileHandle& handle) {
        ExpectOwn(path);
        FileError error = Fault("open " + path);
        if (!error.Failed()) {
            error = real.OpenInPlace(path, handle);
        }
        if (!error.Failed()) {
            inPlace_[handle] = path;
        }
        return error;
    };
    files.CutOff = [this, real](FileHandle handle, std::size_t size) {
        FileError fault = Fault("cut off");
        if (fault.Failed()) {
            NoteBrokenOff(handle);
        }
        return fault.Failed() ? fault : real.CutOff(handle, size);
    };
    files.Close = [this, real](FileHandle handle) {
        FileError error = real.Close(handle);
        if (const auto closed = inPlace_.extract(handle); !closed.empty()) {
            const std::string& path = closed.mapped();
            files_[path] = ContentOf(path);
            if (brokenOff_.count(path) == 0) {
                ++writeCount_;
                wrote_.insert(path);
                WhenWritten(path, files_[path]);
            }
        }
        return error;
    };
}

void MonkeyDisk::NoteBrokenOff(FileHandle handle) {
    if (const auto written = inPlace_.find(handle); written != inPlace_.end()) {
        brokenOff_.insert(written->second);
    }
}

FolderFunctions MonkeyDisk::Folders() {
    FolderFunctions folders = RealFolders();
    folders.MakeFolder = [this, make = folders.MakeFolder](const std::string& path) {
        ExpectOwn(path);
        FileError error = make(path);
        if (!error.Failed() && folders_.size() < 12) {
            folders_.push_back(path);
        }
        return error;
    };
    return folders;
}

std::string MonkeyDisk::AnyFileName(const std::string& extension) {
    if (chance_.OneIn(60)) {
        return std::string(static_cast<std::size_t>(chance_.Number(200, 300)), 'n') + "." + extension;
    }
    const int stems = SystemPaths.Drives ? StemsOnWindows : static_cast<int>(Stems.size());
    return std::string(Stems.at(static_cast<std::size_t>(chance_.Number(0, stems - 1)))) + "." + extension;
}

std::string MonkeyDisk::AnyPath(const std::string& extension) {
    if (chance_.OneIn(40)) {
        return JoinPath(JoinPath(root_, "missing"), AnyFileName(extension));
    }
    return JoinPath(chance_.Pick(folders_), AnyFileName(extension));
}

std::string MonkeyDisk::AnyKnownFile() {
    return std::next(files_.begin(), chance_.Number(0, static_cast<int>(files_.size()) - 1))->first;
}

std::string MonkeyDisk::AnyLogicPath() {
    switch (chance_.Number(0, 9)) {
    case 0:
        return chance_.Pick(folders_);
    case 1:
        return JoinPath(folders_[1], "folder.pl");
    case 2:
    case 3:
        return AnyPath(chance_.OneIn(2) ? "pl" : "c10");
    default:
        for (int tries = 0; tries < 5; ++tries) {
            if (std::string path = AnyKnownFile(); IsLogicName(path)) {
                return path;
            }
        }
        return AnyKnownFile(); // whatever it is
    }
}

void MonkeyDisk::RemoveOrTear() {
    const std::string path = AnyKnownFile();
    if (path.ends_with(SettingsFileName)) {
        return; // its own tests do that; without it the monkey could not tell what it should say
    }
    if (chance_.OneIn(2)) {
        fs::remove(OnDisk(path));
        files_.erase(path);
    } else {
        const std::string& content = files_.at(path);
        Put(path, content.substr(0, content.size() / 2), true);
    }
}

void MonkeyDisk::PutRandomFile() {
    std::string bytes(static_cast<std::size_t>(chance_.Number(0, 2500)), '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(chance_.Number(-128, 127));
    }
    if (chance_.OneIn(4)) {
        const std::string number = std::to_string(chance_.Number(10000, 10004)).substr(1);
        Put(JoinPath(ProgramFolder(), "PLC0" + number + "_OPT00001.810"), bytes, true);
        return;
    }
    Put(JoinPath(chance_.Pick(folders_), AnyFileName(chance_.OneIn(2) ? "pl" : "c10")), bytes, true);
}

void MonkeyDisk::RemovePrints() {
    std::erase_if(files_, [](const auto& file) {
        return (file.first.ends_with(".pdf") || file.first.ends_with(".txt")) &&
               fs::remove(OnDisk(file.first));
    });
}

void MonkeyDisk::DoMischief() {
    switch (chance_.Number(0, 9)) {
    case 0:
    case 1:
    case 2:
        RemoveOrTear();
        break;
    case 3:
        PutRandomFile();
        break;
    case 4:
        if (const std::string path = AnyKnownFile(); !path.ends_with(SettingsFileName)) {
            SetReadOnly(path, true);
        }
        break;
    case 5:
    case 6:
        SetReadOnly(AnyKnownFile(), false);
        break;
    case 7:
        RemovePrints();
        PutLogicFiles();
        Put(JoinPath(ProgramFolder(), "PLC00230_OPT00012.810"), SchemeOptionFile(2.3, 12), false);
        break;
    default:
        badOperations_ = chance_.Number(1, 60);
        hadBadSpell_ = true;
    }
}

void MonkeyDisk::BeginAction() {
    brokenOff_.clear();
    read_.clear();
    wrote_.clear();
}

void MonkeyDisk::ForgetBadSpells() {
    badOperations_ = 0;
    hadBadSpell_ = false;
}

void MonkeyDisk::ExpectAllKept() const {
    for (const auto& [path, content] : files_) {
        ASSERT_TRUE(fs::is_regular_file(OnDisk(path))) << "lost: " << path;
        ASSERT_EQ(ContentOf(path), content) << "changed by nobody: " << path;
    }
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(OnDisk(root_))) {
        const bool lock = entry.path().extension() == ".lock"; // of the running program's recovery copy
        // Of a file that was written in its place while the disk failed.
        const bool copy = faults_ > 0 && NameOf(entry).find("BeforeSave-") != std::string::npos;
        ASSERT_TRUE(entry.is_directory() || lock || copy || files_.contains(NameOf(entry)))
            << "left behind: " << entry.path();
    }
    const fs::path outer = OnDisk(outer_.path().toStdString());
    ASSERT_EQ(std::distance(fs::directory_iterator(outer), fs::directory_iterator()), 1)
        << "something was made beside the user's root";
}

} // namespace brindle
