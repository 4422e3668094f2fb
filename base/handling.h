#pragma once

#include <exception>
#include <string>

#include "base/error.h"
#include "platform/message_box.h"

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

/// Runs a body; a failure is shown as a critical message box whose text is
/// `prefix` followed by the error's description, and the body is left there.
template <class Body>
void ErrorsShown(MessageBox& box, const std::string& prefix, Body&& body) {
  try {
    body();
  } catch (const std::exception& error) {
    box.Show(prefix + error.what(), MessageBox::Icon::Critical);
  }
}

}  // namespace corvane
