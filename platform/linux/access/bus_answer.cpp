#include "platform/linux/access/bus_answer.h"

#include <algorithm>

namespace corvane::desktop {
namespace {

constexpr int kFarthest = 1'000'000;  // pixels

int Coordinate(gint32 number) { return std::clamp(number, -kFarthest, kFarthest); }
int Extent(gint32 number) { return std::clamp(number, 0, kFarthest); }

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

}  // namespace corvane::desktop
