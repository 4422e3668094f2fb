#pragma once

namespace corvane::desktop {

/// Lets the events that are waiting run, without waiting for any, and returns
/// after 8 ms at the latest: work that is always waiting, such as the layout of
/// a long text, goes on at its own pace. Returns at once when the last call
/// ended less than 4 ms ago, so that a caller may ask after every small step.
void RunPendingEvents();

/// Runs events for so many milliseconds and sleeps while there are none.
void RunEventsFor(int milliseconds);

}  // namespace corvane::desktop
