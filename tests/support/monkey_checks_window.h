#pragma once

#include "support/monkey_user_window.h"

#include <string>

namespace brindle {

/// Holds the program to its rules after every action of a random user.
class MonkeyChecks {
  public:
    /// After each action: the logic keeps its invariants, no box was left open, and `Modified` tells the
    /// truth.
    void AfterAction(MonkeyUser& user);

    /// Now and then: what the window shows is what the editor says.
    static void ExpectWindowShowsLogic(MonkeyUser& user);

  private:
    void LookForNewLogic(MonkeyUser& user);
    void ExpectInvariants(const Editor& editor) const;

    std::string clean_;    ///< the logic when it last counted as saved, its drop-out times left out
    bool foreign_ = false; ///< its codes and times may be any
};

} // namespace brindle
