#include "settings/recovery_keeper.h"

#include "files/whole_file.h"
#include "platform/paths.h"

#include <utility>

namespace brindle {

namespace {

constexpr int GreatestNumber = 20; // programs that run, and copies left, in one folder
constexpr int LongestWait = 3;     // calls

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
    return !IsAbsent(files_, PathOf(number, ".brindle")); // what cannot be looked at may be one
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
}

std::optional<LeftCopy> RecoveryKeeper::NextLeft() {
    while (locks_.Take && looked_ < GreatestNumber) {
        ++looked_;
        if (!HasCopy(looked_) || !TakeNumber(looked_)) {
            continue;
        }
        std::string bytes;
        LeftCopy left;
        if (!ReadWholeText(files_, PathOf(looked_, ".brindle"), bytes).Failed() &&
            DecodeRecoveryCopy(bytes, left.Copy, left.Logic)) {
            kept_ = left.Copy.Logic;
            mayStand_ = true;
            return left;
        }
        GiveUpNumber();
    }
    return {};
}

void RecoveryKeeper::Adopt() {
    rest_.reset();
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
        if (!ReplaceWholeFile(files_, PathOf(number_, ".brindle"), EncodeRecoveryCopy(work)).Failed()) {
            kept_ = work.Logic;
        }
    }
    waited_ = 0;
    seen_.clear(); // after a failure, not at every call
}

void RecoveryKeeper::RemoveCopy() {
    if (mayStand_) {
        files_.Remove(PathOf(number_, ".brindle"));
        mayStand_ = false;
        kept_.clear();
    }
}

void RecoveryKeeper::Tick(const RecoveryCopy& work) {
    if (!locks_.Take || work.Logic.empty()) {
        return;
    }
    if (work.Logic == rest_) {
        RemoveCopy();
        waited_ = 0;
        return;
    }
    if (work.Logic == kept_) {
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

void RecoveryKeeper::SetAside(const RecoveryCopy& work) {
    if (!locks_.Take || work.Logic.empty()) {
        return;
    }
    if (work.Logic != kept_) {
        Keep(work);
    }
    GiveUpNumber();
}

void RecoveryKeeper::Close() {
    RemoveCopy();
    GiveUpNumber();
}

} // namespace brindle
