#pragma once

namespace corvane::desktop {

/// Lets the events that are waiting run, without waiting for any. Returns at
/// once when the last call ended less than 4 ms ago, so that a caller may ask
/// after every small step.
void RunPendingEvents();

}  // namespace corvane::desktop
