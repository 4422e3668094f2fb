#pragma once

#include <nlohmann/json_fwd.hpp>

#include "platform/element_facts.h"

namespace corvane::desktop {

/// Reads what the page script says of an element. The text comes from a process
/// that a hostile page may have taken over: what does not have the right form is
/// left out, and nothing is thrown. Null when there is nothing.
ElementFactsPtr FactsOf(const nlohmann::json& json);

}  // namespace corvane::desktop
