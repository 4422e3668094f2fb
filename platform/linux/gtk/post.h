#pragma once

#include <functional>

namespace corvane::desktop {

/// Runs `action` once from the main loop, after the present event has been
/// handled and before anything is drawn or another key is taken.
void PostToLoop(std::function<void()> action);

/// Runs `action` once from the main loop itself, when no handler is at work that
/// lets events run in between: for what such a handler may still stand on.
void PostWhenNothingIsUnderWay(std::function<void()> action);

}  // namespace corvane::desktop
