#include "tests/fuzz/lying_bus.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "base/text.h"

namespace corvane::fuzz {
namespace {

constexpr unsigned kElements = 12;
constexpr unsigned kMostEntries = 8;

std::int32_t Number(Choices& choices) {
  static constexpr std::int32_t kTelling[] = {0,
                                              1,
                                              -1,
                                              64,
                                              65,
                                              100'000,
                                              std::numeric_limits<std::int32_t>::max(),
                                              std::numeric_limits<std::int32_t>::min(),
                                              std::numeric_limits<std::int32_t>::max() - 1};
  const unsigned which = choices.Below(16);
  return which < std::size(kTelling) ? kTelling[which] : static_cast<std::int32_t>(choices.Byte());
}

double Real(Choices& choices) {
  static const double kTelling[] = {0, -0.0, 0.5, 1e308, -1e-308, NAN, INFINITY};
  return kTelling[choices.Below(std::size(kTelling))];
}

std::string Text(Choices& choices) {
  static constexpr const char* kTelling[] = {"",     "Name",         "Description", "ChildCount",
                                             ":1.7", "org.a.Player", "\xEF\xBF\xBC"};
  const unsigned which = choices.Below(10);
  if (which < std::size(kTelling)) return kTelling[which];
  std::string text = text::valid(choices.Bytes(choices.Byte()));
  std::replace(text.begin(), text.end(), '\0', ' ');  // a text on the bus ends there
  return text;
}

GVariant* List(Choices& choices, const std::string& of) {
  GVariantBuilder list;
  g_variant_builder_init(&list, G_VARIANT_TYPE(("a" + of).c_str()));
  for (unsigned left = choices.Below(kMostEntries); left > 0 && !choices.AtEnd(); --left)
    g_variant_builder_add_value(&list, Lie(choices, of));
  return g_variant_builder_end(&list);
}

// A row of values, as a tuple or as an entry of a dictionary.
GVariant* Row(Choices& choices, const GVariantType* type) {
  GVariantBuilder row;
  g_variant_builder_init(&row, type);
  for (const auto* each = g_variant_type_first(type); each != nullptr;
       each = g_variant_type_next(each)) {
    const std::string_view inner(g_variant_type_peek_string(each),
                                 g_variant_type_get_string_length(each));
    g_variant_builder_add_value(&row, Lie(choices, inner));
  }
  return g_variant_builder_end(&row);
}

}  // namespace

unsigned Choices::Byte() {
  if (rest_.empty()) return 0;
  const auto byte = static_cast<unsigned char>(rest_.front());
  rest_.remove_prefix(1);
  return byte;
}

std::string_view Choices::Bytes(std::size_t count) {
  const auto bytes = rest_.substr(0, count);
  rest_.remove_prefix(bytes.size());
  return bytes;
}

std::string LyingPath(Choices& choices) {
  const unsigned which = choices.Below(kElements);
  return which == 0 ? "/org/a11y/atspi/null" : "/element/" + std::to_string(which);
}

GVariant* Lie(Choices& choices, std::string_view type) {
  const std::string whole(type);
  switch (whole.front()) {
    case 'b':
      return g_variant_new_boolean(choices.Below(2) == 1);
    case 'i':
      return g_variant_new_int32(Number(choices));
    case 'u':
      return g_variant_new_uint32(static_cast<guint32>(Number(choices)));
    case 'd':
      return g_variant_new_double(Real(choices));
    case 's':
      return g_variant_new_string(Text(choices).c_str());
    case 'o':
      return g_variant_new_object_path(LyingPath(choices).c_str());
    case 'v': {
      static constexpr const char* kKinds[] = {"i", "s", "d", "(so)", "u", "b", "as"};
      return g_variant_new_variant(Lie(choices, kKinds[choices.Below(std::size(kKinds))]));
    }
    case 'a':
      return List(choices, whole.substr(1));
    default:
      return Row(choices, G_VARIANT_TYPE(whole.c_str()));
  }
}

}  // namespace corvane::fuzz
