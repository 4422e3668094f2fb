#pragma once

#include <string>
#include <vector>

#include "base/error.h"
#include "platform/menu.h"

namespace corvane {

/// A control array of menu items: one click handler receives the item's index.
class MenuArray {
 public:
  MenuArray() = default;
  MenuArray(const MenuArray&) = delete;
  MenuArray& operator=(const MenuArray&) = delete;

  /// Makes `item` the next of the array.
  void Append(MenuItem& item) {
    const int index = Count();
    items_.push_back(&item);
    connections_ += item.Click.Connect([this, index] { Click.Raise(index); });
  }

  /// Adds an item for every caption to `parent`'s submenu.
  void AppendAll(MenuItem& parent, const std::vector<std::string>& captions) {
    for (const auto& caption : captions) Append(parent.Add(caption));
  }

  int Count() const { return static_cast<int>(items_.size()); }

  /// The item at `index`; RunTimeError when the array has none there.
  MenuItem& operator()(int index) const {
    if (index < 0 || index >= Count()) {
      throw RunTimeError(kErrControlArrayElement, "",
                         "Control array element '" + std::to_string(index) + "' doesn't exist");
    }
    return *items_[static_cast<std::size_t>(index)];
  }

  /// The first checked item's index, -1 when none is.
  int FirstChecked() const {
    for (int i = 0; i < Count(); ++i) {
      if ((*this)(i).Checked()) return i;
    }
    return -1;
  }

  /// The index of the item that was clicked.
  Event<int> Click;

 private:
  std::vector<MenuItem*> items_;
  Connections connections_;
};

}  // namespace corvane
