#pragma once

#include <gtkmm/textbuffer.h>
#include <gtkmm/texttag.h>

#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/rich_text_box.h"

namespace corvane::desktop {

/// Carries RichTextBox formats in a buffer's tags. A format is stored as its
/// differences from a base, so that plain text has no tags at all and follows
/// the control's own font.
class FormatTags {
 public:
  using Format = RichTextBox::Format;

  explicit FormatTags(Glib::RefPtr<Gtk::TextBuffer> buffer) : buffer_(std::move(buffer)) {}

  void SetBase(const Format& base) { base_ = base; }
  const Format& Base() const { return base_; }

  /// The format of the character behind `place`.
  Format At(const Gtk::TextIter& place) const;
  /// Gives a range all of `format`: the character formats to the range itself,
  /// those of a paragraph to every paragraph that it touches.
  void Apply(const Format& format, const Gtk::TextIter& start, const Gtk::TextIter& end);
  /// Only the formats of a paragraph, or only those of characters.
  void ApplyToParagraphs(const Format& format, Gtk::TextIter start, Gtk::TextIter end);
  void ApplyToCharacters(const Format& format, const Gtk::TextIter& start,
                         const Gtk::TextIter& end);
  /// The tag of bulleted paragraphs, null while there has been none.
  Glib::RefPtr<Gtk::TextTag> BulletTag() const;
  /// Whether a format has ever been stored.
  bool Used() const { return !known_.empty(); }

 private:
  enum class Scope { Character, Paragraph };
  struct Known {
    Glib::RefPtr<Gtk::TextTag> tag;
    Scope scope = Scope::Character;
    std::function<void(Format&)> read;
  };
  Glib::RefPtr<Gtk::TextTag> Tag(Scope scope, const std::string& name,
                                 const std::function<void(Gtk::TextTag&)>& make,
                                 std::function<void(Format&)> read);
  std::vector<Glib::RefPtr<Gtk::TextTag>> CharacterTags(const Format& format);
  std::vector<Glib::RefPtr<Gtk::TextTag>> ParagraphTags(const Format& format);
  void RemoveAll(Scope scope, const Gtk::TextIter& start, const Gtk::TextIter& end);

  Glib::RefPtr<Gtk::TextBuffer> buffer_;
  Format base_;
  std::map<std::string, Known> known_;
  std::unordered_map<GtkTextTag*, const Known*> by_tag_;
};

}  // namespace corvane::desktop
