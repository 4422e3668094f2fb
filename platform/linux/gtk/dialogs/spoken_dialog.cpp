#include "platform/linux/gtk/dialogs/spoken_dialog.h"

#include <atkmm/object.h>
#include <gdk/gdkkeysyms.h>
#include <gtkmm/grid.h>
#include <gtkmm/windowgroup.h>

#include <algorithm>
#include <utility>

#include "base/language.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/gtk/dialogs/dialog_listener.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

constexpr int kGap = 6;  // pixels between fields

Gtk::MessageType TypeOf(MessageBox::Icon icon) {
  switch (icon) {
    case MessageBox::Icon::Critical:
      return Gtk::MESSAGE_ERROR;
    case MessageBox::Icon::Exclamation:
      return Gtk::MESSAGE_WARNING;
    case MessageBox::Icon::Information:
      break;
  }
  return Gtk::MESSAGE_INFO;
}

bool IsEnter(guint keyval) {
  return keyval == GDK_KEY_Return || keyval == GDK_KEY_KP_Enter || keyval == GDK_KEY_ISO_Enter;
}

std::string Sentences(const std::vector<std::string>& parts) {
  std::string all;
  for (const auto& part : parts) {
    if (part.empty()) continue;
    if (!all.empty()) all += std::string(".!?:").find(all.back()) == std::string::npos ? ". " : " ";
    all += part;
  }
  return all;
}

}  // namespace

SpokenDialog::SpokenDialog(WindowTable& windows, Speaker speak, DialogQuestion question,
                           std::function<void(const DialogAnswer&)> done)
    : windows_(windows),
      speak_(std::move(speak)),
      question_(std::move(question)),
      done_(std::move(done)) {
  EnterInTable();
}

SpokenDialog::~SpokenDialog() {
  life_.End();
  for (const auto child : children_) windows_.Remove(child);
  windows_.Remove(handle_);
}

void SpokenDialog::EnterInTable() {
  WindowTable::Entry entry;
  entry.class_name = "Dialog";
  entry.text = [this] { return question_.title; };
  entry.close = [this] { Close(); };
  entry.owner = [this] { return IsThere(owner_) ? windows_.WindowOf(owner_->gobj()) : 0; };
  handle_ = windows_.Add(std::move(entry));
  const auto add_child = [&](const char* class_name, const std::string& text) {
    WindowTable::Entry child;
    child.class_name = class_name;
    child.parent = handle_;
    child.child = true;
    child.text = [text] { return text; };
    children_.push_back(windows_.Add(std::move(child)));
  };
  for (const auto& caption : question_.buttons) add_child("Button", WithoutMnemonic(caption));
  add_child("Static", language::Unmarked(question_.text));
}

int SpokenDialog::CancelButton() const {
  return question_.cancel_button >= 0 ? question_.cancel_button
                                      : static_cast<int>(question_.buttons.size()) - 1;
}

void SpokenDialog::Show(Gtk::Window* owner) {
  const auto here = life_.Look();
  owner_ = owner;
  windows_.WindowActivated.Raise(handle_);
  // A close request that a listener has posted comes first; the owner may go too.
  PostToLoop([this, here] {
    if (!here || !done_) return;
    Present(IsThere(owner_) ? owner_ : ActiveWindow());
  });
}

void SpokenDialog::Present(Gtk::Window* owner) {
  if (dialog_) return;
  owner_ = owner;
  way_back_.Remember(nullptr, owner);
  dialog_ = std::make_unique<Gtk::MessageDialog>(Valid(language::Unmarked(question_.text)), false,
                                                 TypeOf(question_.icon), Gtk::BUTTONS_NONE, true);
  MarkAsSpeaking(GTK_WIDGET(dialog_->gobj()));
  dialog_->set_title(Valid(OnOneLine(question_.title)));
  dialog_->get_accessible()->set_name(Valid(question_.title));
  dialog_->get_accessible()->set_description(Valid(language::Unmarked(question_.text)));
  if (owner) {
    dialog_->set_transient_for(*owner);
    owner->get_group()->add_window(*dialog_);  // other windows go on
  }
  dialog_->set_position(Gtk::WIN_POS_CENTER_ON_PARENT);
  AddFields();
  AddButtons();
  auto& first = fields_.empty() ? *buttons_.at(static_cast<std::size_t>(question_.default_button))
                                : fields_.front()->widget();
  first.child_focus(Gtk::DIR_TAB_FORWARD);
  Connect();
  dialog_->present();
  if (!question_.is_message || introduced_) return;
  introduced_ = awaits_keyboard_ = true;
  SayAll();
}

void SpokenDialog::AddFields() {
  if (question_.fields.empty()) return;
  auto* grid = Gtk::make_managed<Gtk::Grid>();
  grid->set_row_spacing(kGap);
  grid->set_column_spacing(kGap);
  for (std::size_t i = 0; i < question_.fields.size(); ++i) {
    fields_.push_back(
        DialogFieldWidget::Create(question_.fields[i], *grid, static_cast<int>(i),
                                  [this, i, here = life_.Look()](const std::string& text) {
                                    if (here && dialog_) FieldChanged(i, text);
                                  }));
  }
  grid->show_all();
  dialog_->get_message_area()->pack_start(*grid);
}

