#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/life.h"
#include "platform/elastic_frame.h"
#include "platform/linux/gtk/layout/clip_box.h"
#include "platform/linux/gtk/layout/splitter.h"
#include "platform/linux/gtk/widget_control.h"

namespace corvane::desktop {

/// ElasticFrame on a container of our own. A frame is shown with Align::Fill
/// until told otherwise. Children keep the size that SetWidth and SetHeight gave
/// them, else their natural one, along the direction of the layout; a child that
/// is alone, a filling frame and whatever likes to expand share what is left.
///
/// RealignFrame is raised while the frame is laid out, before its children are,
/// so that the sizes which the handler sets are those that the children get.
class ElasticFrameControl : public WidgetControl<ElasticFrame> {
 public:
  ElasticFrameControl(const std::string& name, WindowTable& windows);
  ~ElasticFrameControl() override;

  Gtk::Widget& widget() override { return box_; }

  void Add(Control& child) override;
  void SetAlign(Align align) override;
  void SetLayout(Layout layout) override;
  void SetSplitter(bool splitter) override;
  void GoToSplitter(Way way) override;
  void Realign() override;

  /// The frame that this one sits in, if any.
  ElasticFrameControl* ParentFrame();

 private:
  struct Item {
    Gtk::Widget* widget = nullptr;
    WidgetBinding* binding = nullptr;  // null for a widget that is no control
    int half = -1;                     // which half of the splitter holds it, if any
    std::shared_ptr<Connection> wished;
    std::vector<sigc::connection> signals;
  };
  // One part of the layout: a child or the splitter.
  struct Part {
    Gtk::Widget* widget = nullptr;
    const Item* item = nullptr;
    bool expands = false;
    const ElasticFrameControl* frame = nullptr;  // set for a child that is a frame
  };

  Gtk::Orientation Direction() const;
  void Accept(Gtk::Widget& child);
  void Forget(Gtk::Widget& child);
  void ChildWished(WidgetBinding& child, Gtk::Orientation orientation, int pixels);
  std::vector<Part> Parts() const;
  static int GapOf(const std::vector<Part>& parts);
  int SizeOf(const Part& part, Gtk::Orientation orientation) const;
  int Natural(Gtk::Orientation orientation) const;
  void LayOut(int width, int height);
  void PlaceParts(int width, int height) const;
  void PlaceFloating(int width, int height) const;
  void Split();
  void Unsplit();
  void ShowSplitHalves();
  void SplitterMoved();

  WindowTable& windows_;
  ClipBox box_;
  std::unique_ptr<Splitter> split_;
  Connections split_events_;
  std::vector<Item> items_;
  Align align_ = Align::Fill;
  Layout layout_ = Layout::Stack;
  bool splitter_ = false;
  bool laying_out_ = false;
  int width_ = -1;
  int height_ = -1;
  Life life_;
};

}  // namespace corvane::desktop
