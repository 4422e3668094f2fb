#include "web/page/RecordJson.h"

#include <cstdint>
#include <limits>

#include "base/text.h"

namespace corvane::record {
namespace {

const Json kNothing;

}  // namespace

Json Parse(std::string_view text) { return Json::parse(text, nullptr, /*allow_exceptions=*/false); }

const Json& Member(const Json& object, const char* name) {
  if (!object.is_object()) return kNothing;
  const auto found = object.find(name);
  return found == object.end() ? kNothing : *found;
}

const Json& At(const Json& list, std::size_t index) {
  return list.is_array() && index < list.size() ? list[index] : kNothing;
}

std::string TextOf(const Json& json, std::size_t longest) {
  const auto* text = json.get_ptr<const Json::string_t*>();
  if (text == nullptr || text->size() > longest) return {};
  return text::replace_all(*text, std::string(1, '\0'), "\xEF\xBF\xBD");
}

int NumberOf(const Json& json, int least) {
  if (!json.is_number_integer()) return least;
  const auto number = json.get<std::int64_t>();
  if (number < least || number > std::numeric_limits<int>::max()) return least;
  return static_cast<int>(number);
}

bool IsSet(const Json& json) { return NumberOf(json, 0) == 1; }

std::string Quoted(const std::string& text) { return Json(text).dump(); }

}  // namespace corvane::record
