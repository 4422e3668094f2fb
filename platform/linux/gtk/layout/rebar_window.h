#pragma once

#include <gtkmm/label.h>
#include <gtkmm/separator.h>

#include <memory>
#include <vector>

#include "base/life.h"
#include "platform/linux/gtk/layout/band_rows.h"
#include "platform/linux/gtk/layout/clip_box.h"
#include "platform/linux/gtk/layout/elastic_frame.h"
#include "platform/linux/gtk/window_table.h"
#include "platform/rebar_window.h"

namespace corvane::desktop {

/// A RebarWindow on a container of our own: bands from left to right, each with
/// a grip, its caption and its child; a band with style bit 1, or one that does
/// not fit any more, starts a new row. The last band of a row gets what is left.
/// Focus goes through the children from left to right, row by row.
///
/// The user may drag a band by its grip: past its neighbours, into another row or
/// below them into a row of its own. The records follow: their order, the style
/// bit of a row's first band, the widths.
///
/// Colours and the picture behind the bands are kept in the records and answered,
/// but not drawn: the strip looks as the user's theme has it, one of high contrast
/// among them.
///
/// When the rows need another height than before, the frame that holds the
/// notified one (the parent, unless set) is realigned, so that its owner can
/// make room.
class RebarControl : public RebarWindow {
 public:
  RebarControl(ElasticFrame& parent, std::uint32_t style, int width, int height,
               WindowTable& windows);
  ~RebarControl() override;

  WindowHandle hwnd() const override { return handle_; }
  void Move(int left, int top, int width, int height) override;
  void SetVisible(bool visible) override { box_.set_visible(visible); }
  bool InsertBand(int index, const BandInfo& info) override;
  bool DeleteBand(int index) override;
  int BandCount() const override { return static_cast<int>(bands_.size()); }
  bool GetBandInfo(int index, BandInfo& info) const override;
  bool SetBandInfo(int index, const BandInfo& info) override;
  int RowCount() const override;
  int RowHeight(int row) const override;
  void SetNotifyParent(WindowHandle window) override;
  void Repaint() override { box_.queue_draw(); }

  Gtk::Widget& widget() { return box_; }

 private:
  struct Band {
    BandInfo info;
    Gtk::Separator grip{Gtk::ORIENTATION_VERTICAL};
    Gtk::Label caption;
  };
  /// A drag under way: the band, and how far from its left it was taken.
  struct Drag {
    const Band* band = nullptr;
    int grab = 0;
  };
  Gtk::Widget* ChildOf(const Band& band) const;
  int LeastWidth(Band& band) const;
  int LeastHeight(Band& band) const;
  std::vector<BandSize> Sizes() const;
  std::vector<BandSpot> Spots(int width) const { return PlaceBands(Sizes(), width); }
  int HeightFor(int width) const;
  /// Events of the strip itself carry places in it, those of its children do not.
  bool IsOwn(GdkWindow* window) const;
  /// The band whose grip is at that point; BandCount when there is none.
  std::size_t GripAt(StripPoint point) const;
  bool Pressed(const GdkEventButton& event);
  bool Moved(const GdkEventMotion& event);
  bool Released(const GdkEventButton& event);
  void TakeOrder(const BandOrder& order);
  void ShowChild(const Band& band, bool shown) const;
  void LayOut(int width, int height);
  void TellHeight(int height);

  WindowTable& windows_;
  WindowHandle handle_ = 0;
  WindowHandle notify_ = 0;
  ClipBox box_;
  std::vector<std::unique_ptr<Band>> bands_;
  Drag drag_;
  int width_ = 0;
  int told_height_ = -1;
  Life life_;
};

}  // namespace corvane::desktop
