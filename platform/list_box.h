#pragma once

#include <string>

#include "platform/control.h"

namespace corvane {

/// A plain list of lines with one selected entry.
class ListBox : public Control {
 public:
  virtual int ListCount() const = 0;
  virtual std::string List(int index) const = 0;
  virtual void AddItem(const std::string& text) = 0;
  virtual void Clear() = 0;
  virtual int ListIndex() const = 0;
  virtual void SetListIndex(int index) = 0;
  /// Places the list in its parent, in twips; it may lie out of sight.
  virtual void Move(float left, float top) = 0;
};

}  // namespace corvane
