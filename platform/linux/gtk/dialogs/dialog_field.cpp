#include "platform/linux/gtk/dialogs/dialog_field.h"

#include <atkmm/object.h>
#include <gdk/gdkkeysyms.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>

#include <algorithm>
#include <utility>

#include "base/language.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

using Say = std::function<void(const std::string& text)>;

constexpr const char* kTrue = "True";
constexpr int kPage = 10;  // choices that Page Up and Page Down pass

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
        language_(field.from_page ? language::kOfAPage : ""),
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
      return label_ + ", edit box, " +
             (length == 0 ? "empty" : language::Marked(entry_.get_text().raw(), language_));
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
    say_(secret_ ? std::to_string(passed.length()) + " characters"
                 : language::Marked(passed.raw(), language_));
  }

  const std::string label_;
  const std::string_view language_;  // that the value is marked with
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
    box_.signal_toggled().connect([this, say] {
      if (!setting_) say(State());
    });
  }

  Gtk::Widget& widget() override { return box_; }
  std::string Words() const override { return label_ + ", check box, " + State(); }
  std::string Value() const override { return box_.get_active() ? kTrue : "False"; }
  void Set(const DialogField& field) override {
    setting_ = true;
    box_.set_active(field.value == kTrue);
    setting_ = false;
  }

 private:
  std::string State() const { return box_.get_active() ? "checked" : "not checked"; }

  const std::string label_;
  Gtk::CheckButton box_;
  bool setting_ = false;  // not the user
};

class ChoiceFieldWidget : public DialogFieldWidget {
 public:
  ChoiceFieldWidget(const DialogField& field, Gtk::Grid& grid, int row, const Say& say)
      : label_(WithoutMnemonic(field.label)), language_(field.from_page ? language::kOfAPage : "") {
    Set(field);
    PutWithLabel(field.label, box_, grid, row);
    box_.signal_changed().connect([this, say] {
      if (!setting_) say(Chosen());
    });
  }

  Gtk::Widget& widget() override { return box_; }
  std::string Words() const override { return label_ + ", list, " + Chosen(); }
  std::string Value() const override {
    const int row = box_.get_active_row_number();
    return row < 0 ? "" : choices_[static_cast<std::size_t>(row)];
  }

  void Set(const DialogField& field) override {
    setting_ = true;
    if (field.choices != choices_) {
      choices_ = field.choices;
      box_.remove_all();
      for (const auto& choice : choices_) box_.append(Valid(choice));
    }
    const auto at = std::find(choices_.begin(), choices_.end(), field.value);
    box_.set_active(at == choices_.end() ? 0 : static_cast<int>(at - choices_.begin()));
    setting_ = false;
  }

  // The arrows choose, ten at a time with Page Up and Page Down, and letters and digits
  // lead to the next that begins so; the list that would drop down keeps the keys for
  // itself and says nothing.
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
      case GDK_KEY_Page_Up:
      case GDK_KEY_KP_Page_Up:
        Choose(std::max(row - kPage, 0));
        return true;
      case GDK_KEY_Page_Down:
      case GDK_KEY_KP_Page_Down:
        Choose(std::min(row + kPage, count - 1));
        return true;
      case GDK_KEY_space:
      case GDK_KEY_KP_Space:
        return true;
      default:
        return Look(gdk_keyval_to_unicode(keyval));
    }
  }

 private:
  bool Look(gunichar letter) {
    if (letter == 0 || g_unichar_isalnum(letter) == FALSE) return false;
    const auto begins = [letter](const std::string& choice) {
      const gunichar first = g_utf8_get_char_validated(choice.c_str(), -1);
      return g_unichar_tolower(first) == g_unichar_tolower(letter);
    };
    const int count = static_cast<int>(choices_.size());
    const int row = box_.get_active_row_number();
    for (int i = 1; i <= count; ++i) {
      const int next = (row + i) % count;
      if (!begins(choices_[static_cast<std::size_t>(next)])) continue;
      Choose(next);
      break;
    }
    return true;
  }
  void Choose(int row) {
    if (row >= 0 && row < static_cast<int>(choices_.size())) box_.set_active(row);
  }
  std::string Chosen() const {
    const int row = box_.get_active_row_number();
    if (row < 0) return "empty";
    return language::Marked(Value(), language_) + ", " + std::to_string(row + 1) + " of " +
           std::to_string(choices_.size());
  }

  const std::string label_;
  const std::string_view language_;  // that the value is marked with
  std::vector<std::string> choices_;
  Gtk::ComboBoxText box_;
  bool setting_ = false;  // not the user
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
