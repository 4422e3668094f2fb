#pragma once

#include <webkit2/webkit2.h>

#include "web/Policy.h"

namespace corvane::desktop {

/// Judges a navigation, a new window or an answer.
Verdict Judge(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type,
              const PolicyContext& context);
/// What is to be loaded, as the engine has it.
LoadWish WishOf(WebKitNavigationAction* action);

}  // namespace corvane::desktop