// Walking through a text changes nothing.
void SpokenDialog::FieldChanged(std::size_t field, const std::string& text) {
  const DialogField::Kind kind = question_.fields[field].kind;
  const bool chosen = kind == DialogField::Kind::kCheckBox || kind == DialogField::Kind::kChoice;
  if (!question_.changed || !chosen) return Say(text);
  const DialogChange change = question_.changed(Answer(question_.default_button), field);
  for (std::size_t i = 0; i < std::min(change.fields.size(), fields_.size()); ++i) {
    if (i != field) fields_[i]->Set(change.fields[i]);
  }
  std::string words = text;
  if (const std::string value = fields_[field]->Value(); text.starts_with(value)) {
    words = language::Marked(value, change.language) + text.substr(value.size());
  }
  Say(Sentences({words, language::Marked(change.example, change.language)}));
}

DialogAnswer SpokenDialog::Answer(int button) const {
  DialogAnswer answer;
  answer.button = button;
  for (std::size_t i = 0; i < question_.fields.size(); ++i) {
    answer.values.push_back(fields_.empty() ? question_.fields[i].value : fields_[i]->Value());
  }
  return answer;
}

void SpokenDialog::AddButtons() {
  for (std::size_t i = 0; i < question_.buttons.size(); ++i) {
    auto* button = dialog_->add_button(WithMnemonic(question_.buttons[i]), static_cast<int>(i));
    button->get_accessible()->set_name(Valid(WithoutMnemonic(question_.buttons[i])));
    buttons_.push_back(button);
  }
  dialog_->set_default_response(question_.default_button);
}

// The dialog may outlive its answer, and even this object, by an event.
void SpokenDialog::Connect() {
  dialog_->signal_response().connect([this, here = life_.Look()](int response) {
    if (here) Press(response >= 0 ? response : CancelButton());
  });
  dialog_->signal_key_press_event().connect(
      [this, here = life_.Look()](GdkEventKey* event) { return here && KeyDown(*event); }, false);
  dialog_->signal_set_focus().connect([this, here = life_.Look()](Gtk::Widget* focus) {
    if (here) FocusMoved(focus);
  });
  dialog_->property_is_active().signal_changed().connect([this, here = life_.Look()] {
    if (here) ActiveChanged();
  });
}

bool SpokenDialog::KeyDown(const GdkEventKey& event) {
  auto* focus = dialog_->get_focus();
  const bool on_button = std::find(buttons_.begin(), buttons_.end(), focus) != buttons_.end();
  if (event.keyval == GDK_KEY_Escape) {
    Close();
    return true;
  }
  if (event.keyval == GDK_KEY_F1) {
    SayAll();
    return true;
  }
  if (IsEnter(event.keyval) && !on_button) {
    Press(question_.default_button);
    return true;
  }
  if ((event.state & (GDK_CONTROL_MASK | GDK_MOD1_MASK)) != 0) return false;
  for (const auto& field : fields_) {
    auto& widget = field->widget();
    if (focus && (focus == &widget || focus->is_ancestor(widget)))
      return field->KeyDown(event.keyval);
  }
  return false;
}

void SpokenDialog::ActiveChanged() {
  if (!dialog_ || !dialog_->property_is_active()) return;
  windows_.WindowActivated.Raise(handle_);
  if (!introduced_) {
    introduced_ = true;
    SayAll();
  } else if (!std::exchange(awaits_keyboard_, false)) {
    Say(Sentences({SpokenTitle(), WordsFor(dialog_->get_focus())}));
  }
}

void SpokenDialog::FocusMoved(Gtk::Widget* focus) {
  if (introduced_ && dialog_ && dialog_->property_is_active()) Say(WordsFor(focus));
}

std::string SpokenDialog::WordsFor(Gtk::Widget* focus) const {
  if (!focus) return "";
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (buttons_[i] == focus) return WithoutMnemonic(question_.buttons[i]) + " Button";
  }
  for (const auto& field : fields_) {
    if (focus == &field->widget() || focus->is_ancestor(field->widget())) return field->Words();
  }
  return "";
}

void SpokenDialog::Say(const std::string& text) const {
  if (speak_ && dialog_ && !text.empty()) speak_(text, GTK_WINDOW(dialog_->gobj()));
}

// In one piece: the next text would cut off what is being said.
void SpokenDialog::SayAll() const {
  Say(Sentences({SpokenTitle(), question_.text, WordsFor(dialog_->get_focus())}));
}

std::string SpokenDialog::SpokenTitle() const {
  return question_.is_message ? "" : question_.title;
}

void SpokenDialog::Press(int button) {
  if (!done_) return;
  const DialogAnswer answer = Answer(button);
  if (question_.check && button != CancelButton()) {
    const auto here = life_.Look();
    const std::string stay = question_.check(answer);
    if (!here || !done_) return;
    if (!stay.empty()) {
      if (dialog_) dialog_->set_secondary_text(Valid(stay));
      return Say(stay);
    }
  }
  const auto done = std::exchange(done_, nullptr);
  buttons_.clear();
  if (dialog_) {
    dialog_->hide();
    way_back_.Go();
    // It may be in the middle of telling that it was answered.
    PostToLoop([dialog = std::shared_ptr<Gtk::MessageDialog>(std::move(dialog_)),
                fields = std::make_shared<decltype(fields_)>(std::move(fields_))] {});
  }
  done(answer);
}

}  // namespace corvane::desktop
