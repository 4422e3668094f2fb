// Font and background of a RichTextBoxControl.
#include <gtkmm/stylecontext.h>
#include <pangomm/context.h>

#include <cstdio>

#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/text_pane/rich_text_box.h"

namespace corvane::desktop {
namespace {

// A name inside a style sheet's quotes.
std::string Quoted(const std::string& name) {
  std::string quoted = "\"";
  const auto valid = Valid(name);
  for (const char c : valid.raw()) {
    if (c == '"' || c == '\\') quoted += '\\';
    if (static_cast<unsigned char>(c) >= ' ') quoted += c;
  }
  return quoted + "\"";
}

}  // namespace

void RichTextBoxControl::ReadNaturalFont() {
  const auto description = view_.get_pango_context()->get_font_description();
  font_.name = description.get_family();
  font_.size = static_cast<float>(description.get_size()) / PANGO_SCALE;
  if (description.get_size_is_absolute()) font_.size = font_.size * 72 / 96;
  Format base;
  base.font_name = font_.name;
  base.font_size = font_.size;
  tags_.SetBase(base);
}

void RichTextBoxControl::SetFont(const corvane::Font& font) {
  font_ = font;
  auto base = tags_.Base();
  base.font_name = font.name;
  base.font_size = font.size;
  base.bold = font.bold;
  base.italic = font.italic;
  tags_.SetBase(base);
  ShowStyle();
}

void RichTextBoxControl::SetBackColor(Color color) {
  back_color_ = color & 0x00FFFFFFU;
  ShowStyle();
}

void RichTextBoxControl::ShowStyle() {
  char colour[32];
  std::snprintf(colour, sizeof colour, "#%02x%02x%02x", back_color_ & 0xFFU,
                (back_color_ >> 8U) & 0xFFU, (back_color_ >> 16U) & 0xFFU);
  char size[32];
  g_ascii_formatd(size, sizeof size, "%.2f", font_.size > 0 ? font_.size : 10);
  std::string sheet = "textview { font-family: " + Quoted(font_.name) + "; font-size: " + size +
                      "pt; font-weight: " + (font_.bold ? "bold" : "normal") +
                      "; font-style: " + (font_.italic ? "italic" : "normal") + "; }";
  if (back_color_ != 0x00FFFFFFU) {
    sheet += " textview text { background-color: " + std::string(colour) + "; }";
  }
  style_->load_from_data(sheet);
  lines_.Restyled(tags_.Used());
}

}  // namespace corvane::desktop
