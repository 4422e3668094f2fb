#pragma once

#include <gtkmm/grid.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/questions.h"

namespace corvane::desktop {

/// A dialog's field on the screen, and what is to be said about it.
class DialogFieldWidget {
 public:
  /// `say` is told of each change of the value by the user. Puts the field into
  /// the next row of the grid.
  static std::unique_ptr<DialogFieldWidget> Create(
      const DialogField& field, Gtk::Grid& grid, int row,
      std::function<void(const std::string& text)> say);
  virtual ~DialogFieldWidget() = default;

  /// What takes the focus, or holds it.
  virtual Gtk::Widget& widget() = 0;
  /// Label, kind and value.
  virtual std::string Words() const = 0;
  /// As DialogField::value.
  virtual std::string Value() const = 0;
  /// Shows the value and the choices of `field`, without a word.
  virtual void Set(const DialogField& /*field*/) {}
  /// A key goes down while the field has the focus; true keeps it from the widget.
  virtual bool KeyDown(guint /*keyval*/) { return false; }
};

}  // namespace corvane::desktop
