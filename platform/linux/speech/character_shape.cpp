#include "platform/linux/speech/character_shape.h"

#include <cairomm/context.h>
#include <gdk/gdk.h>
#include <gdkmm/general.h>

#include <algorithm>
#include <cmath>

namespace corvane::desktop {
namespace {

void RoundedPath(const Cairo::RefPtr<Cairo::Context>& cairo, const Gdk::Rectangle& area) {
  constexpr double kRadius = kBalloonRounding;
  const double left = area.get_x();
  const double top = area.get_y();
  const double right = left + area.get_width();
  const double bottom = top + area.get_height();
  cairo->begin_new_sub_path();
  cairo->arc(right - kRadius, top + kRadius, kRadius, -M_PI_2, 0);
  cairo->arc(right - kRadius, bottom - kRadius, kRadius, 0, M_PI_2);
  cairo->arc(left + kRadius, bottom - kRadius, kRadius, M_PI_2, M_PI);
  cairo->arc(left + kRadius, top + kRadius, kRadius, M_PI, -M_PI_2);
  cairo->close_path();
}

}  // namespace

Cairo::RefPtr<Cairo::Region> CharacterShape(const Glib::RefPtr<Gdk::Pixbuf>& picture,
                                            const Gdk::Point& picture_place,
                                            const Gdk::Rectangle& balloon) {
  int width = balloon.get_x() + balloon.get_width();
  int height = balloon.get_y() + balloon.get_height();
  if (picture) {
    width = std::max(width, picture_place.get_x() + picture->get_width());
    height = std::max(height, picture_place.get_y() + picture->get_height());
  }
  if (width <= 0 || height <= 0) return Cairo::Region::create();
  const auto surface = Cairo::ImageSurface::create(Cairo::FORMAT_ARGB32, width, height);
  const auto cairo = Cairo::Context::create(surface);
  if (balloon.get_width() > 0 && balloon.get_height() > 0) {
    RoundedPath(cairo, balloon);
    cairo->fill();
  }
  if (picture) {
    Gdk::Cairo::set_source_pixbuf(cairo, picture, picture_place.get_x(), picture_place.get_y());
    cairo->paint();
  }
  surface->flush();
  return Cairo::RefPtr<Cairo::Region>(
      new Cairo::Region(gdk_cairo_region_create_from_surface(surface->cobj()), true));
}

}  // namespace corvane::desktop
