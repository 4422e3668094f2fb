#pragma once

#include "platform/control.h"

namespace corvane {

/// A container that lays out its children and follows its parent's size.
class ElasticFrame : public Control {
 public:
  /// How the frame sits in its parent.
  enum class Align { None, Top, Fill };
  /// How the frame arranges its children. With a splitter (SetSplitter) the
  /// first two children are divided by a bar that the user can drag, with the
  /// pointer or the keyboard.
  enum class Layout { Stack, SideBySide, Above };
  /// Which splitter comes next when the user goes round them.
  enum class Way { Forward, Back };

  /// Appends a child; the frame does not own it.
  virtual void Add(Control& child) = 0;
  /// Align::None takes the frame out of its parent's layout: it is not shown.
  virtual void SetAlign(Align align) = 0;
  virtual void SetLayout(Layout layout) = 0;
  virtual void SetSplitter(bool splitter) = 0;
  /// Leads the user round the splitters of the window that can be seen: from wherever
  /// the focus is to the first (Forward) or last of them, from one to the next, and
  /// back to where the focus was. Nothing happens when there is none.
  virtual void GoToSplitter(Way way) = 0;
  /// Lays the children out again and raises RealignFrame.
  virtual void Realign() = 0;

  /// The frame has got a new size (or Realign was called): the handler sets the
  /// sizes of the children that it cares about.
  Event<> RealignFrame;
  /// The user has dragged the splitter; the children have their new sizes.
  Event<> ResizeChildren;
  /// The user has come to the splitter with the keyboard.
  Event<> SplitterFocus;
  /// The user has moved it with the keyboard: the share of the first child in percent.
  Event<int> SplitterStep;
};

}  // namespace corvane
