#pragma once

#include <gtkmm/cellrendererpixbuf.h>
#include <gtkmm/cellrenderertext.h>
#include <gtkmm/liststore.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/gtk/controls/image_list.h"
#include "platform/linux/gtk/widget_control.h"
#include "platform/list_view.h"

namespace corvane::desktop {

/// A ListView on Gtk::TreeView: a real list to other readers, with headings as
/// soon as there are columns.
class ListViewControl : public WidgetControl<ListView> {
 public:
  ListViewControl(const std::string& name, WindowTable& windows);
  Gtk::Widget& widget() override { return scroll_; }

  ListItem& Add(const std::string& text, int icon, int small_icon) override;
  void Remove(int index) override;
  void ClearItems() override;
  void SetImageList(const ImageList* images) override;
  int ColumnCount() const override { return static_cast<int>(columns_.size()); }
  float ColumnLeft(int index) const override;
  float ColumnWidth(int index) const override;
  void AddColumn(const std::string& caption, float width) override;
  void ClearColumns() override;

 private:
  class Row : public ListItem {
   public:
    Row(ListViewControl& list, std::string text, int picture)
        : list_(list), texts_{std::move(text)}, picture_(picture) {}
    std::string Text() const override { return texts_.front(); }
    void SetSubItem(int index, const std::string& text) override;
    /// The text in a column, counted from 0.
    std::string TextIn(std::size_t column) const {
      return column < texts_.size() ? texts_[column] : std::string();
    }
    int Picture() const { return picture_; }

   private:
    ListViewControl& list_;
    std::vector<std::string> texts_;
    int picture_;
  };
  struct Column {
    std::string caption;
    float width = 0;
  };
  struct Model : Gtk::TreeModel::ColumnRecord {
    Model() { add(row); }
    Gtk::TreeModelColumn<Row*> row;
  };

  void MakeViewColumns();
  Gtk::TreeViewColumn* NewViewColumn(std::size_t index);
  Row* RowAt(const Gtk::TreeIter& at) const { return (*at)[model_.row]; }

  const Model model_;
  Glib::RefPtr<Gtk::ListStore> store_ = Gtk::ListStore::create(model_);
  Gtk::ScrolledWindow scroll_;
  Gtk::TreeView view_;
  const PixbufList* images_ = nullptr;
  std::vector<std::unique_ptr<Row>> rows_;
  std::vector<Column> columns_;
};

}  // namespace corvane::desktop
