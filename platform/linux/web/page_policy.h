#pragma once

#include <webkit2/webkit2.h>

#include "platform/engine.h"

namespace corvane::desktop {

/// What is to be loaded, as the engine has it.
LoadWish WishOf(WebKitNavigationAction* action);
/// What has come.
LoadAnswer AnswerOf(WebKitResponsePolicyDecision* decision);

}  // namespace corvane::desktop
