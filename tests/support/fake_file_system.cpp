#include "support/fake_file_system.h"

#include <algorithm>
#include <iterator>

namespace brindle {

namespace {

constexpr std::uint32_t UsualMode = 0644;
constexpr std::uint32_t WriteBits = 0222;
constexpr int GreatestLinkDepth = 40;

/// The folder of `path`, without a separator at its end but for the root.
std::string FolderOf(const std::string& path) {
    const std::size_t separator = path.rfind('/');
    return separator == 0 || separator == std::string::npos ? "/" : path.substr(0, separator);
}

std::string WithoutEndingSeparator(const std::string& folder) {
    return folder.size() > 1 && folder.back() == '/' ? folder.substr(0, folder.size() - 1) : folder;
}

} // namespace

FakeFileSystem::FakeFileSystem() {
    AddFolder("/");
}

FileSystem FakeFileSystem::Operations() {
    FileSystem files;
    files.Status = [this](const auto& path, auto& status) { return Status(path, status); };
    files.FollowLinks = [this](const auto& path, auto& target) { return FollowLinks(path, target); };
    files.OpenForReading = [this](const auto& path, auto& handle) { return OpenExisting(path, handle); };
    files.OpenItself = [this](const auto& path, auto& handle) { return OpenItself(path, handle); };
    files.Read = [this](FileHandle handle, char* bytes, std::size_t size, std::size_t& got) {
        return Read(handle, bytes, size, got);
    };
    files.CreateNew = [this](const auto& path, auto mode, auto& handle) {
        return CreateNew(path, mode, handle);
    };
    files.CreateLike = [this](const auto& path, const auto& old, auto& handle, auto& lost) {
        return CreateLike(path, old, handle, lost);
    };
    files.OpenInPlace = [this](const auto& path, auto& handle) { return OpenInPlace(path, handle); };
    files.Write = [this](auto handle, const char* bytes, auto size) { return Write(handle, bytes, size); };
    files.CutOff = [this](auto handle, auto size) { return CutOff(handle, size); };
    files.Flush = [this](auto handle) { return Flush(handle); };
    files.Close = [this](auto handle) { return Close(handle); };
    files.Rename = [this](const auto& from, const auto& to) { return Rename(from, to); };
    files.Remove = [this](const auto& path) { return Remove(path); };
    files.RemoveAbandoned = [this](const auto& path) { return RemoveAbandoned(path); };
    files.IsAbandoned = [this](const auto& path) {
        const auto found = names_.find(path);
        return found != names_.end() && !IsOpen(found->second);
    };
    files.NamesIn = [this](const auto& folder, const auto& start) { return NamesIn(folder, start); };
    files.Chance = [this] { return ++chance_; };
    files.FlushFolder = [this](const auto& folder) { return FlushFolder(folder); };
    return files;
}

void FakeFileSystem::Add(const std::string& path, FileType type, std::uint32_t mode,
                         const std::string& bytes) {
    auto node = std::make_shared<Node>();
    node->Type = type;
    node->Mode = mode;
    node->Bytes = bytes;
    node->FlushedBytes = bytes;
    node->Number = ++lastNumber_;
    node->WrittenAt = ++clock_;
    names_[path] = node;
    flushedNames_[path] = node;
}

void FakeFileSystem::AddFolder(const std::string& path, std::uint32_t mode) {
    Add(path, FileType::Folder, mode, "");
}

void FakeFileSystem::AddFile(const std::string& path, const std::string& bytes, std::uint32_t mode) {
    Add(path, FileType::Regular, mode, bytes);
}

void FakeFileSystem::AddLink(const std::string& path, const std::string& target) {
    Add(path, FileType::Other, 0777, "");
    names_[path]->LinkTarget = target;
}

void FakeFileSystem::AddName(const std::string& path, const std::string& file) {
    names_[path] = names_.at(file);
    flushedNames_[path] = names_.at(file);
}

void FakeFileSystem::AddDevice(const std::string& path) {
    Add(path, FileType::Device, 0666, "");
}

void FakeFileSystem::AddPipe(const std::string& path) {
    Add(path, FileType::Other, 0666, "");
}

std::optional<std::string> FakeFileSystem::Content(const std::string& path) const {
    const Node* node = Find(path);
    if (node == nullptr || (node->Type != FileType::Regular && node->Type != FileType::Device)) {
        return {};
    }
    return node->Bytes;
}

std::uint32_t FakeFileSystem::Mode(const std::string& path) const {
    const Node* node = Find(path);
    return node == nullptr ? 0 : node->Mode;
}

bool FakeFileSystem::IsLink(const std::string& path) const {
    const auto found = names_.find(path);
    return found != names_.end() && !found->second->LinkTarget.empty();
}

std::vector<std::string> FakeFileSystem::Names() const {
    std::vector<std::string> names;
    for (const auto& [path, node] : names_) {
        names.push_back(path);
    }
    return names;
}

void FakeFileSystem::FailOnce(std::size_t n, int error) {
    fault_ = [failing = log_.size() + n, error](std::size_t operation, const std::string& /*record*/) {
        return operation == failing ? error : int{NoFileError};
    };
}

void FakeFileSystem::FailFrom(std::size_t n, int error) {
    fault_ = [first = log_.size() + n, error](std::size_t operation, const std::string& /*record*/) {
        return operation >= first ? error : int{NoFileError};
    };
}

void FakeFileSystem::FailAll(const std::string& log, int error) {
    fault_ = [log, error](std::size_t /*operation*/, const std::string& record) {
        return record.rfind(log, 0) == 0 ? error : int{NoFileError};
    };
}

void FakeFileSystem::Crash(UnflushedNames names) {
    open_.clear();
    if (names == UnflushedNames::Forgotten) {
        names_ = flushedNames_;
    } else {
        flushedNames_ = names_;
    }
    for (const auto& [path, node] : names_) {
        if (names == UnflushedNames::Kept && node->Bytes != node->FlushedBytes) {
            const std::size_t half = node->Bytes.size() / 2;
            node->FlushedBytes.replace(0, half, node->Bytes, 0, half);
        }
        node->Bytes = node->FlushedBytes;
    }
}

FileError FakeFileSystem::Begin(const std::string& record) {
    log_.push_back(record);
    const int error = fault_ ? fault_(log_.size(), record) : int{NoFileError};
    return error == NoFileError ? FileError{} : MakeFileError(error, record);
}

/// The path that links lead to from `path`; empty when they lead in a circle.
std::string FakeFileSystem::Follow(const std::string& path) const {
    std::string target = path;
    for (int depth = 0; depth < GreatestLinkDepth; ++depth) {
        const auto found = names_.find(target);
        if (found == names_.end() || found->second->LinkTarget.empty()) {
            return target;
        }
        const std::string& link = found->second->LinkTarget;
        const std::string folder = FolderOf(target);
        target = link.front() == '/' ? link : (folder == "/" ? "" : folder) + "/" + link;
    }
    return {};
}

const FakeFileSystem::Node* FakeFileSystem::Find(const std::string& path) const {
    const auto found = names_.find(Follow(path));
    return found == names_.end() ? nullptr : found->second.get();
}

FileError FakeFileSystem::Missing(const std::string& record, const std::string& path) const {
    return MakeFileError(Find(FolderOf(path)) == nullptr ? PathNotFoundError : FileNotFoundError, record);
}

bool FakeFileSystem::FolderTakesNames(const std::string& path) const {
    const Node* folder = Find(FolderOf(path));
    return folder != nullptr && (folder->Mode & WriteBits) != 0;
}

FileHandle FakeFileSystem::Open(const std::string& path) {
    open_[++lastHandle_] = {names_.at(path), 0};
    return lastHandle_;
}

FileError FakeFileSystem::Status(const std::string& path, FileStatus& status) {
    status = {};
    FileError error = Begin("status " + path);
    if (error.Failed()) {
        return error;
    }
    if (path.empty()) {
        return MakeFileError(BadFileNameError, "status");
    }
    if (const Node* node = Find(path); node != nullptr) {
        status = {node->Type,      node->Bytes.size(), node->Mode, (node->Mode & WriteBits) != 0,
                  node->WrittenAt, {1, node->Number}};
        status.Names = static_cast<std::uint64_t>(std::count_if(
            names_.begin(), names_.end(), [node](const auto& name) { return name.second.get() == node; }));
    }
    return {};
}

FileError FakeFileSystem::FollowLinks(const std::string& path, std::string& target) {
    FileError error = Begin("follow " + path);
    if (!error.Failed()) {
        target = Follow(path);
        if (target.empty()) {
            error = MakeFileError(PathAccessError, "follow " + path);
        }
    }
    return error;
}

FileError FakeFileSystem::OpenExisting(const std::string& path, FileHandle& handle) {
    const std::string record = "open " + path;
    FileError error = Begin(record);
    if (error.Failed()) {
        return error;
    }
    if (Find(path) == nullptr) {
        return Missing(record, path);
    }
    handle = Open(Follow(path));
    return {};
}

FileError FakeFileSystem::OpenItself(const std::string& path, FileHandle& handle) {
    const std::string record = "open itself " + path;
    FileError error = Begin(record);
    if (error.Failed()) {
        return error;
    }
    const auto found = names_.find(path);
    if (found == names_.end()) {
        return Missing(record, path);
    }
    if (found->second->Type != FileType::Regular) {
        return MakeFileError(PathAccessError, record);
    }
    handle = Open(path);
    return {};
}

FileError FakeFileSystem::Read(FileHandle handle, char* bytes, std::size_t size, std::size_t& got) {
    got = 0;
    FileError error = Begin("read");
    if (!error.Failed()) {
        OpenFile& file = open_.at(handle);
        got = file.File->Bytes.copy(bytes, size, file.Position);
        file.Position += got;
    }
    return error;
}

FileError FakeFileSystem::CreateNew(const std::string& path, std::uint32_t mode, FileHandle& handle) {
    const std::string record = "create " + path;
    FileError error = Begin(record);
    if (error.Failed()) {
        return error;
    }
    if (Find(FolderOf(path)) == nullptr) {
        return Missing(record, path);
    }
    if (names_.count(path) != 0) {
        return MakeFileError(FileAlreadyExistsError, record);
    }
    if (!FolderTakesNames(path)) {
        return MakeFileError(PermissionDeniedError, record);
    }
    names_[path] = std::make_shared<Node>();
    names_[path]->Mode = mode == 0 ? UsualMode : mode;
    names_[path]->Number = ++lastNumber_;
    names_[path]->WrittenAt = ++clock_;
    handle = Open(path);
    return {};
}

FileError FakeFileSystem::CreateLike(const std::string& path, const std::string& old, FileHandle& handle,
                                     FileTraits& lost) {
    FileError error = CreateNew(path, Mode(old), handle);
    lost = lost_;
    return error;
}

FileError FakeFileSystem::OpenInPlace(const std::string& path, FileHandle& handle) {
    const Node* node = Find(path);
    FileError error = OpenExisting(path, handle);
    if (!error.Failed() && (node->Mode & WriteBits) == 0) {
        open_.erase(handle);
        return MakeFileError(PermissionDeniedError, "open " + path);
    }
    return error;
}

FileError FakeFileSystem::Write(FileHandle handle, const char* bytes, std::size_t size) {
    FileError error = Begin("write " + std::to_string(size) + " bytes");
    OpenFile& open = open_.at(handle);
    const std::size_t written = error.Failed() ? size / 2 : size;
    open.File->Bytes.replace(open.Position, written, bytes, written);
    open.File->WrittenAt = ++clock_;
    open.Position += written;
    return error;
}

FileError FakeFileSystem::CutOff(FileHandle handle, std::size_t size) {
    FileError error = Begin("cut off at " + std::to_string(size));
    if (!error.Failed()) {
        open_.at(handle).File->Bytes.resize(size);
    }
    return error;
}

FileError FakeFileSystem::Flush(FileHandle handle) {
    FileError error = Begin("flush");
    if (!error.Failed()) {
        Node& file = *open_.at(handle).File;
        file.FlushedBytes = file.Bytes;
    }
    return error;
}

FileError FakeFileSystem::Close(FileHandle handle) {
    open_.at(handle); // a handle closed twice, or never opened, ends the test
    open_.erase(handle);
    return Begin("close");
}

FileError FakeFileSystem::Rename(const std::string& from, const std::string& to) {
    const std::string record = "rename " + from + " to " + to;
    FileError error = Begin(record);
    if (error.Failed()) {
        return error;
    }
    const auto found = names_.find(from);
    if (found == names_.end() || Find(FolderOf(to)) == nullptr) {
        return Missing(record, found == names_.end() ? from : to);
    }
    const auto old = names_.find(to);
    if (!FolderTakesNames(to) || (old != names_.end() && old->second->Type == FileType::Folder)) {
        return MakeFileError(PathAccessError, record);
    }
    const std::shared_ptr<Node> file = found->second;
    names_.erase(found);
    names_[to] = file;
    return {};
}

FileError FakeFileSystem::Remove(const std::string& path) {
    const std::string record = "remove " + path;
    FileError error = Begin(record);
    if (!error.Failed() && names_.erase(path) == 0) {
        error = Missing(record, path);
    }
    return error;
}

FileError FakeFileSystem::RemoveAbandoned(const std::string& path) {
    const std::string record = "remove abandoned " + path;
    FileError error = Begin(record);
    const auto found = names_.find(path);
    if (error.Failed() || found == names_.end()) {
        return error.Failed() ? error : Missing(record, path);
    }
    if (IsOpen(found->second)) {
        return MakeFileError(FileAlreadyOpenError, record);
    }
    names_.erase(found);
    return {};
}

bool FakeFileSystem::IsOpen(const std::shared_ptr<Node>& file) const {
    return std::any_of(open_.begin(), open_.end(),
                       [&](const auto& opened) { return opened.second.File == file; });
}

/// Not an operation that can fail: what is not found then is merely not cleared up.
std::vector<std::string> FakeFileSystem::NamesIn(const std::string& folder, const std::string& start) const {
    const std::string path = (folder == "/" ? "" : WithoutEndingSeparator(folder)) + "/";
    std::vector<std::string> names;
    for (const auto& [name, node] : names_) {
        if (name.starts_with(path + start) && name.find('/', path.size()) == std::string::npos) {
            names.push_back(name.substr(path.size()));
        }
    }
    return names;
}

FileError FakeFileSystem::FlushFolder(const std::string& folder) {
    FileError error = Begin("flush folder " + folder);
    if (error.Failed()) {
        return error;
    }
    const std::string flushed = WithoutEndingSeparator(folder);
    for (auto name = flushedNames_.begin(); name != flushedNames_.end();) {
        const bool gone = FolderOf(name->first) == flushed && names_.count(name->first) == 0;
        name = gone ? flushedNames_.erase(name) : std::next(name);
    }
    for (const auto& [path, node] : names_) {
        if (FolderOf(path) == flushed) {
            flushedNames_[path] = node;
        }
    }
    return {};
}

} // namespace brindle
