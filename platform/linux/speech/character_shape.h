#pragma once

#include <cairomm/region.h>
#include <gdkmm/pixbuf.h>
#include <gdkmm/rectangle.h>

namespace corvane::desktop {

inline constexpr int kBalloonRounding = 10;  ///< pixels, of the balloon's corners

/// What of the character's window is there to be seen: the picture where it is
/// not transparent, and the balloon with its round corners. Either may be missing
/// (no picture, an empty rectangle). Places are those in the window.
Cairo::RefPtr<Cairo::Region> CharacterShape(const Glib::RefPtr<Gdk::Pixbuf>& picture,
                                            const Gdk::Point& picture_place,
                                            const Gdk::Rectangle& balloon);

}  // namespace corvane::desktop
