#pragma once

#include <exception>
#include <functional>
#include <string>
#include <utility>

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
/// `prefix` followed by the error's description, and the body is left there. `after`
/// is what has to wait for the box: it runs behind the body, or once the user has
/// closed the box.
template <class Body>
void ErrorsShown(MessageBox& box, const std::string& prefix, Body&& body,
                 std::function<void()> after = nullptr) {
  try {
    body();
  } catch (const std::exception& error) {
    return box.Show(prefix + error.what(), MessageBox::Icon::Critical, "", std::move(after));
  }
  if (after) after();
}

}  // namespace corvane
