#include "platform/linux/access/bus_answer.h"

#include <algorithm>

#include "base/text.h"

namespace corvane::desktop {
namespace {

constexpr int kFarthest = 1'000'000;  // pixels

int Coordinate(gint32 number) { return std::clamp(number, -kFarthest, kFarthest); }
int Extent(gint32 number) { return std::clamp(number, 0, kFarthest); }

// What a property holds, when it is of that type.
VariantPtr ValueOf(const VariantPtr& property, const GVariantType* type) {
  if (!IsOfType(property, "(v)")) return nullptr;
  GVariant* inner = nullptr;
  g_variant_get(property.get(), "(v)", &inner);
  VariantPtr value(inner);
  return g_variant_is_of_type(inner, type) ? std::move(value) : nullptr;
}

}  // namespace

bool IsOfType(const VariantPtr& reply, const char* type) {
  return reply && g_variant_is_of_type(reply.get(), G_VARIANT_TYPE(type));
}

ScreenRect RectOf(const VariantPtr& reply) {
  gint32 left = 0;
  gint32 top = 0;
  gint32 width = 0;
  gint32 height = 0;
  if (IsOfType(reply, "((iiii))")) {
    g_variant_get(reply.get(), "((iiii))", &left, &top, &width, &height);
  } else if (IsOfType(reply, "(iiii)")) {
    g_variant_get(reply.get(), "(iiii)", &left, &top, &width, &height);
  }
  return {Coordinate(left), Coordinate(top), Extent(width), Extent(height)};
}

std::optional<int> IntegerOf(const VariantPtr& property) {
  const VariantPtr value = ValueOf(property, G_VARIANT_TYPE_INT32);
  return value ? std::optional<int>(g_variant_get_int32(value.get())) : std::nullopt;
}

std::optional<double> DoubleOf(const VariantPtr& property) {
  const VariantPtr value = ValueOf(property, G_VARIANT_TYPE_DOUBLE);
  return value ? std::optional<double>(g_variant_get_double(value.get())) : std::nullopt;
}

std::string TextOf(const VariantPtr& reply, std::size_t most) {
  const VariantPtr value = ValueOf(reply, G_VARIANT_TYPE_STRING);
  const char* text = "";
  if (value) {
    text = g_variant_get_string(value.get(), nullptr);
  } else if (IsOfType(reply, "(s)")) {
    g_variant_get(reply.get(), "(&s)", &text);
  }
  return text::valid(std::string(text).substr(0, most));
}

}  // namespace corvane::desktop
