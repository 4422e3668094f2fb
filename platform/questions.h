#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/message_box.h"

namespace corvane {

/// One thing that a dialog lets the user set.
struct DialogField {
  enum class Kind { kText, kPassword, kCheckBox, kChoice };

  Kind kind = Kind::kText;
  std::string label = {};  ///< "&" marks the access key
  /// What it holds at first. A check box: "True" or "False". A choice: one of
  /// the choices' texts.
  std::string value = {};
  std::vector<std::string> choices = {};
  bool from_page = false;  ///< the value is a page's words, and never sounds like the program's
};

/// What the user chose.
struct DialogAnswer {
  int button = 0;                   ///< index of the button
  std::vector<std::string> values;  ///< of the fields, in their order; as DialogField::value

  bool Checked(std::size_t field) const { return values.at(field) == "True"; }
};

/// What becomes of a dialog's fields when one of them has been changed.
struct DialogChange {
  std::vector<DialogField> fields;  ///< all, as they are now; none: as they were
  std::string language;             ///< that the new value is marked with; empty: nothing
  std::string example;              ///< said behind it, with the same mark
};

/// A question to the user: plain text, fields and buttons. UTF-8; texts may come
/// from pages. In `text` those may be marked (base/language.h), for the ear alone.
struct DialogQuestion {
  std::string title = {};
  std::string text = {};
  std::vector<DialogField> fields = {};
  std::vector<std::string> buttons = {"OK", "Cancel"};  ///< "&" marks the access key
  int default_button = 0;                               ///< Enter presses it
  int cancel_button = -1;                               ///< Escape presses it; -1: the last one
  MessageBox::Icon icon = MessageBox::Icon::Information;
  /// News that must not wait: spoken without the title as soon as it is on the
  /// screen, also while another program has the keyboard.
  bool is_message = false;

  /// A page asks, not the program: its words are not to be taken for the program's.
  bool from_page = false;

  /// What asks, such as a page, as the platform knows it: its window is the one to put
  /// the question in front of. Null: that does not matter.
  void* asker = nullptr;

  /// Asked before any button but the one for cancelling closes the dialog. A text
  /// that it returns is spoken and shown, and the dialog stays: what is wrong with
  /// a field, or what a button that does not close has done.
  std::function<std::string(const DialogAnswer&)> check = nullptr;

  /// Told of each change of a check box or a choice by the user, before the new value is
  /// spoken.
  std::function<DialogChange(const DialogAnswer&, std::size_t field)> changed = nullptr;
};

/// Shows questions to the user.
class Questions {
 public:
  virtual ~Questions() = default;
  /// Asks without waiting; `done` is called once, after this has returned.
  /// Letting go of what is returned takes the question back: it closes, and
  /// nothing is called.
  [[nodiscard]] virtual std::shared_ptr<void> Ask(
      const DialogQuestion& question, std::function<void(const DialogAnswer&)> done) = 0;
};

}  // namespace corvane
