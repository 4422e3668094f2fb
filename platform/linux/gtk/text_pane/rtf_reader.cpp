#include "platform/linux/gtk/text_pane/rtf_reader.h"

#include <algorithm>
#include <utility>

#include "platform/linux/gtk/text_pane/rtf_parser.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kDeepest = 200;
constexpr std::size_t kMostText = 64'000'000;
constexpr std::size_t kLongestWord = 32;
constexpr int kMostNumber = 2'000'000'000;

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// A paragraph's own formats, from one format to another.
void CopyParagraphFormat(RichTextBox::Format& to, const RichTextBox::Format& from) {
  to.bullet = from.bullet;
  to.indent = from.indent;
  to.right_indent = from.right_indent;
  to.hanging_indent = from.hanging_indent;
  to.alignment = from.alignment;
  to.tabs = from.tabs;
}

}  // namespace

bool IsRtf(std::string_view text) { return text.starts_with("{\\rtf"); }

StyledText ReadRtf(std::string_view rtf, const RichTextBox::Format& base) {
  return RtfParser(rtf, base).Run();
}

RtfParser::RtfParser(std::string_view rtf, const RichTextBox::Format& base)
    : rtf_(rtf), base_(base) {
  state_.format = base;
}

StyledText RtfParser::Run() {
  while (at_ < rtf_.size() && size_ < kMostText) {
    const char c = rtf_[at_++];
    if (c == '{') {
      Open();
    } else if (c == '}') {
      Close();
      if (stack_.empty()) break;  // the document ends where its group does
    } else if (c == '\\') {
      if (at_ == rtf_.size()) break;
      if (IsLetter(rtf_[at_])) {
        ControlWord();
      } else {
        ControlSymbol(rtf_[at_++]);
      }
    } else if (c != '\r' && c != '\n') {
      Plain(static_cast<unsigned char>(c));
    }
  }
  EndPiece();
  EndParagraph();
  return std::move(result_);
}

void RtfParser::Open() {
  skip_ = 0;
  if (stack_.size() >= kDeepest || too_deep_ > 0) {
    ++too_deep_;
    return;
  }
  EndPiece();
  stack_.push_back(state_);
}

void RtfParser::Close() {
  skip_ = 0;
  starred_ = false;
  if (too_deep_ > 0) {
    --too_deep_;
    return;
  }
  EndPiece();
  if (stack_.empty()) return;
  if (state_.target == Target::Fonts) EndFont();
  state_ = std::move(stack_.back());
  stack_.pop_back();
}

// Whether the next character is the fallback of a \u that has been read.
bool RtfParser::Skipped() {
  if (too_deep_ > 0) return true;
  if (skip_ == 0) return false;
  --skip_;
  return true;
}

void RtfParser::Plain(unsigned char byte) {
  if (Skipped()) return;
  switch (state_.target) {
    case Target::Text:
      ++size_;
      text_.Byte(byte, state_.code_page);
      break;
    case Target::Fonts:
      if (byte == ';') {
        EndFont();
      } else {
        text_.Byte(byte, default_page_);
      }
      break;
    case Target::Colours:
      if (byte == ';') EndColour();
      break;
    case Target::Nowhere:
      break;
  }
}

void RtfParser::Hex() {
  const int high = at_ < rtf_.size() ? HexDigit(rtf_[at_]) : -1;
  const int low = at_ + 1 < rtf_.size() ? HexDigit(rtf_[at_ + 1]) : -1;
  if (high < 0 || low < 0) return;
  at_ += 2;
  if (Skipped()) return;
  const auto byte = static_cast<unsigned char>(high * 16 + low);
  if (state_.target == Target::Text) {
    ++size_;
    text_.Byte(byte, state_.code_page);
  } else if (state_.target == Target::Fonts) {
    text_.Byte(byte, default_page_);
  }
}

void RtfParser::ControlSymbol(char symbol) {
  if (symbol == '\'') {
    Hex();
    return;
  }
  if (symbol == '*') {
    starred_ = true;
    return;
  }
  if (Skipped()) return;
  switch (symbol) {
    case '\\':
    case '{':
    case '}':
      Emit(static_cast<unsigned char>(symbol));
      break;
    case '~':
      Emit(0x00A0);
      break;
    case '-':
      Emit(0x00AD);
      break;
    case '_':
      Emit(0x2011);
      break;
    case '\r':
    case '\n':
      Emit('\n');
      break;
    case '\t':
      Emit('\t');
      break;
    default:
      break;
  }
}

void RtfParser::ControlWord() {
  const std::size_t start = at_;
  while (at_ < rtf_.size() && IsLetter(rtf_[at_])) ++at_;
  const auto word = rtf_.substr(start, std::min(at_ - start, kLongestWord));
  const bool negative = at_ + 1 < rtf_.size() && rtf_[at_] == '-' && IsDigit(rtf_[at_ + 1]);
  if (negative) ++at_;
  const bool has_number = at_ < rtf_.size() && IsDigit(rtf_[at_]);
  long long number = 0;
  for (; at_ < rtf_.size() && IsDigit(rtf_[at_]); ++at_) {
    number = std::min<long long>(number * 10 + (rtf_[at_] - '0'), kMostNumber);
  }
  if (negative) number = -number;
  if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;
  if (word == "bin") {  // bytes of any kind, braces among them
    at_ += static_cast<std::size_t>(
        std::clamp<long long>(number, 0, static_cast<long long>(rtf_.size() - at_)));
    return;
  }
  if (too_deep_ > 0) return;
  Do(word, has_number, static_cast<int>(number));
  starred_ = false;
}

void RtfParser::Emit(char32_t character) {
  if (state_.target == Target::Fonts) {
    text_.Character(character);
    return;
  }
  if (state_.target != Target::Text) return;
  ++size_;
  text_.Character(character);
  if (character != '\n') return;
  EndPiece();
  EndParagraph();
}

// The text since the last change of format becomes a run of the paragraph.
void RtfParser::EndPiece() {
  if (state_.target != Target::Text) return;
  auto text = text_.Take();
  if (text.empty()) return;
  if (!paragraph_.empty() && paragraph_.back().format == state_.format) {
    paragraph_.back().text += text;
  } else {
    paragraph_.push_back({std::move(text), state_.format});
  }
}

// All of a paragraph has the paragraph formats that hold at its end.
void RtfParser::EndParagraph() {
  if (paragraph_.empty()) return;
  const auto last = paragraph_.back().format;
  for (auto& run : paragraph_) {
    CopyParagraphFormat(run.format, last);
    if (!result_.empty() && result_.back().format == run.format) {
      result_.back().text += run.text;
    } else {
      result_.push_back(std::move(run));
    }
  }
  paragraph_.clear();
}

}  // namespace corvane::desktop
