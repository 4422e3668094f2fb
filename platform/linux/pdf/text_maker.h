#pragma once

#include <string>

#include "platform/linux/pdf/node.h"
#include "platform/linux/pdf/page_words.h"
#include "platform/linux/pdf/places.h"

namespace corvane::pdf {

/// Puts words into nodes: a text for each link, and for what lies between links.
class TextMaker {
 public:
  explicit TextMaker(Places& places) : places_(places) {}

  /// Adds a word of that page to what the node holds.
  void Add(const Page& page, int number, const Word& word, Node& node,
           const std::string& language = {});
  /// What is added next has nothing to do with what was added before.
  void Reset() { last_ = nullptr; }

 private:
  Places& places_;
  const Word* last_ = nullptr;
};

}  // namespace corvane::pdf
