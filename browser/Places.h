#pragma once

#include <optional>
#include <string>

#include "browser/CaretEcho.h"
#include "browser/PaneContext.h"

namespace corvane {

/// Follows the user to another place in the page: says its words and takes the text
/// pane's caret there.
class Places {
 public:
  Places(PaneContext& pane, CaretEcho& echo);

 private:
  void Reached(const PagePlace& place);

  PaneContext& pane_;
  CaretEcho& echo_;
  Connections connections_;
};

/// Where the place stands in a text that holds the page's from character `start` on;
/// none when the text does not reach so far. The page may have changed since its text
/// was taken: of all that reads like the place, what stands nearest is it.
std::optional<int> PositionOf(const PagePlace& place, const std::string& text, int start);

}  // namespace corvane
