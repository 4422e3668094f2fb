#include "browser/reading/QuickKeys.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "browser/reading/TextKinds.h"
#include "speech/KeyName.h"

namespace corvane {
namespace {

using Kind = PageSpan::Kind;
using Way = TextMap::Way;

constexpr int kKeySpace = 32;
constexpr int kLevels = 6;  // of headings that have a key

template <Kind kind>
bool Is(const PageSpan& span) {
  return span.kind == kind;
}

struct QuickKey {
  int code;
  const char* name;  ///< of what it leads to
  bool (*wanted)(const PageSpan&);
};

// One key a row, but for the levels of headings and for what is no element.
constexpr std::array kKeys = {
    QuickKey{'H', "heading", &Is<Kind::Heading>},
    QuickKey{'K', "link", &Is<Kind::Link>},
    QuickKey{'V', "visited link",
             [](const PageSpan& span) { return span.kind == Kind::Link && span.visited; }},
    QuickKey{'U', "unvisited link",
             [](const PageSpan& span) { return span.kind == Kind::Link && !span.visited; }},
    QuickKey{'F', "field", &IsField},
    QuickKey{'E', "edit field", &Is<Kind::Edit>},
    QuickKey{'B', "button", &Is<Kind::Button>},
    QuickKey{'X', "check box", &Is<Kind::CheckBox>},
    QuickKey{'R', "radio button", &Is<Kind::Radio>},
    // One that is written in is an edit field, too.
    QuickKey{'C', "combo box",
             [](const PageSpan& span) {
               const bool is_box = span.facts && span.facts->role == "combobox";
               return span.kind == Kind::Choice || (span.kind == Kind::Edit && is_box);
             }},
    QuickKey{'T', "table", &Is<Kind::Table>},
    QuickKey{'L', "list", &Is<Kind::List>},
    QuickKey{'I', "list item", &Is<Kind::Item>},
    QuickKey{'G', "picture", &Is<Kind::Picture>},
    QuickKey{'D', "landmark", &Is<Kind::Landmark>},
    QuickKey{'M', "main part",
             [](const PageSpan& span) {
               return span.kind == Kind::Landmark && span.facts && span.facts->role == "main";
             }},
    QuickKey{'Q', "quotation", &Is<Kind::Quotation>},
    QuickKey{'O', "frame", &Is<Kind::Frame>},
};
constexpr int kBehindLinks = 'N';
constexpr const char* kTextBehindLinks = "text behind links";

/// The level of the headings that a key leads to; 0 for another key.
int LevelOf(int code) {
  const int level = code - '0';
  return level >= 1 && level <= kLevels ? level : 0;
}

const QuickKey* KeyOf(int code) {
  const auto* found = std::find_if(kKeys.begin(), kKeys.end(),
                                   [code](const QuickKey& each) { return each.code == code; });
  return found == kKeys.end() ? nullptr : found;
}

std::string None(Way way, const std::string& name) {
  return (way == Way::On ? "No next " : "No previous ") + name;
}

}  // namespace

QuickKeys::QuickKeys(PaneContext& pane, PageInPane& page, ActingInText& acting)
    : pane_(pane), page_(page), acting_(acting), tables_(pane, page) {
  ctlText& box = pane_.controls.ctlText1;
  connections_ += box.KeyDown.Connect([this](KeyEvent& key) { KeyDown(key); });
  connections_ += box.KeyPress.Connect([this](int& character) { KeyPress(character); });
  connections_ += page_.Arrived.Connect([this] {
    const auto early = std::exchange(early_, std::nullopt);
    const bool is_here = pane_.state.area == kAreaText;
    if (early && is_here && page_.Map() != nullptr) Carry(early->code, early->way);
  });
}

void QuickKeys::Switch() {
  switched_ = !AreOn();
  pane_.announcer.Say(AreOn() ? "Quick keys on" : "Quick keys off");
}

void QuickKeys::KeyDown(KeyEvent& key) {
  if (!AreOn()) return;
  if (key.Shift == (kAltMask | kShiftMask) && CarryInTable(key.KeyCode)) key.KeyCode = 0;
  if ((key.Shift & (kCtrlMask | kAltMask)) != 0) return;
  early_.reset();
  if (!Carry(key.KeyCode, (key.Shift & kShiftMask) != 0 ? Way::Back : Way::On)) return;
  key.KeyCode = 0;
}

// What is no key here must not be written into the page's text unheard.
void QuickKeys::KeyPress(int& character) {
  if (!AreOn() || character < ' ') return;
  character = 0;
  pane_.announcer.Say("No quick key");
}

std::optional<std::string> QuickKeys::WhatDoes(const KeyEvent& key) const {
  if (!AreOn()) return std::nullopt;
  if (key.Shift == (kAltMask | kShiftMask)) return TableKeys::WhatDoes(key.KeyCode);
  if ((key.Shift & (kCtrlMask | kAltMask)) != 0) return std::nullopt;
  const int code = key.KeyCode;
  if (code == kKeyReturn || code == kKeySpace) {
    return "follows the link, presses the button, or leads into the field";
  }
  const std::string to = (key.Shift & kShiftMask) != 0 ? "previous " : "next ";
  if (code == kBehindLinks) return to + kTextBehindLinks;
  if (const int level = LevelOf(code)) return to + "heading level " + std::to_string(level);
  if (const QuickKey* found = KeyOf(code)) return to + found->name;
  const bool writes = WritesCharacter(code) || code == kKeyBackspace || code == kKeyDelete;
  return writes ? std::optional<std::string>("is no quick key") : std::nullopt;
}

bool QuickKeys::Carry(int code, Way way) {
  if (code == kKeyReturn || code == kKeySpace) {
    if (IsReady(code, way)) Act();
    return true;
  }
  if (code == kKeyBackspace || code == kKeyDelete) {
    pane_.announcer.Say("No quick key");
    return true;
  }
  if (code == kBehindLinks) {
    if (IsReady(code, way)) GoBehindLinks(way);
    return true;
  }
  if (const int level = LevelOf(code)) {
    const auto wanted = [level](const PageSpan& span) {
      return span.kind == Kind::Heading && span.level == level;
    };
    if (IsReady(code, way)) Go(way, wanted, "heading level " + std::to_string(level));
    return true;
  }
  const QuickKey* found = KeyOf(code);
  if (found == nullptr) return false;
  if (IsReady(code, way)) Go(way, found->wanted, found->name);
  return true;
}

bool QuickKeys::CarryInTable(int code) {
  const auto step = TableKeys::StepOf(code);
  if (!step) return false;
  if (page_.IsKnown()) tables_.Go(*step);
  return true;
}

// Who is quicker than the page is led there as soon as it has come.
bool QuickKeys::IsReady(int code, Way way) {
  if (page_.Map() == nullptr && page_.IsComing()) early_ = {code, way};
  return page_.IsKnown();
}

void QuickKeys::Go(Way way, const TextMap::Wanted& wanted, const std::string& name) {
  const auto found = page_.Map()->Next(way, page_.Caret(), page_.Here(), wanted);
  if (!found) return pane_.announcer.Say(None(way, name));
  // Heard before the text view has laid out what is there.
  pane_.announcer.Say(ReachedWords(*page_.Map(), page_.Map()->At(*found)));
  page_.GoTo(*found);
}

void QuickKeys::GoBehindLinks(Way way) {
  const auto found = page_.Map()->BehindLinks(way, page_.Caret());
  if (!found) return pane_.announcer.Say(None(way, kTextBehindLinks));
  page_.GoTo(*found);
  pane_.announcer.Say(page_.LineWordsFrom(pane_.controls.ctlText1.SelStart()));
}

void QuickKeys::Act() {
  if (!acting_.Use()) pane_.announcer.Say(ActingInText::kNothingToUse);
}

}  // namespace corvane
