#include "platform/linux/gtk/text_pane/rtf_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace corvane::desktop {
namespace {

using Format = RichTextBox::Format;

constexpr int kTwipsOfHalfPoint = 10;

void WriteUnit(std::string& rtf, char32_t unit) {
  rtf += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

void WriteText(std::string& rtf, std::string_view text) {
  while (!text.empty()) {
    const char32_t c = text::take_character(text);
    if (c == '\\' || c == '{' || c == '}') {
      rtf += '\\';
      rtf += static_cast<char>(c);
    } else if (c == '\n') {
      rtf += "\\par\n";
    } else if (c == '\t') {
      rtf += "\\tab ";
    } else if (c >= 0x20 && c < 0x7F) {
      rtf += static_cast<char>(c);
    } else if (c < 0x10000) {
      WriteUnit(rtf, c);
    } else {
      WriteUnit(rtf, 0xD800 + ((c - 0x10000) >> 10U));
      WriteUnit(rtf, 0xDC00 + ((c - 0x10000) & 0x3FFU));
    }
  }
}

template <class Value>
std::size_t IndexIn(std::vector<Value>& values, const Value& value) {
  const auto found = std::find(values.begin(), values.end(), value);
  if (found != values.end()) return static_cast<std::size_t>(found - values.begin());
  values.push_back(value);
  return values.size() - 1;
}

class Writer {
 public:
  explicit Writer(const Format& base) : base_(base) { fonts_.push_back(base.font_name); }

  std::string Write(const StyledText& text) {
    bool new_paragraph = true;
    for (const auto& run : text) {
      std::string_view left = run.text;
      while (!left.empty()) {
        if (new_paragraph) Paragraph(run.format);
        const auto end = left.find('\n');
        const auto part = left.substr(0, end == std::string_view::npos ? end : end + 1);
        Characters(run.format);
        WriteText(body_, part);
        left.remove_prefix(part.size());
        new_paragraph = part.back() == '\n';
      }
    }
    return Header() + body_ + "}\n";
  }

 private:
  void Word(const char* word, int number) { body_ += "\\" + (word + std::to_string(number)); }

  void Paragraph(const Format& format) {
    body_ += "\\pard";
    const int first = -format.hanging_indent;
    const int left = format.indent - first;
    if (left != 0) Word("li", left);
    if (first != 0) Word("fi", first);
    if (format.right_indent != 0) Word("ri", format.right_indent);
    if (format.alignment == RichTextBox::Alignment::Center) body_ += "\\qc";
    if (format.alignment == RichTextBox::Alignment::Right) body_ += "\\qr";
    for (const int tab : format.tabs) Word("tx", tab);
    if (format.bullet) body_ += "{\\pntext\\'B7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}";
  }

  void Characters(const Format& format) {
    body_ += "\\plain";
    const auto& name = format.font_name.empty() ? base_.font_name : format.font_name;
    Word("f", static_cast<int>(IndexIn(fonts_, name)));
    const float size = format.font_size > 0 ? format.font_size : base_.font_size;
    if (size > 0) Word("fs", static_cast<int>(std::lround(size * 2)));
    const auto flag = [&](const char* word, bool Format::*member) {
      if (format.*member) {
        body_ += word;
      } else if (base_.*member) {
        body_ += word + std::string("0");
      }
    };
    flag("\\b", &Format::bold);
    flag("\\i", &Format::italic);
    flag("\\ul", &Format::underline);
    flag("\\strike", &Format::strike_thru);
    flag("\\protect", &Format::is_protected);
    if (format.color != base_.color) {
      Word("cf", static_cast<int>(IndexIn(colours_, format.color)) + 1);
    }
    const int raised =
        static_cast<int>(std::lround(static_cast<double>(format.char_offset) / kTwipsOfHalfPoint));
    if (raised > 0) Word("up", raised);
    if (raised < 0) Word("dn", -raised);
    body_ += ' ';
  }

  std::string Header() const {
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl";
    for (std::size_t i = 0; i < fonts_.size(); ++i) {
      rtf += "{\\f" + std::to_string(i) + "\\fnil ";
      std::string name;
      for (const char c : fonts_[i]) {
        if (c != ';' && c != '\n') name += c;
      }
      WriteText(rtf, name);
      rtf += ";}";
    }
    rtf += "}{\\colortbl ;";
    for (const Color color : colours_) {
      rtf += "\\red" + std::to_string(color & 0xFFU) + "\\green" +
             std::to_string((color >> 8U) & 0xFFU) + "\\blue" +
             std::to_string((color >> 16U) & 0xFFU) + ";";
    }
    return rtf + "}\n";
  }

  const Format base_;
  std::vector<std::string> fonts_;
  std::vector<Color> colours_;
  std::string body_;
};

}  // namespace

std::string WriteRtf(const StyledText& text, const Format& base) {
  return Writer(base).Write(text);
}

}  // namespace corvane::desktop
