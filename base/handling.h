#pragma once

#include <exception>

#include "base/error.h"

namespace corvane {

/// Runs each statement on its own and goes on past those that fail: the manner
/// of most event handlers. One broken step never costs the user the others.
template <class... Statements>
void ErrorsIgnored(Statements&&... statements) {
  const auto run = [](auto& statement) {
    try {
      statement();
    } catch (const std::exception&) {  // going on is the point
    }
  };
  (run(statements), ...);
}

}  // namespace corvane
