#pragma once

#include <nlohmann/json_fwd.hpp>

#include "platform/element_facts.h"

namespace corvane {

/// Reads what the page script says of an element; see RecordJson.h. Null when there is
/// nothing.
ElementFactsPtr FactsOf(const nlohmann::json& json);

}  // namespace corvane
