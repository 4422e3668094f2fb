// What the control words of an RTF document do.
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "platform/linux/gtk/text_pane/rtf_parser.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kMostFonts = 4096;
constexpr std::size_t kMostColours = 4096;
constexpr std::size_t kMostTabs = 32;
constexpr int kMostTwips = 31680;  // 22 inches, the widest page
constexpr int kMostHalfPoints = 3276;
constexpr int kTwipsOfHalfPoint = 10;
constexpr int kRaised = 80;  // twips of \super and \sub

// Groups whose text is not the document's.
constexpr auto kLeftOut = std::to_array<std::string_view>(
    {"stylesheet", "info",     "pict",     "object",  "header",     "headerl",  "headerr",
     "headerf",    "footer",   "footerl",  "footerr", "footerf",    "footnote", "fldinst",
     "xe",         "tc",       "tcn",      "pntext",  "nonshppict", "listtext", "annotation",
     "filetbl",    "revtbl",   "rxe",      "txe",     "template",   "author",   "title",
     "subject",    "keywords", "operator", "company", "doccomm",    "generator"});

struct CharacterWord {
  std::string_view word;
  char32_t character;
};
constexpr auto kCharacters = std::to_array<CharacterWord>({
    {"par", '\n'},         {"line", '\n'},      {"page", '\n'},      {"sect", '\n'},
    {"row", '\n'},         {"tab", '\t'},       {"cell", '\t'},      {"emdash", 0x2014},
    {"endash", 0x2013},    {"lquote", 0x2018},  {"rquote", 0x2019},  {"ldblquote", 0x201C},
    {"rdblquote", 0x201D}, {"bullet", 0x2022},  {"emspace", 0x2003}, {"enspace", 0x2002},
    {"qmspace", 0x2005},   {"ltrmark", 0x200E}, {"rtlmark", 0x200F}, {"zwj", 0x200D},
    {"zwnj", 0x200C},
});

int CodePageOf(int charset) {
  switch (charset) {
    case 77:
      return 10000;
    case 128:
      return 932;
    case 129:
      return 949;
    case 134:
      return 936;
    case 136:
      return 950;
    case 161:
      return 1253;
    case 162:
      return 1254;
    case 163:
      return 1258;
    case 177:
      return 1255;
    case 178:
      return 1256;
    case 186:
      return 1257;
    case 204:
      return 1251;
    case 222:
      return 874;
    case 238:
      return 1250;
    case 254:
      return 437;
    default:
      return 0;
  }
}

}  // namespace

void RtfParser::Do(std::string_view word, bool has_number, int number) {
  if (DoDestination(word)) return;
  if (state_.target == Target::Fonts || state_.target == Target::Colours) {
    if (!DoTable(word, number)) DoText(word, number);
    return;
  }
  if (state_.target == Target::Nowhere) {
    if (word == "pnlvlblt") {  // inside a group, but it is about the paragraph
      state_.format.bullet = true;
      for (auto& outer : stack_) outer.format.bullet = true;
    }
    return;
  }
  if (DoText(word, number)) return;
  EndPiece();  // what follows looks different
  if (DoCharacter(word, has_number, number)) return;
  DoParagraph(word, number);
}

bool RtfParser::DoDestination(std::string_view word) {
  if (word == "fonttbl") {
    EndPiece();
    state_.target = Target::Fonts;
    return true;
  }
  if (word == "colortbl") {
    EndPiece();
    state_.target = Target::Colours;
    return true;
  }
  const bool left_out = std::find(kLeftOut.begin(), kLeftOut.end(), word) != kLeftOut.end();
  if (!left_out && !starred_) return false;
  if (state_.target == Target::Text) EndPiece();
  text_.Take();
  state_.target = Target::Nowhere;
  return !starred_;
}

bool RtfParser::DoTable(std::string_view word, int number) {
  const auto part = [number] { return static_cast<Color>(std::clamp(number, 0, 255)); };
  if (word == "f") {
    font_number_ = number;
  } else if (word == "fcharset") {
    font_.code_page = CodePageOf(number);
  } else if (word == "red") {
    colour_ = (colour_ & 0xFFFF00U) | part();
    colour_set_ = true;
  } else if (word == "green") {
    colour_ = (colour_ & 0xFF00FFU) | (part() << 8U);
    colour_set_ = true;
  } else if (word == "blue") {
    colour_ = (colour_ & 0x00FFFFU) | (part() << 16U);
    colour_set_ = true;
  } else {
    return false;
  }
  return true;
}

