// The end of a session from outside: the terminal closes, the machine shuts down, Ctrl-C.
#pragma once

#include <QObject>
#include <functional>

namespace rollwick {

// Keeps those signals waiting from now on, in all threads that begin later. To be called before any does.
void HoldEndingSignals();

// Calls `onEnd` out of the event loop when one comes, and then ends the process as the signal would have. As
// long as `owner` lives.
void EndBySignal(QObject& owner, std::function<void()> onEnd);

}  // namespace rollwick
