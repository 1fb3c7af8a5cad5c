#include "settings/recovery_keeper.h"

#include "files/own_file.h"
#include "platform/paths.h"

#include <utility>

namespace brindle {

namespace {

constexpr int GreatestNumber = 20;    // programs that run, and copies left, in one folder
constexpr int LongestWait = 3;        // calls
constexpr int GreatestDamaged = 1000; // files renamed for one number
constexpr const char* CopyEnding = ".brindle";

} // namespace

RecoveryKeeper::RecoveryKeeper(std::string folder, FileSystem files, FileLocks locks)
    : folder_(std::move(folder)), files_(std::move(files)), locks_(std::move(locks)) {}

RecoveryKeeper::~RecoveryKeeper() {
    GiveUpNumber();
}

std::string RecoveryKeeper::PathOf(int number, const char* ending) const {
    return JoinPath(folder_, "Recovery" + std::to_string(number) + ending);
}

bool RecoveryKeeper::HasCopy(int number) const {
    return OwnFileStands(files_, PathOf(number, CopyEnding));
}

bool RecoveryKeeper::TakeNumber(int number) {
    if (locks_.Take(PathOf(number, ".lock"), lock_) != LockOutcome::Taken) {
        return false;
    }
    number_ = number;
    return true;
}

void RecoveryKeeper::GiveUpNumber() {
    if (number_ != 0) {
        locks_.Release(lock_, PathOf(number_, ".lock"));
    }
    number_ = 0;
    lock_ = NoLock;
    kept_.clear();
    mayStand_ = false;
    unsettled_ = false;
}

/// Gives the number free whose copy nobody can read. Whatever bears the name is renamed as it is.
void RecoveryKeeper::MoveAside(int number) {
    for (int count = 1; count <= GreatestDamaged; ++count) {
        const std::string path = PathOf(number, (".damaged-" + std::to_string(count)).c_str());
        if (!OwnFileStands(files_, path)) {
            if (!files_.Rename(PathOf(number, CopyEnding), path).Failed()) {
                damaged_.push_back(path);
            }
            return;
        }
    }
}

std::optional<LeftCopy> RecoveryKeeper::NextLeft() {
    while (locks_.Take && looked_ < GreatestNumber) {
        ++looked_;
        if (!HasCopy(looked_) || !TakeNumber(looked_)) {
            continue;
        }
        std::string bytes;
        LeftCopy left;
        const FileError error = ReadOwnFile(files_, PathOf(looked_, CopyEnding), bytes);
        if (!error.Failed() && DecodeRecoveryCopy(bytes, left.Copy, left.Logic)) {
            kept_ = left.Copy.Logic;
            keptPath_ = left.Copy.Path;
            mayStand_ = true;
            unsettled_ = true;
            return left;
        }
        if (!error.Failed() || error.Number == BadRecordLengthError ||
            OwnFileIsAnother(files_, PathOf(looked_, CopyEnding))) {
            MoveAside(looked_);
        }
        GiveUpNumber();
    }
    return {};
}

void RecoveryKeeper::Adopt() {
    rest_.reset();
    unsettled_ = false;
    looked_ = GreatestNumber; // one logic is open at a time; what else was left is for another start
}

void RecoveryKeeper::Discard() {
    RemoveCopy();
    GiveUpNumber();
}

void RecoveryKeeper::PassOver() {
    GiveUpNumber();
}

void RecoveryKeeper::Rest(const std::string& logic) {
    rest_ = logic;
}

/// A number that is neither another running program's nor that of a copy left.
bool RecoveryKeeper::OwnNumber() {
    for (int number = 1; number_ == 0 && number <= GreatestNumber; ++number) {
        if (TakeNumber(number) && HasCopy(number)) {
            GiveUpNumber();
        }
    }
    return number_ != 0;
}

void RecoveryKeeper::Keep(const RecoveryCopy& work) {
    if (OwnNumber()) {
        mayStand_ = true; // when only its last flush fails, the copy is there all the same
        if (!ReplaceOwnFile(files_, PathOf(number_, CopyEnding), EncodeRecoveryCopy(work)).Failed()) {
            kept_ = work.Logic;
            keptPath_ = work.Path;
        }
    }
    waited_ = 0;
    seen_.clear(); // after a failure, not at every call
}

void RecoveryKeeper::RemoveCopy() {
    if (mayStand_) {
        files_.Remove(PathOf(number_, CopyEnding));
        mayStand_ = false;
        kept_.clear();
    }
}

bool RecoveryKeeper::NeedsCopy(const RecoveryCopy& work) const {
    return !work.Logic.empty() && work.Logic != rest_;
}

bool RecoveryKeeper::IsKept(const RecoveryCopy& work) const {
    return work.Logic == kept_ && work.Path == keptPath_;
}

void RecoveryKeeper::Tick(const RecoveryCopy& work) {
    if (!locks_.Take || unsettled_ || work.Logic.empty()) {
        return;
    }
    if (!NeedsCopy(work)) {
        RemoveCopy();
        waited_ = 0;
        return;
    }
    if (IsKept(work)) {
        waited_ = 0;
        return;
    }
    ++waited_;
    if (work.Logic == seen_ || waited_ >= LongestWait) {
        Keep(work);
        return;
    }
    seen_ = work.Logic;
}

void RecoveryKeeper::KeepAtOnce(const RecoveryCopy& work) {
    if (locks_.Take && !unsettled_ && NeedsCopy(work) && !IsKept(work)) {
        Keep(work);
    }
}

void RecoveryKeeper::SetAside(const RecoveryCopy& work) {
    if (!locks_.Take || work.Logic.empty()) {
        return;
    }
    if (!IsKept(work)) {
        Keep(work);
    }
    GiveUpNumber();
}

void RecoveryKeeper::Close() {
    RemoveCopy();
    GiveUpNumber();
}

} // namespace brindle
