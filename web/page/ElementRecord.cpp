#include "web/page/ElementRecord.h"

#include <algorithm>
#include <utility>

#include "web/address/OwnAddress.h"

namespace corvane::record {

std::vector<std::string> TextsOf(const Json& json) {
  std::vector<std::string> texts;
  if (!json.is_array()) return texts;
  texts.reserve(json.size());
  for (const auto& text : json) texts.push_back(TextOf(text));
  return texts;
}

std::vector<int> NumbersOf(const Json& json) {
  std::vector<int> numbers;
  if (!json.is_array()) return numbers;
  for (const auto& number : json) {
    if (const int next = NumberOf(number, -1); next >= 0) numbers.push_back(next);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

std::vector<HTMLElementPtr> LinksOf(const Json& json, Elements& elements) {
  std::vector<HTMLElementPtr> links;
  if (!json.is_array()) return links;
  constexpr std::size_t kFields = 6;
  links.reserve(json.size() / kFields);
  for (std::size_t i = 0; i + kFields <= json.size(); i += kFields) {
    auto link = elements.Get(json[i]);
    link->type_name = IsSet(json[i + 1]) ? "HTMLAreaElement" : "HTMLAnchorElement";
    link->innerText = TextOf(json[i + 2]);
    link->href = ShownAddress(TextOf(json[i + 3]));
    link->name = TextOf(json[i + 4]);
    link->label = TextOf(json[i + 5]);
    links.push_back(std::move(link));
  }
  return links;
}

HTMLElementPtr FieldOf(const Json& json, Elements& elements) {
  auto field = elements.Get(At(json, 0));
  field->type_name = TextOf(At(json, 1));
  field->type = TextOf(At(json, 2));
  field->name = TextOf(At(json, 3));
  field->innerText = TextOf(At(json, 4));
  field->text_before_begin = TextOf(At(json, 5));
  field->text_after_end = TextOf(At(json, 6));
  field->value = TextOf(At(json, 7));
  field->status = IsSet(At(json, 8));
  field->selectedIndex = NumberOf(At(json, 9), -1);
  field->options = TextsOf(At(json, 10));
  field->chosen = NumbersOf(At(json, 11));
  field->kind = TextOf(At(json, 12));
  field->label = TextOf(At(json, 13));
  return field;
}

}  // namespace corvane::record
