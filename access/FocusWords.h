#pragma once

#include <string>
#include <vector>

#include "base/manner.h"
#include "platform/html_document.h"

namespace corvane {

/// What is said of the element of a page that gets the focus: its announcer's
/// established sentence or, where the manner wants it, the full one, with the groups
/// in front that the focus enters.
class FocusWords {
 public:
  /// `manner` must outlive this object.
  explicit FocusWords(const Manner& manner) : manner_(manner) {}

  /// Another page: the focus is in no group.
  void Forget() { groups_.clear(); }
  std::string Of(const HTMLElement& element, const std::string& established);
  /// Of an option that is chosen in a list: with the group of options that it begins
  /// and its place, where the manner wants these.
  std::string OfChoice(const HTMLElement& list, const std::string& words, int option);

 private:
  std::string Entered(const ElementFacts& facts);

  const Manner& manner_;
  std::vector<ElementGroup> groups_;  // that the focus is in
};

}  // namespace corvane
