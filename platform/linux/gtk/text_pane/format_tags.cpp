#include "platform/linux/gtk/text_pane/format_tags.h"

#include <gdkmm/rgba.h>
#include <pangomm/tabarray.h>

#include <algorithm>

#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/widget_control.h"

namespace corvane::desktop {
namespace {

constexpr int kBulletIndent = 16;        // pixels
constexpr std::size_t kMostTags = 1000;  // further formats are not kept

Gdk::RGBA ColourOf(Color color) {
  constexpr double kFull = 255.0;
  Gdk::RGBA rgba;
  rgba.set_rgba((color & 0xFFU) / kFull, ((color >> 8U) & 0xFFU) / kFull,
                ((color >> 16U) & 0xFFU) / kFull);
  return rgba;
}

int Pixels(int twips) { return PixelsOf(static_cast<float>(twips)); }

std::string Number(double value) { return std::to_string(value); }

}  // namespace

Glib::RefPtr<Gtk::TextTag> FormatTags::Tag(Scope scope, const std::string& name,
                                           const std::function<void(Gtk::TextTag&)>& make,
                                           std::function<void(Format&)> read) {
  if (known_.size() >= kMostTags && !known_.contains(name)) return {};
  auto& known = known_[name];
  if (!known.tag) {
    known.tag = buffer_->create_tag();
    make(*known.tag.operator->());
    known.scope = scope;
    known.read = std::move(read);
    by_tag_[known.tag->gobj()] = &known;
  }
  return known.tag;
}

std::vector<Glib::RefPtr<Gtk::TextTag>> FormatTags::CharacterTags(const Format& format) {
  std::vector<Glib::RefPtr<Gtk::TextTag>> tags;
  const auto flag = [&](const char* name, bool Format::*member, auto make) {
    const bool on = format.*member;
    if (on == base_.*member) return;
    tags.push_back(Tag(
        Scope::Character, name + std::string(on ? "+" : "-"),
        [on, make](Gtk::TextTag& tag) { make(tag, on); },
        [on, member](Format& read) { read.*member = on; }));
  };
  flag("bold", &Format::bold, [](Gtk::TextTag& tag, bool on) {
    tag.property_weight() = on ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL;
  });
  flag("italic", &Format::italic, [](Gtk::TextTag& tag, bool on) {
    tag.property_style() = on ? Pango::STYLE_ITALIC : Pango::STYLE_NORMAL;
  });
  flag("underline", &Format::underline, [](Gtk::TextTag& tag, bool on) {
    tag.property_underline() = on ? Pango::UNDERLINE_SINGLE : Pango::UNDERLINE_NONE;
  });
  flag("strike", &Format::strike_thru,
       [](Gtk::TextTag& tag, bool on) { tag.property_strikethrough() = on; });
  flag("protected", &Format::is_protected,
       [](Gtk::TextTag& tag, bool on) { tag.property_editable() = !on; });
  if (!format.font_name.empty() && format.font_name != base_.font_name) {
    tags.push_back(Tag(
        Scope::Character, "font " + format.font_name,
        [&](Gtk::TextTag& tag) { tag.property_family() = Valid(format.font_name); },
        [name = format.font_name](Format& read) { read.font_name = name; }));
  }
  if (format.font_size > 0 && format.font_size != base_.font_size) {
    tags.push_back(Tag(
        Scope::Character, "size " + Number(format.font_size),
        [&](Gtk::TextTag& tag) { tag.property_size_points() = format.font_size; },
        [size = format.font_size](Format& read) { read.font_size = size; }));
  }
  if (format.color != base_.color) {
    tags.push_back(Tag(
        Scope::Character, "color " + std::to_string(format.color),
        [&](Gtk::TextTag& tag) { tag.property_foreground_rgba() = ColourOf(format.color); },
        [color = format.color](Format& read) { read.color = color; }));
  }
  if (format.char_offset != 0) {
    tags.push_back(Tag(
        Scope::Character, "offset " + std::to_string(format.char_offset),
        [&](Gtk::TextTag& tag) { tag.property_rise() = Pixels(format.char_offset) * PANGO_SCALE; },
        [offset = format.char_offset](Format& read) { read.char_offset = offset; }));
  }
  return tags;
}

std::vector<Glib::RefPtr<Gtk::TextTag>> FormatTags::ParagraphTags(const Format& format) {
  std::vector<Glib::RefPtr<Gtk::TextTag>> tags;
  if (format.bullet) {
    tags.push_back(Tag(
        Scope::Paragraph, "bullet", [](Gtk::TextTag&) {},
        [](Format& read) { read.bullet = true; }));
  }
  // One tag for both: they share the margin, and a bullet stands in it.
  if (format.indent != 0 || format.hanging_indent != 0 || format.bullet) {
    const int indent = format.indent;
    const int hanging = format.hanging_indent;
    const bool bullet = format.bullet;
    tags.push_back(Tag(
        Scope::Paragraph,
        "indent " + std::to_string(indent) + " " + std::to_string(hanging) + (bullet ? " b" : ""),
        [=](Gtk::TextTag& tag) {
          // The margin is that of the line that stands further left.
          const int margin = indent + std::min(0, hanging);
          tag.property_left_margin() = std::max(0, Pixels(margin)) + (bullet ? kBulletIndent : 0);
          tag.property_indent() = -Pixels(hanging);
        },
        [=](Format& read) {
          read.indent = indent;
          read.hanging_indent = hanging;
        }));
  }
  if (format.right_indent != 0) {
    tags.push_back(Tag(
        Scope::Paragraph, "right " + std::to_string(format.right_indent),
        [&](Gtk::TextTag& tag) {
          tag.property_right_margin() = std::max(0, Pixels(format.right_indent));
        },
        [right = format.right_indent](Format& read) { read.right_indent = right; }));
  }
  if (format.alignment != RichTextBox::Alignment::Left) {
    const auto alignment = format.alignment;
    const bool right = alignment == RichTextBox::Alignment::Right;
    tags.push_back(Tag(
        Scope::Paragraph, right ? "right aligned" : "centred",
        [right](Gtk::TextTag& tag) {
          tag.property_justification() = right ? Gtk::JUSTIFY_RIGHT : Gtk::JUSTIFY_CENTER;
        },
        [alignment](Format& read) { read.alignment = alignment; }));
  }
  if (!format.tabs.empty()) {
    std::string name = "tabs";
    for (const int tab : format.tabs) name += " " + std::to_string(tab);
    tags.push_back(Tag(
        Scope::Paragraph, name,
        [&](Gtk::TextTag& tag) {
          Pango::TabArray stops(static_cast<int>(format.tabs.size()), true);
          for (std::size_t i = 0; i < format.tabs.size(); ++i) {
            stops.set_tab(static_cast<int>(i), Pango::TAB_LEFT,
                          std::max(0, Pixels(format.tabs[i])));
          }
          tag.property_tabs() = stops;
        },
        [tabs = format.tabs](Format& read) { read.tabs = tabs; }));
  }
  return tags;
}

FormatTags::Format FormatTags::At(const Gtk::TextIter& place) const {
  Format format = base_;
  if (known_.empty()) return format;
  auto* tags = gtk_text_iter_get_tags(place.gobj());
  for (auto* link = tags; link; link = link->next) {
    const auto found = by_tag_.find(GTK_TEXT_TAG(link->data));
    if (found != by_tag_.end()) found->second->read(format);
  }
  g_slist_free(tags);
  return format;
}

void FormatTags::RemoveAll(Scope scope, const Gtk::TextIter& start, const Gtk::TextIter& end) {
  // Only those that the range has: there may be many.
  std::vector<Glib::RefPtr<Gtk::TextTag>> present;
  const auto collect = [&](GSList* tags) {
    for (auto* link = tags; link; link = link->next) {
      const auto found = by_tag_.find(GTK_TEXT_TAG(link->data));
      if (found != by_tag_.end() && found->second->scope == scope) {
        present.push_back(found->second->tag);
      }
    }
    g_slist_free(tags);
  };
  collect(gtk_text_iter_get_tags(start.gobj()));
  for (auto place = start;
       place.forward_to_tag_toggle(Glib::RefPtr<Gtk::TextTag>()) && place < end;) {
    collect(gtk_text_iter_get_toggled_tags(place.gobj(), TRUE));
  }
  for (const auto& tag : present) buffer_->remove_tag(tag, start, end);
}

void FormatTags::ApplyToCharacters(const Format& format, const Gtk::TextIter& start,
                                   const Gtk::TextIter& end) {
  RemoveAll(Scope::Character, start, end);
  for (const auto& tag : CharacterTags(format)) {
    if (tag) buffer_->apply_tag(tag, start, end);
  }
}

void FormatTags::ApplyToParagraphs(const Format& format, Gtk::TextIter start, Gtk::TextIter end) {
  start.set_line_offset(0);
  // A selection that ends at a line's start does not reach into that line.
  if (!(end.starts_line() && end > start)) end.forward_line();
  RemoveAll(Scope::Paragraph, start, end);
  for (const auto& tag : ParagraphTags(format)) {
    if (tag) buffer_->apply_tag(tag, start, end);
  }
}

void FormatTags::Apply(const Format& format, const Gtk::TextIter& start, const Gtk::TextIter& end) {
  ApplyToCharacters(format, start, end);
  ApplyToParagraphs(format, start, end);
}

Glib::RefPtr<Gtk::TextTag> FormatTags::BulletTag() const {
  const auto found = known_.find("bullet");
  return found == known_.end() ? Glib::RefPtr<Gtk::TextTag>() : found->second.tag;
}

}  // namespace corvane::desktop
