#pragma once

#include <functional>
#include <memory>

class QObject;

namespace brindle {

/// Tells, until it is destroyed, when the system wants the program to end: on POSIX by SIGTERM, SIGHUP or
/// SIGINT, unless the program was started with that signal ignored; on Windows by the end of its console or
/// of the session. `wanted` is called from the event loop, also from that of an open box. One at a time.
std::unique_ptr<QObject> NotifyOfTermination(std::function<void()> wanted);

/// Ends the program as the system would have ended it, without asking or tidying up.
[[noreturn]] void EndAsWanted();

} // namespace brindle
