#pragma once

#include <gtkmm/textview.h>

#include <functional>

namespace corvane::desktop {

/// The text view of a rich text box: draws bullets, and leaves copying and
/// pasting to its owner, who knows which characters are the text's own.
class RichTextView : public Gtk::TextView {
 public:
  RichTextView();

  std::function<void()> Copy;
  std::function<void()> Cut;
  std::function<void()> Paste;
  /// The tag of bulleted paragraphs; may be null.
  std::function<Glib::RefPtr<Gtk::TextTag>()> BulletTag;

 protected:
  bool on_draw(const Cairo::RefPtr<Cairo::Context>& context) override;
};

}  // namespace corvane::desktop
