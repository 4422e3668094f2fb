#include "browser/reading/Spelling.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <vector>

#include "access/FieldKinds.h"
#include "base/text.h"
#include "speech/SignName.h"

namespace corvane {
namespace {

// The alphabet of the International Civil Aviation Organization.
constexpr std::array<std::string_view, 26> kAlphabet = {
    "Alfa",    "Bravo", "Charlie", "Delta",  "Echo",     "Foxtrot", "Golf",   "Hotel",  "India",
    "Juliett", "Kilo",  "Lima",    "Mike",   "November", "Oscar",   "Papa",   "Quebec", "Romeo",
    "Sierra",  "Tango", "Uniform", "Victor", "Whiskey",  "X-ray",   "Yankee", "Zulu"};

constexpr const char* kNothing = "There is nothing to spell here";
constexpr std::size_t kMostCharacters = 1000;  // nobody listens to more

bool IsBlank(std::string_view character) {
  return character == " " || character == "\t" || character == "\n" || character == "\r" ||
         character == "\u00A0";
}

std::string Named(std::string_view character) {
  if (character == "\t") return "tab";
  if (IsBlank(character)) return "space";
  const std::string_view name = SignName(character);
  return std::string(name.empty() ? character : name);
}

std::string NamedByWord(std::string_view character) {
  const auto letter = static_cast<unsigned char>(character.front());
  if (character.size() > 1 || std::isalpha(letter) == 0) return Named(character);
  return std::string(kAlphabet.at(static_cast<std::size_t>(std::tolower(letter) - 'a')));
}

std::vector<std::string_view> Characters(std::string_view text) {
  std::vector<std::string_view> all;
  while (!text.empty()) {
    all.push_back(text.substr(0, text::offset_of(text, 1)));
    text.remove_prefix(all.back().size());
  }
  return all;
}

template <class Name>
std::string Joined(const std::string& text, Name name) {
  const std::string heard = text::left(text, kMostCharacters);
  std::string words;
  for (const std::string_view character : Characters(heard)) {
    if (!words.empty()) words += ", ";
    words += name(character);
  }
  return words;
}

// The word that the caret stands in or behind.
std::string WordAt(const std::string& line, int column) {
  const std::vector<std::string_view> all = Characters(line);
  const auto size = static_cast<int>(all.size());
  const auto in_word = [&](int i) {
    return i >= 0 && i < size && !IsBlank(all[static_cast<std::size_t>(i)]);
  };
  int start = std::min(column, size);
  while (in_word(start - 1)) --start;
  std::string word;
  for (int i = start; in_word(i); ++i) word += all[static_cast<std::size_t>(i)];
  return word;
}

bool TakesText(const HTMLElement& element) {
  if (element.type_name == "HTMLTextAreaElement") return true;
  if (element.type_name == "HTMLInputElement") return IsTyped(element);
  return element.facts && element.facts->role == "textbox";
}

}  // namespace

std::string Spelled(const std::string& text) { return Joined(text, Named); }
std::string SpelledByWords(const std::string& text) { return Joined(text, NamedByWord); }

void Spelling::SpellWord() {
  const auto place = Here();
  if (!place) return pane_.announcer.Say(kNothing);
  if (!place->has_caret) return SpellLine();
  Spell(WordAt(place->line, place->column));
}

void Spelling::SpellLine() {
  const auto place = Here();
  if (!place) return pane_.announcer.Say(kNothing);
  Spell(std::string(text::trimmed(place->line)));
}

void Spelling::Spell(const std::string& text) {
  const bool again = said_ == pane_.announcer.Count() && text == spelled_;
  by_words_ = again && !by_words_;
  spelled_ = text;
  if (text.empty()) {
    pane_.announcer.Say("blank");
  } else {
    pane_.announcer.Say(by_words_ ? SpelledByWords(text) : Spelled(text));
  }
  said_ = pane_.announcer.Count();
}

std::optional<Spelling::Place> Spelling::Here() const {
  const PaneControls& c = pane_.controls;
  switch (pane_.state.area) {
    case kAreaAddress:
      return Place{c.cboAddress->Text(), c.cboAddress->SelStart()};
    case kAreaToolbar:
      return std::nullopt;
    case kAreaSideBar: {
      const TreeNode* const selected = c.TreeView1->SelectedItem();
      return selected == nullptr ? std::nullopt : std::optional(Place{selected->Text(), 0, false});
    }
    case kAreaLinks:
      return Place{c.cmbListLinks->Text(), 0, false};
    case kAreaPage:
      return InPage();
    default:
      break;
  }
  const RichTextBox& box = c.ctlText1.Text1();
  const int caret = box.SelStart();
  const int start = box.LineIndex(box.GetLineFromChar(caret));
  return Place{box.GetLine(box.GetLineFromChar(caret), box.LineLength(start)), caret - start};
}

// Of a field the line at its caret.
std::optional<Spelling::Place> Spelling::InPage() const {
  const HTMLElementPtr element = pane_.controls.brwWebBrowser->FocusedElement();
  if (!element) return std::nullopt;
  if (!TakesText(*element)) {
    return Place{element->innerText.empty() ? element->label : element->innerText, 0, false};
  }
  const auto length = static_cast<int>(text::length(element->value));
  const bool secret = pane_.manner.hide_passwords && IsSecret(*element);
  const std::string value =
      secret ? std::string(static_cast<std::size_t>(length), '*') : element->value;
  const int caret = std::clamp(length - element->caret.text_after, 0, length);
  const std::size_t at = text::offset_of(value, static_cast<std::size_t>(caret));
  const std::size_t before = at == 0 ? std::string::npos : value.rfind('\n', at - 1);
  const std::size_t start = before == std::string::npos ? 0 : before + 1;
  const std::string line = value.substr(start, value.find('\n', at) - start);
  return Place{line,
               static_cast<int>(text::length(std::string_view(value).substr(start, at - start)))};
}

}  // namespace corvane
