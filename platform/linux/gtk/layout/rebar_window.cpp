#include "platform/linux/gtk/layout/rebar_window.h"

#include <algorithm>

#include "platform/linux/glib/later.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

// Which fields of a BandInfo count.
enum BandMask : std::uint32_t {
  kStyle = 0x1,
  kColors = 0x2,
  kText = 0x4,
  kImage = 0x8,
  kChild = 0x10,
  kChildSize = 0x20,
  kSize = 0x40,
  kBackground = 0x80,
  kId = 0x100,
};
constexpr std::uint32_t kBreakStyle = 0x1;
constexpr std::uint32_t kVisibleStyle = 0x10000000;

constexpr int kGrip = 8;   // pixels for the grip
constexpr int kSpace = 4;  // around caption and child

void CopyFields(BandInfo& to, const BandInfo& from, std::uint32_t mask) {
  if (mask & kStyle) to.style = from.style;
  if (mask & kColors) {
    to.foreground = from.foreground;
    to.background = from.background;
  }
  if (mask & kText) to.text = from.text;
  if (mask & kImage) to.image = from.image;
  if (mask & kChild) to.child = from.child;
  if (mask & kChildSize) {
    to.min_child_width = from.min_child_width;
    to.min_child_height = from.min_child_height;
  }
  if (mask & kSize) to.width = from.width;
  if (mask & kBackground) to.background_bitmap = from.background_bitmap;
  if (mask & kId) to.id = from.id;
}

int Natural(const Gtk::Widget& widget, bool across) {
  int minimum = 0;
  int natural = 0;
  if (across) {
    widget.get_preferred_width(minimum, natural);
  } else {
    widget.get_preferred_height(minimum, natural);
  }
  return natural;
}

template <class PointerEvent>
StripPoint PointOf(const PointerEvent& event) {
  return {static_cast<int>(event.x), static_cast<int>(event.y)};
}

}  // namespace

RebarControl::RebarControl(ElasticFrame& parent, std::uint32_t style, int width, int height,
                           WindowTable& windows)
    : windows_(windows), notify_(parent.hwnd()), width_(width) {
  WindowTable::Entry entry;
  entry.class_name = "ReBarWindow32";
  entry.widget = &box_;
  entry.child = true;
  entry.accept = [this](Gtk::Widget& child) { box_.add(child); };
  handle_ = windows_.Add(std::move(entry));
  windows_.SetStyle(handle_, style);
  box_.set_name("RebarWindow");
  box_.LayOut = [this](int w, int h) { LayOut(w, h); };
  box_.Natural = [this](Gtk::Orientation orientation) {
    return orientation == Gtk::ORIENTATION_HORIZONTAL ? width_ : HeightFor(width_);
  };
  box_.add_events(Gdk::BUTTON_PRESS_MASK | Gdk::BUTTON_RELEASE_MASK | Gdk::BUTTON1_MOTION_MASK);
  box_.signal_button_press_event().connect(
      [this](GdkEventButton* event) { return Pressed(*event); });
  box_.signal_motion_notify_event().connect(
      [this](GdkEventMotion* event) { return Moved(*event); });
  box_.signal_button_release_event().connect(
      [this](GdkEventButton* event) { return Released(*event); });
  if ((style & kVisibleStyle) != 0) box_.show();
  windows_.SetParent(handle_, parent.hwnd());
  Move(0, 0, width, height);
}

RebarControl::~RebarControl() {
  life_.End();
  box_.LayOut = nullptr;
  box_.Natural = nullptr;
  windows_.Remove(handle_);
}

Gtk::Widget* RebarControl::ChildOf(const Band& band) const {
  auto* child = windows_.WidgetOf(band.info.child);
  return child && child->get_parent() == &box_ ? child : nullptr;
}

// The strip fills its parent and is as high as its rows: only the width counts.
void RebarControl::Move(int, int, int width, int) {
  if (width > 0) width_ = width;
  box_.queue_resize();
}

bool RebarControl::InsertBand(int index, const BandInfo& info) {
  if (index < -1 || index > BandCount()) return false;
  auto band = std::make_unique<Band>();
  band->info.mask = info.mask;
  CopyFields(band->info, info, info.mask);
  band->caption.set_text(Valid(band->info.text));
  band->grip.show();
  band->caption.set_visible(!band->info.text.empty());
  box_.add(band->grip);
  box_.add(band->caption);
  if (band->info.child != 0) windows_.SetParent(band->info.child, handle_);
  ShowChild(*band, true);
  bands_.insert(index < 0 ? bands_.end() : bands_.begin() + index, std::move(band));
  box_.queue_resize();
  return true;
}

bool RebarControl::DeleteBand(int index) {
  if (index < 0 || index >= BandCount()) return false;
  const Band& band = *bands_[static_cast<std::size_t>(index)];
  if (drag_.band == &band) drag_ = {};
  ShowChild(band, false);
  bands_.erase(bands_.begin() + index);
  box_.queue_resize();
  return true;
}

// A child whose band is gone stays the strip's child, unseen.
void RebarControl::ShowChild(const Band& band, bool shown) const {
  if (auto* child = ChildOf(band)) child->set_child_visible(shown);
}

bool RebarControl::GetBandInfo(int index, BandInfo& info) const {
  if (index < 0 || index >= BandCount()) return false;
  CopyFields(info, bands_[static_cast<std::size_t>(index)]->info, info.mask);
  return true;
}

