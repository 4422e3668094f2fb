#pragma once

#include <exception>
#include <functional>
#include <string>
#include <utility>

#include "platform/message_box.h"

namespace corvane {

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
