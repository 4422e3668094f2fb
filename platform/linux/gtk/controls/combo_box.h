#pragma once

#include <gtkmm/entry.h>

#include <memory>
#include <string>

#include "platform/combo_box.h"
#include "platform/linux/gtk/controls/line_list.h"
#include "platform/linux/gtk/widget_control.h"

namespace corvane::desktop {

/// What both styles of combo box share: the field, the texts of the list and
/// the selected entry. The list itself is the derived class's.
class ComboBoxControl : public WidgetControl<ComboBox> {
 public:
  /// Makes a combo box of the given style.
  static std::unique_ptr<ComboBoxControl> Create(const std::string& name, Style style,
                                                 WindowTable& windows);

  std::string Text() const override;
  void SetText(const std::string& text) override;
  int SelStart() const override;
  void SetSelStart(int position) override;
  int ListCount() const override { return lines_.Count(); }
  std::string List(int index) const override { return lines_.At(index); }
  void AddItem(const std::string& text) override { lines_.Append(text); }
  void Clear() override;
  int ListIndex() const override { return index_; }
  void SetListIndex(int index) override;

 protected:
  virtual Gtk::Entry& Field() = 0;
  const Gtk::Entry& Field() const { return const_cast<ComboBoxControl*>(this)->Field(); }
  /// Marks entry `index` (-1 none) in the list on the screen.
  virtual void ShowIndex(int index) = 0;
  /// Shows the list's new model.
  virtual void ShowModel() = 0;

  /// The user has chosen an entry: it is shown in the field and Click raised,
  /// unless it was chosen already.
  void Choose(int index);
  /// The user has typed: no entry is selected any more.
  void Typed() { index_ = -1; }

  LineList lines_;
  int index_ = -1;
  bool showing_ = false;  ///< what the list tells now is our own doing
};

}  // namespace corvane::desktop
