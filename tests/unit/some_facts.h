#pragma once

#include "platform/element_facts.h"

namespace corvane::tests {

/// Facts of an element that has a role and a name.
inline ElementFacts SomeFacts(const char* role, const char* name) {
  ElementFacts facts;
  facts.role = role;
  facts.name = name;
  return facts;
}

}  // namespace corvane::tests
