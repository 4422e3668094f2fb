#include "access/FieldKinds.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace corvane {
namespace {

struct Kind {
  const char* name;
  const char* words;
  bool stepped;
};

// Kinds that are typed like any text, such as e-mail addresses, are called text.
constexpr std::array kKinds = {
    Kind{"range", "slider", true},       Kind{"number", "number field", true},
    Kind{"color", "colour field", true}, Kind{"date", "date field", false},
    Kind{"time", "time field", false},   Kind{"datetime-local", "date and time field", false},
    Kind{"month", "month field", false}, Kind{"week", "week field", false},
};

constexpr std::size_t kMostStars = 100;

const Kind* KindOf(const HTMLElement& field) {
  const auto* found = std::find_if(kKinds.begin(), kKinds.end(),
                                   [&](const Kind& kind) { return field.kind == kind.name; });
  return found != kKinds.end() ? found : nullptr;
}

}  // namespace

std::string WordFor(const HTMLElement& field) {
  const Kind* kind = KindOf(field);
  return kind != nullptr ? kind->words : field.type;
}

bool IsStepped(const HTMLElement& field) {
  const Kind* kind = KindOf(field);
  return kind != nullptr && kind->stepped;
}

bool IsSecret(const HTMLElement& field) { return text::same_ignoring_case(field.type, "password"); }

bool IsTyped(const HTMLElement& input) {
  return text::same_ignoring_case(input.type, "text") || IsSecret(input);
}

std::string Heard(const HTMLElement& field, const std::string& words, const Manner& manner) {
  if (!manner.hide_passwords || !IsSecret(field)) return words;
  std::string stars;
  const std::size_t count = std::min(text::length(words), kMostStars);
  for (std::size_t i = 0; i < count; ++i) stars += i == 0 ? "star" : " star";
  return stars;
}

std::string Beside(const std::string& text, const HTMLElement& field, const Manner& manner) {
  return text.empty() && manner.today ? field.label : text;
}

}  // namespace corvane
