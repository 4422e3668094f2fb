#include "platform/linux/gtk/controls/combo_box.h"

#include <utility>

#include "base/error.h"
#include "platform/linux/gtk/controls/combo_drop_down.h"
#include "platform/linux/gtk/controls/combo_simple.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {

std::unique_ptr<ComboBoxControl> ComboBoxControl::Create(const std::string& name, Style style,
                                                         WindowTable& windows) {
  if (style == Style::Simple) return std::make_unique<SimpleCombo>(name, windows);
  return std::make_unique<DropDownCombo>(name, windows);
}

std::string ComboBoxControl::Text() const { return Field().get_text(); }

// What replaces a text that is selected for typing over it is selected, too.
void ComboBoxControl::SetText(const std::string& text) {
  Gtk::Entry& field = Field();
  int start = 0;
  int end = 0;
  const bool whole = field.has_focus() && field.get_selection_bounds(start, end) && start == 0 &&
                     end == static_cast<int>(field.get_text_length());
  field.set_text(Valid(OnOneLine(text)));
  if (whole) field.select_region(0, -1);
}

int ComboBoxControl::SelStart() const {
  int start = 0;
  int end = 0;
  return Field().get_selection_bounds(start, end) ? start : Field().get_position();
}

void ComboBoxControl::SetSelStart(int position) {
  Field().set_position(std::clamp(position, 0, static_cast<int>(Field().get_text_length())));
}

void ComboBoxControl::Clear() {
  const bool before = std::exchange(showing_, true);
  lines_.Clear();
  index_ = -1;
  ShowModel();
  Field().set_text("");
  showing_ = before;
}

void ComboBoxControl::SetListIndex(int index) {
  if (index != -1) lines_.At(index);  // an index outside the list is an error
  const bool before = std::exchange(showing_, true);
  index_ = index;
  ShowIndex(index);
  SetText(index < 0 ? std::string() : lines_.At(index));
  index_ = index;  // a changed text means that nothing is selected
  SetSelStart(0);
  showing_ = before;
  Click.Raise();
}

void ComboBoxControl::Choose(int index) {
  if (!lines_.Has(index) || index == index_) return;
  SetListIndex(index);
}

}  // namespace corvane::desktop
