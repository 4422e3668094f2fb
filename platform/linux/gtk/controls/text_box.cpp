#include "platform/linux/gtk/controls/text_box.h"

#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

constexpr int kMostNaturalHeight = 200;  // pixels; a longer text scrolls
constexpr int kMargin = 3;

}  // namespace

TextBoxControl::TextBoxControl(const std::string& name, WindowTable& windows) {
  view_.set_editable(false);
  view_.set_cursor_visible(true);
  view_.set_accepts_tab(false);
  view_.set_wrap_mode(Gtk::WRAP_WORD_CHAR);
  view_.set_left_margin(kMargin);
  view_.set_right_margin(kMargin);
  view_.show();
  scroll_.add(view_);
  scroll_.set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
  scroll_.set_shadow_type(Gtk::SHADOW_IN);
  scroll_.set_propagate_natural_height(true);
  scroll_.set_propagate_natural_width(true);
  scroll_.set_max_content_height(kMostNaturalHeight);
  scroll_.set_vexpand(true);
  Bind(scroll_, view_, name, "TextBox", windows, [this] { return text_; });
}

void TextBoxControl::SetText(const std::string& text) {
  text_ = text;
  auto buffer = view_.get_buffer();
  buffer->set_text(Valid(text));
  buffer->place_cursor(buffer->begin());
}

}  // namespace corvane::desktop
