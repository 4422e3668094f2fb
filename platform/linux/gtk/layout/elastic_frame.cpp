#include "platform/linux/gtk/layout/elastic_frame.h"

#include <algorithm>
#include <utility>

#include "platform/linux/glib/later.h"

namespace corvane::desktop {
namespace {

ElasticFrameControl* FrameOf(Gtk::Widget& widget) {
  auto* binding = WidgetBinding::Of(widget);
  return binding ? dynamic_cast<ElasticFrameControl*>(&binding->control()) : nullptr;
}

}  // namespace

ElasticFrameControl::ElasticFrameControl(const std::string& name, WindowTable& windows)
    : windows_(windows) {
  box_.LayOut = [this](int width, int height) { LayOut(width, height); };
  box_.Natural = [this](Gtk::Orientation orientation) { return Natural(orientation); };
  box_.Removed = [this](Gtk::Widget& child) { Forget(child); };
  Bind(box_, box_, name, "Frame", windows);
  windows.SetAccept(hwnd(), [this](Gtk::Widget& child) { Accept(child); });
}

ElasticFrameControl::~ElasticFrameControl() {
  life_.End();
  box_.LayOut = nullptr;
  box_.Natural = nullptr;
  box_.Removed = nullptr;
  split_events_.Clear();
  if (split_) {
    split_->First().Removed = nullptr;
    split_->Second().Removed = nullptr;
  }
  for (auto& item : items_) {
    for (auto& signal : item.signals) signal.disconnect();
  }
}

Gtk::Orientation ElasticFrameControl::Direction() const {
  return layout_ == Layout::SideBySide ? Gtk::ORIENTATION_HORIZONTAL : Gtk::ORIENTATION_VERTICAL;
}

void ElasticFrameControl::Add(Control& child) {
  auto& holder = HolderOf(child);
  auto& added = holder.widget();
  if (auto* old = added.get_parent()) old->remove(added);
  windows_.Place(holder.binding().hwnd(), hwnd());
  Accept(added);
}

void ElasticFrameControl::Accept(Gtk::Widget& child) {
  Item item;
  item.widget = &child;
  item.binding = WidgetBinding::Of(child);
  if (item.binding) {
    item.wished = std::make_shared<Connection>(item.binding->Wished.Connect(
        [this, binding = item.binding](Gtk::Orientation orientation, int pixels) {
          ChildWished(*binding, orientation, pixels);
        }));
  }
  item.signals.push_back(child.signal_show().connect([this] { ShowSplitHalves(); }));
  item.signals.push_back(child.signal_hide().connect([this] { ShowSplitHalves(); }));
  items_.push_back(std::move(item));
  box_.add(child);
  if (splitter_) Split();
}

// A child has left, from the box or from a half of the splitter.
void ElasticFrameControl::Forget(Gtk::Widget& child) {
  for (auto& item : items_) {
    if (item.widget != &child) continue;
    for (auto& signal : item.signals) signal.disconnect();
  }
  std::erase_if(items_, [&](const Item& item) { return item.widget == &child; });
  ShowSplitHalves();
}

void ElasticFrameControl::ChildWished(WidgetBinding& child, Gtk::Orientation orientation,
                                      int pixels) {
  for (const auto& item : items_) {
    if (item.binding != &child || item.half < 0 || orientation != Direction()) continue;
    split_->WishSize(item.half, pixels);
  }
  if (!laying_out_) box_.queue_resize();
}

// A frame in a splitter sits in one of its halves, some levels below its parent.
ElasticFrameControl* ElasticFrameControl::ParentFrame() {
  for (auto* above = box_.get_parent(); above; above = above->get_parent()) {
    if (auto* frame = FrameOf(*above)) return frame;
  }
  return nullptr;
}

void ElasticFrameControl::SetAlign(Align align) {
  if (align_ == align) return;
  align_ = align;
  box_.set_child_visible(align != Align::None);
  if (auto* parent = ParentFrame()) {
    parent->ShowSplitHalves();
    parent->box_.queue_resize();
  }
}

void ElasticFrameControl::SetLayout(Layout layout) {
  if (layout_ == layout) return;
  layout_ = layout;
  if (split_) split_->set_orientation(Direction());
  box_.queue_resize();
}

void ElasticFrameControl::SetSplitter(bool splitter) {
  splitter_ = splitter;
  if (splitter) {
    Split();
    return;
  }
  // A frame that stops splitting because one half is taken out keeps the halves
  // where they are: moving a page's view would tear it down.
  PostToLoop([this, here = life_.Look()] {
    if (here && !splitter_) Unsplit();
  });
}

void ElasticFrameControl::GoToSplitter(Way way) {
  if (auto* window = dynamic_cast<Gtk::Window*>(box_.get_toplevel()))
    Splitter::GoRound(*window, way == Way::Back);
}

void ElasticFrameControl::Split() {
  if (split_ || items_.size() < 2) return;
  split_ = std::make_unique<Splitter>(Direction());
  box_.Removed = nullptr;  // these two only change places
  for (int i = 0; i < 2; ++i) {
    auto& half = i == 0 ? split_->First() : split_->Second();
    auto& item = items_[static_cast<std::size_t>(i)];
    item.half = i;
    box_.remove(*item.widget);
    half.add(*item.widget);
    half.Removed = [this](Gtk::Widget& child) { Forget(child); };
    const auto wish = item.binding ? item.binding->Wish(Direction()) : std::nullopt;
    if (wish) split_->WishSize(i, *wish);
  }
  box_.Removed = [this](Gtk::Widget& child) { Forget(child); };
  split_events_ += split_->Moved.Connect([this] { SplitterMoved(); });
  split_events_ += split_->Focused.Connect([this] { SplitterFocus.Raise(); });
  split_events_ += split_->Stepped.Connect([this](int share) { SplitterStep.Raise(share); });
  ShowSplitHalves();
  split_->show();
  box_.add(*split_);
}

void ElasticFrameControl::Unsplit() {
  if (!split_ || !split_->First().get_visible() || !split_->Second().get_visible()) return;
  split_events_.Clear();
  for (auto& item : items_) {
    if (item.half < 0) continue;
    auto& half = item.half == 0 ? split_->First() : split_->Second();
    half.Removed = nullptr;
    half.remove(*item.widget);
    box_.add(*item.widget);
    item.half = -1;
  }
  split_.reset();
}

// A half is shown while its child is.
void ElasticFrameControl::ShowSplitHalves() {
  if (!split_) return;
  bool shown[2] = {false, false};
  for (const auto& item : items_) {
    if (item.half < 0) continue;
    auto* frame = FrameOf(*item.widget);
    shown[item.half] = item.widget->get_visible() && !(frame && frame->align_ == Align::None);
  }
  split_->First().set_visible(shown[0]);
  split_->Second().set_visible(shown[1]);
}

void ElasticFrameControl::SplitterMoved() {
  for (const auto& item : items_) {
    if (item.half < 0 || !item.binding) continue;
    item.binding->TakeSize(Direction(),
                           item.half == 0 ? split_->FirstSize() : split_->SecondSize());
  }
  ResizeChildren.Raise();
}

void ElasticFrameControl::Realign() {
  RealignFrame.Raise();
  box_.queue_resize();
}

}  // namespace corvane::desktop
