#include "platform/linux/gtk/dialogs/dialog_field.h"

#include <atkmm/object.h>
#include <gdk/gdkkeysyms.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>

#include <algorithm>
#include <utility>

#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

using Say = std::function<void(const std::string& text)>;

constexpr const char* kTrue = "True";

// The label stands before the field and leads to it with its access key.
void PutWithLabel(const std::string& label, Gtk::Widget& field, Gtk::Grid& grid, int row) {
  auto* shown = Gtk::make_managed<Gtk::Label>(WithMnemonic(label), true);
  shown->set_mnemonic_widget(field);
  shown->set_halign(Gtk::ALIGN_START);
  field.set_hexpand(true);
  grid.attach(*shown, 0, row);
  grid.attach(field, 1, row);
  field.get_accessible()->set_name(Valid(WithoutMnemonic(label)));
}

class TextFieldWidget : public DialogFieldWidget {
 public:
  TextFieldWidget(const DialogField& field, Gtk::Grid& grid, int row, Say say)
      : label_(WithoutMnemonic(field.label)),
        secret_(field.kind == DialogField::Kind::kPassword),
        say_(std::move(say)) {
    entry_.set_text(Valid(OnOneLine(field.value)));
    if (secret_) {
      entry_.set_visibility(false);
      entry_.set_input_purpose(Gtk::INPUT_PURPOSE_PASSWORD);
    }
    PutWithLabel(field.label, entry_, grid, row);
    entry_.property_cursor_position().signal_changed().connect([this] { CaretMoved(); });
    entry_.signal_key_release_event().connect(
        [this](GdkEventKey*) {
          walking_ = false;
          return false;
        },
        false);
  }

  Gtk::Widget& widget() override { return entry_; }

  // A secret is never spoken, only how much of it there is.
  std::string Words() const override {
    const auto length = entry_.get_text().length();
    if (!secret_)
      return label_ + ", edit box, " + (length == 0 ? "empty" : entry_.get_text().raw());
    return label_ + ", password box, " +
           (length == 0 ? "empty" : std::to_string(length) + " characters");
  }

  std::string Value() const override { return entry_.get_text(); }

  bool KeyDown(guint keyval) override {
    static constexpr guint kWalk[] = {GDK_KEY_Left,    GDK_KEY_Right,   GDK_KEY_Home,
                                      GDK_KEY_End,     GDK_KEY_KP_Left, GDK_KEY_KP_Right,
                                      GDK_KEY_KP_Home, GDK_KEY_KP_End};
    walking_ = std::find(std::begin(kWalk), std::end(kWalk), keyval) != std::end(kWalk);
    if (walking_) caret_ = entry_.get_position();
    return false;
  }

 private:
  // What the caret has passed over.
  void CaretMoved() {
    const int before = std::exchange(caret_, entry_.get_position());
    if (!walking_ || before == caret_) return;
    const int first = std::min(before, caret_);
    const auto length = static_cast<Glib::ustring::size_type>(std::max(before, caret_) - first);
    const auto passed =
        entry_.get_text().substr(static_cast<Glib::ustring::size_type>(first), length);
    say_(secret_ ? std::to_string(passed.length()) + " characters" : passed.raw());
  }

  const std::string label_;
  const bool secret_;
  const Say say_;
  Gtk::Entry entry_;
  bool walking_ = false;  // a key that only moves the caret is down
  int caret_ = 0;
};

class CheckFieldWidget : public DialogFieldWidget {
 public:
  CheckFieldWidget(const DialogField& field, Gtk::Grid& grid, int row, const Say& say)
      : label_(WithoutMnemonic(field.label)), box_(WithMnemonic(field.label), true) {
    box_.set_active(field.value == kTrue);
    grid.attach(box_, 0, row, 2);
    box_.signal_toggled().connect([this, say] { say(State()); });
  }

  Gtk::Widget& widget() override { return box_; }
  std::string Words() const override { return label_ + ", check box, " + State(); }
  std::string Value() const override { return box_.get_active() ? kTrue : "False"; }

 private:
  std::string State() const { return box_.get_active() ? "checked" : "not checked"; }

  const std::string label_;
  Gtk::CheckButton box_;
};

class ChoiceFieldWidget : public DialogFieldWidget {
 public:
  ChoiceFieldWidget(const DialogField& field, Gtk::Grid& grid, int row, const Say& say)
      : label_(WithoutMnemonic(field.label)), choices_(field.choices) {
    for (const auto& choice : choices_) box_.append(Valid(choice));
    const auto at = std::find(choices_.begin(), choices_.end(), field.value);
    box_.set_active(at == choices_.end() ? 0 : static_cast<int>(at - choices_.begin()));
    PutWithLabel(field.label, box_, grid, row);
    box_.signal_changed().connect([this, say] { say(Chosen()); });
  }

  Gtk::Widget& widget() override { return box_; }
  std::string Words() const override { return label_ + ", list, " + Chosen(); }
  std::string Value() const override {
    const int row = box_.get_active_row_number();
    return row < 0 ? "" : choices_[static_cast<std::size_t>(row)];
  }

  // The arrows choose; the list that would drop down keeps the keys for itself and
  // says nothing.
  bool KeyDown(guint keyval) override {
    const int count = static_cast<int>(choices_.size());
    const int row = box_.get_active_row_number();
    switch (keyval) {
      case GDK_KEY_Up:
      case GDK_KEY_KP_Up:
        Choose(row - 1);
        return true;
      case GDK_KEY_Down:
      case GDK_KEY_KP_Down:
        Choose(row + 1);
        return true;
      case GDK_KEY_Home:
      case GDK_KEY_KP_Home:
        Choose(0);
        return true;
      case GDK_KEY_End:
      case GDK_KEY_KP_End:
        Choose(count - 1);
        return true;
      case GDK_KEY_space:
      case GDK_KEY_KP_Space:
        return true;
      default:
        return false;
    }
  }

 private:
  void Choose(int row) {
    if (row >= 0 && row < static_cast<int>(choices_.size())) box_.set_active(row);
  }
  std::string Chosen() const {
    const int row = box_.get_active_row_number();
    if (row < 0) return "empty";
    return Value() + ", " + std::to_string(row + 1) + " of " + std::to_string(choices_.size());
  }

  const std::string label_;
  const std::vector<std::string> choices_;
  Gtk::ComboBoxText box_;
};

}  // namespace

std::unique_ptr<DialogFieldWidget> DialogFieldWidget::Create(const DialogField& field,
                                                             Gtk::Grid& grid, int row, Say say) {
  switch (field.kind) {
    case DialogField::Kind::kCheckBox:
      return std::make_unique<CheckFieldWidget>(field, grid, row, say);
    case DialogField::Kind::kChoice:
      return std::make_unique<ChoiceFieldWidget>(field, grid, row, say);
    case DialogField::Kind::kText:
    case DialogField::Kind::kPassword:
      break;
  }
  return std::make_unique<TextFieldWidget>(field, grid, row, std::move(say));
}

}  // namespace corvane::desktop
