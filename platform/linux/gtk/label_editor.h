#pragma once

#include <gtkmm/cellrenderertext.h>
#include <gtkmm/treeview.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace corvane::desktop {

/// Lets the user edit the label in a row of a tree, in its place. The keys of
/// the editing, the release of the one that ends it included, are no keys of the
/// tree.
class LabelEditor {
 public:
  explicit LabelEditor(Gtk::TreeView& view) : view_(view) {}

  /// Takes the cell with the labels. Call it before others listen to the keys.
  void Attach(Gtk::TreeViewColumn& column, Gtk::CellRendererText& cell);
  /// Starts; `done` gets the new text, from the event loop. Escape ends the
  /// editing without it.
  void Start(const Gtk::TreePath& path, std::function<void(const std::string&)> done);

 private:
  void End(std::optional<std::string> text);

  Gtk::TreeView& view_;
  Gtk::TreeViewColumn* column_ = nullptr;
  Gtk::CellRendererText* cell_ = nullptr;
  std::function<void(const std::string&)> done_;
  bool editing_ = false;
  bool last_key_is_down_ = false;                               // the key that ended the editing
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);  // to be watched
};

}  // namespace corvane::desktop