bool RebarControl::SetBandInfo(int index, const BandInfo& info) {
  if (index < 0 || index >= BandCount()) return false;
  auto& band = *bands_[static_cast<std::size_t>(index)];
  const auto before = band.info.child;
  CopyFields(band.info, info, info.mask);
  band.caption.set_text(Valid(band.info.text));
  band.caption.set_visible(!band.info.text.empty());
  if (band.info.child != before && band.info.child != 0) {
    windows_.SetParent(band.info.child, handle_);
    ShowChild(band, true);
  }
  box_.queue_resize();
  return true;
}

int RebarControl::LeastWidth(Band& band) const {
  const int caption = band.info.text.empty() ? 0 : Natural(band.caption, true) + kSpace;
  const auto* child = ChildOf(band);
  const int needed = child && child->get_visible() ? std::max(band.info.min_child_width, 1) : 0;
  return kGrip + caption + needed + kSpace;
}

int RebarControl::LeastHeight(Band& band) const {
  int height = band.info.text.empty() ? 0 : Natural(band.caption, false);
  const auto* child = ChildOf(band);
  if (child && child->get_visible()) {
    height = std::max({height, band.info.min_child_height, Natural(*child, false)});
  }
  return height + kSpace;
}

std::vector<BandSize> RebarControl::Sizes() const {
  std::vector<BandSize> sizes;
  for (const auto& band : bands_) {
    sizes.push_back({LeastWidth(*band), band->info.width, LeastHeight(*band),
                     (band->info.style & kBreakStyle) != 0});
  }
  return sizes;
}

int RebarControl::HeightFor(int width) const {
  const auto spots = Spots(width);
  return spots.empty() ? 0 : spots.back().top + spots.back().height;
}

int RebarControl::RowCount() const {
  const auto spots = Spots(width_);
  return spots.empty() ? 0 : static_cast<int>(spots.back().row) + 1;
}

int RebarControl::RowHeight(int row) const {
  for (const auto& spot : Spots(width_)) {
    if (static_cast<int>(spot.row) == row) return spot.height;
  }
  return 0;
}

void RebarControl::SetNotifyParent(WindowHandle window) { notify_ = window; }

void RebarControl::LayOut(int width, int) {
  width_ = width;
  const auto spots = Spots(width);
  for (std::size_t i = 0; i < bands_.size(); ++i) {
    Band& band = *bands_[i];
    const BandSpot& spot = spots[i];
    const int end = spot.left + spot.width;
    int left = spot.left;
    ClipBox::Allocate(band.grip, left + 2, spot.top + 2, 2, spot.height - 4);
    left += kGrip;
    if (!band.info.text.empty()) {
      const int caption = Natural(band.caption, true);
      ClipBox::Allocate(band.caption, left, spot.top, caption, spot.height);
      left += caption + kSpace;
    }
    auto* child = ChildOf(band);
    if (child && child->get_visible()) {
      ClipBox::Allocate(*child, left, spot.top + kSpace / 2, std::max(1, end - left - kSpace / 2),
                        spot.height - kSpace);
    }
  }
  TellHeight(HeightFor(width));
}

std::size_t RebarControl::GripAt(StripPoint point) const {
  const auto spots = Spots(width_);
  const auto at = std::find_if(spots.begin(), spots.end(), [&](const BandSpot& spot) {
    return point.x >= spot.left && point.x < spot.left + kGrip && point.y >= spot.top &&
           point.y < spot.top + spot.height;
  });
  return static_cast<std::size_t>(at - spots.begin());
}

bool RebarControl::IsOwn(GdkWindow* window) const {
  return box_.get_window() && box_.get_window()->gobj() == window;
}

bool RebarControl::Pressed(const GdkEventButton& event) {
  if (event.type != GDK_BUTTON_PRESS || event.button != 1 || !IsOwn(event.window)) return false;
  const StripPoint point = PointOf(event);
  const auto taken = GripAt(point);
  if (taken == bands_.size()) return false;
  drag_ = {bands_[taken].get(), point.x - Spots(width_)[taken].left};
  return true;
}

bool RebarControl::Moved(const GdkEventMotion& event) {
  if (!drag_.band || !IsOwn(event.window)) return false;
  const auto dragged = std::find_if(bands_.begin(), bands_.end(),
                                    [this](const auto& band) { return band.get() == drag_.band; });
  TakeOrder(DragBand(Sizes(), width_, static_cast<std::size_t>(dragged - bands_.begin()),
                     PointOf(event), drag_.grab));
  return true;
}

bool RebarControl::Released(const GdkEventButton& event) {
  if (event.button != 1 || !drag_.band) return false;
  drag_ = {};
  return true;
}

void RebarControl::TakeOrder(const BandOrder& order) {
  std::vector<std::unique_ptr<Band>> bands;
  for (std::size_t i = 0; i < order.from.size(); ++i) {
    bands.push_back(std::move(bands_[order.from[i]]));
    BandInfo& info = bands.back()->info;
    info.width = order.bands[i].wish;
    info.style = order.bands[i].breaks ? info.style | kBreakStyle : info.style & ~kBreakStyle;
  }
  bands_ = std::move(bands);
  box_.queue_resize();
}

void RebarControl::TellHeight(int height) {
  if (height == told_height_) return;
  told_height_ = height;
  PostToLoop([this, here = life_.Look()] {
    if (!here) return;
    auto* told = windows_.WidgetOf(notify_);
    auto* binding = told ? WidgetBinding::Of(*told) : nullptr;
    auto* frame = binding ? dynamic_cast<ElasticFrameControl*>(&binding->control()) : nullptr;
    if (!frame) return;
    auto* above = frame->ParentFrame();
    (above ? above : frame)->Realign();
  });
}

}  // namespace corvane::desktop
