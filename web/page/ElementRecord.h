#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/html_document.h"
#include "web/page/RecordJson.h"

namespace corvane::record {

/// The elements of one record; an element that is both a link and an anchor is
/// one object.
class Elements {
 public:
  explicit Elements(std::unordered_map<int, HTMLElementPtr>& by_number) : by_number_(by_number) {}

  HTMLElementPtr Get(const Json& json) {
    const int number = NumberOf(json, 0);
    if (number == 0) return std::make_shared<HTMLElement>();
    auto& slot = by_number_[number];
    if (!slot) slot = std::make_shared<HTMLElement>();
    return slot;
  }

 private:
  std::unordered_map<int, HTMLElementPtr>& by_number_;
};

/// Links of a list that has six values for each, one after the other.
std::vector<HTMLElementPtr> LinksOf(const Json& json, Elements& elements);
/// A field; one without a name or a value for what is not there.
HTMLElementPtr FieldOf(const Json& json, Elements& elements);

std::vector<std::string> TextsOf(const Json& json);
/// The whole numbers from 0 on, in ascending order.
std::vector<int> NumbersOf(const Json& json);

}  // namespace corvane::record