void RtfParser::EndFont() {
  auto name = text_.Take();
  if (!name.empty() && fonts_.size() < kMostFonts) {
    font_.name = std::move(name);
    fonts_[font_number_] = font_;
  }
  font_ = {};
}

// A colour without parts is the automatic one.
void RtfParser::EndColour() {
  if (colours_.size() < kMostColours) colours_.push_back(colour_set_ ? colour_ : base_.color);
  colour_ = 0;
  colour_set_ = false;
}

bool RtfParser::DoText(std::string_view word, int number) {
  if (word == "u") {
    if (state_.target == Target::Text || state_.target == Target::Fonts) {
      ++size_;
      text_.Unit(static_cast<std::uint16_t>(number));
    }
    skip_ = state_.fallback;
    return true;
  }
  if (word == "uc") {
    state_.fallback = std::clamp(number, 0, 100);
    return true;
  }
  for (const auto& entry : kCharacters) {
    if (entry.word != word) continue;
    if (!Skipped()) Emit(entry.character);
    return true;
  }
  return false;
}

bool RtfParser::DoCharacter(std::string_view word, bool has_number, int number) {
  auto& format = state_.format;
  const bool on = !has_number || number != 0;
  const int offset =
      std::clamp(has_number ? number : 6, -kMostHalfPoints, kMostHalfPoints) * kTwipsOfHalfPoint;
  if (word == "b") {
    format.bold = on;
  } else if (word == "i") {
    format.italic = on;
  } else if (word == "ul") {
    format.underline = on;
  } else if (word == "ulnone") {
    format.underline = false;
  } else if (word == "strike") {
    format.strike_thru = on;
  } else if (word == "protect") {
    format.is_protected = on;
  } else if (word == "fs") {
    const int size = has_number ? number : 24;
    format.font_size = static_cast<float>(std::clamp(size, 2, kMostHalfPoints)) / 2;
  } else if (word == "f") {
    FontNamed(number);
  } else if (word == "cf") {
    const auto index = static_cast<std::size_t>(std::max(0, number));
    format.color = index < colours_.size() ? colours_[index] : base_.color;
  } else if (word == "up") {
    format.char_offset = offset;
  } else if (word == "dn") {
    format.char_offset = -offset;
  } else if (word == "super") {
    format.char_offset = kRaised;
  } else if (word == "sub") {
    format.char_offset = -kRaised;
  } else if (word == "nosupersub") {
    format.char_offset = 0;
  } else if (word == "plain") {
    auto plain = base_;
    plain.bullet = format.bullet;
    plain.indent = format.indent;
    plain.right_indent = format.right_indent;
    plain.hanging_indent = format.hanging_indent;
    plain.alignment = format.alignment;
    plain.tabs = format.tabs;
    format = std::move(plain);
    state_.code_page = default_page_;
  } else if (word == "ansicpg") {
    if (number > 0 && number < 100000) default_page_ = state_.code_page = number;
  } else if (word == "deff") {
    // The font table has not come yet; text without a font keeps the control's.
  } else {
    return false;
  }
  return true;
}

void RtfParser::FontNamed(int number) {
  const auto found = fonts_.find(number);
  if (found == fonts_.end()) return;
  state_.format.font_name = found->second.name;
  state_.code_page = found->second.code_page != 0 ? found->second.code_page : default_page_;
}

bool RtfParser::DoParagraph(std::string_view word, int number) {
  auto& format = state_.format;
  const int twips = std::clamp(number, -kMostTwips, kMostTwips);
  if (word == "pard") {
    format.bullet = base_.bullet;
    format.alignment = base_.alignment;
    format.right_indent = base_.right_indent;
    format.tabs = base_.tabs;
    state_.left = base_.indent + base_.hanging_indent;
    state_.first = -base_.hanging_indent;
  } else if (word == "li") {
    state_.left = twips;
  } else if (word == "fi") {
    state_.first = twips;
  } else if (word == "ri") {
    format.right_indent = twips;
  } else if (word == "tx") {
    if (format.tabs.size() < kMostTabs) format.tabs.push_back(twips);
  } else if (word == "qc") {
    format.alignment = RichTextBox::Alignment::Center;
  } else if (word == "qr") {
    format.alignment = RichTextBox::Alignment::Right;
  } else if (word == "ql" || word == "qj") {
    format.alignment = RichTextBox::Alignment::Left;
  } else {
    return false;
  }
  // The first line's indent, and how much further in the others are.
  format.indent = state_.left + state_.first;
  format.hanging_indent = -state_.first;
  return true;
}

}  // namespace corvane::desktop
