#pragma once

#include <string>

#include "platform/control.h"

namespace corvane {

class ImageList;

/// One line of a list with columns; belongs to its list.
class ListItem {
 public:
  ListItem() = default;
  ListItem(const ListItem&) = delete;
  ListItem& operator=(const ListItem&) = delete;
  virtual ~ListItem() = default;

  virtual std::string Text() const = 0;
  /// The text in a further column; `index` counts from 1.
  virtual void SetSubItem(int index, const std::string& text) = 0;
};

/// A list with columns, beside a tree. Lengths are in twips.
class ListView : public Control {
 public:
  /// Appends an item with a large and a small picture; 0 is none.
  virtual ListItem& Add(const std::string& text, int icon, int small_icon) = 0;
  /// Removes item number `index`, counted from 1; RunTimeError when there is none.
  virtual void Remove(int index) = 0;
  virtual void ClearItems() = 0;
  /// Where the pictures come from; null for none. It must outlive the list.
  virtual void SetImageList(const ImageList* images) = 0;

  virtual int ColumnCount() const = 0;
  /// Where a column begins, and how wide it is; `index` counts from 1.
  virtual float ColumnLeft(int index) const = 0;
  virtual float ColumnWidth(int index) const = 0;
  virtual void AddColumn(const std::string& caption, float width) = 0;
  virtual void ClearColumns() = 0;
};

}  // namespace corvane
