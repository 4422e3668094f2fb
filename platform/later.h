#pragma once

#include <functional>
#include <memory>

namespace corvane {

/// Runs an action once, so many seconds from now, on the user-interface thread and never
/// from within the call. Letting go of what is returned forgets the action.
using Later = std::function<std::shared_ptr<void>(double seconds, std::function<void()> action)>;

}  // namespace corvane
