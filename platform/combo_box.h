#pragma once

#include <string>
#include <vector>

#include "platform/control.h"

namespace corvane {

/// An edit field with a list, drop-down or always visible (simple). The field of a
/// simple box shows its list's entries only: it is not typed into, letters look for an
/// entry. Positions and lengths in the field are counted in characters.
class ComboBox : public Control {
 public:
  enum class Style { DropDown, Simple };

  virtual std::string Text() const = 0;
  virtual void SetText(const std::string& text) = 0;
  virtual int SelStart() const = 0;
  /// Places the caret; nothing stays selected.
  virtual void SetSelStart(int position) = 0;

  virtual int ListCount() const = 0;
  /// The entry at `index` (0-based); an index outside the list is an error.
  virtual std::string List(int index) const = 0;
  virtual void AddItem(const std::string& text) = 0;
  /// Empties list and field.
  virtual void Clear() = 0;
  /// The selected entry, or -1.
  virtual int ListIndex() const = 0;
  /// Selects an entry, shows it in the field and raises Click.
  virtual void SetListIndex(int index) = 0;

  /// An entry was selected: with the keyboard, the pointer or SetListIndex.
  Event<> Click;
  /// An entry of a simple box's list was double-clicked.
  Event<> DblClick;
  /// The cursor has come to this entry of the drop-down list while it is open.
  Event<const std::string&> Highlight;
};

}  // namespace corvane
