// How an ElasticFrameControl shares out its area.
#include <algorithm>
#include <utility>

#include "platform/linux/gtk/layout/elastic_frame.h"

namespace corvane::desktop {
namespace {

constexpr int kGap = 2;  // pixels between the controls of a frame that holds no frames

int NaturalSize(Gtk::Widget& widget, Gtk::Orientation orientation) {
  int minimum = 0;
  int natural = 0;
  if (orientation == Gtk::ORIENTATION_HORIZONTAL) {
    widget.get_preferred_width(minimum, natural);
  } else {
    widget.get_preferred_height(minimum, natural);
  }
  return natural;
}

}  // namespace

// What takes part in the layout, in order.
std::vector<ElasticFrameControl::Part> ElasticFrameControl::Parts() const {
  std::vector<Part> parts;
  if (split_) parts.push_back({split_.get(), nullptr, true, nullptr});
  for (const auto& item : items_) {
    if (item.half >= 0 || !item.widget->get_visible()) continue;
    if (item.binding && item.binding->Place()) continue;
    Part part{item.widget, &item, false, nullptr};
    if (item.binding)
      part.frame = dynamic_cast<const ElasticFrameControl*>(&item.binding->control());
    if (part.frame && part.frame->align_ == Align::None) continue;
    part.expands =
        part.frame ? part.frame->align_ == Align::Fill : item.widget->compute_expand(Direction());
    if (item.binding && item.binding->Wish(Direction())) part.expands = false;
    parts.push_back(part);
  }
  if (parts.size() == 1) {
    auto& only = parts[0];
    if (!only.frame || only.frame->align_ == Align::Fill) only.expands = true;
  }
  return parts;
}

int ElasticFrameControl::SizeOf(const Part& part, Gtk::Orientation orientation) const {
  const auto wish =
      part.item && part.item->binding ? part.item->binding->Wish(orientation) : std::nullopt;
  return wish ? *wish : NaturalSize(*part.widget, orientation);
}

int ElasticFrameControl::Natural(Gtk::Orientation orientation) const {
  const auto wish = binding().Wish(orientation);
  if (wish) return *wish;
  const auto parts = Parts();
  int size = 0;
  for (const auto& part : parts) {
    const int one = SizeOf(part, orientation);
    size = orientation == Direction() ? size + one : std::max(size, one);
  }
  if (orientation != Direction() || parts.empty()) return size;
  return size + GapOf(parts) * (static_cast<int>(parts.size()) - 1);
}

// The gap between two parts.
int ElasticFrameControl::GapOf(const std::vector<Part>& parts) {
  const bool plain = std::all_of(parts.begin(), parts.end(),
                                 [](const Part& part) { return part.item && !part.frame; });
  return plain ? kGap : 0;
}

void ElasticFrameControl::LayOut(int width, int height) {
  const bool resized = width != width_ || height != height_;
  width_ = width;
  height_ = height;
  if (resized) {
    binding().TakeSize(Gtk::ORIENTATION_HORIZONTAL, width);
    binding().TakeSize(Gtk::ORIENTATION_VERTICAL, height);
    if (split_) split_->Expect(Direction() == Gtk::ORIENTATION_HORIZONTAL ? width : height);
    laying_out_ = true;  // the sizes that the handler sets are used right below
    RealignFrame.Raise();
    laying_out_ = false;
  }
  PlaceParts(width, height);
  PlaceFloating(width, height);
}

void ElasticFrameControl::PlaceParts(int width, int height) const {
  const auto parts = Parts();
  const auto direction = Direction();
  const bool across = direction == Gtk::ORIENTATION_HORIZONTAL;
  const int gap = GapOf(parts);
  int left_over = (across ? width : height) - gap * (static_cast<int>(parts.size()) - 1);
  int expanding = 0;
  for (const auto& part : parts) {
    if (part.expands) {
      ++expanding;
    } else {
      left_over -= SizeOf(part, direction);
    }
  }
  left_over = std::max(0, left_over);
  int place = 0;
  for (const auto& part : parts) {
    int size = 0;
    if (part.expands) {
      size = left_over / expanding;  // the last one gets the odd pixels
      left_over -= size;
      --expanding;
    } else {
      size = SizeOf(part, direction);
    }
    ClipBox::Allocate(*part.widget, across ? place : 0, across ? 0 : place, across ? size : width,
                      across ? height : size);
    place += size + gap;
  }
}

// A child that floats is out of sight when it lies outside the frame; it then
// costs nothing and takes no focus.
void ElasticFrameControl::PlaceFloating(int width, int height) const {
  for (const auto& item : items_) {
    const auto place = item.binding ? item.binding->Place() : std::nullopt;
    if (!place || !item.widget->get_visible()) continue;
    const Part part{item.widget, &item, false, nullptr};
    const bool seen = place->left < width && place->top < height;
    item.widget->set_child_visible(seen);
    ClipBox::Allocate(*item.widget, place->left, place->top,
                      SizeOf(part, Gtk::ORIENTATION_HORIZONTAL),
                      SizeOf(part, Gtk::ORIENTATION_VERTICAL));
  }
}

}  // namespace corvane::desktop
