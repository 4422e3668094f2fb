#include "access/ElementWords.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/count.h"

namespace corvane {
namespace {

struct RoleName {
  std::string_view role;
  const char* words;
};

// One role a row; what is not here is called nothing.
constexpr auto kRoles = std::to_array<RoleName>({
    {"alert", "alert"},
    {"alertdialog", "alert dialog"},
    {"application", "application"},
    {"article", "article"},
    {"audio", "audio"},
    {"banner", "banner"},
    {"button", "button"},
    {"cell", "cell"},
    {"checkbox", "check box"},
    {"clock", "time"},
    {"color", "color"},
    {"columnheader", "column header"},
    {"combobox", "combo box"},
    {"complementary", "complementary"},
    {"contentinfo", "content information"},
    {"date", "date"},
    {"datetime", "date and time"},
    {"dialog", "dialog"},
    {"document", "document"},
    {"feed", "feed"},
    {"figure", "figure"},
    {"file", "file"},
    {"form", "form"},
    {"frame", "frame"},
    {"grid", "grid"},
    {"gridcell", "cell"},
    {"group", "group"},
    {"heading", "heading"},
    {"img", "picture"},
    {"link", "link"},
    {"list", "list"},
    {"listbox", "list box"},
    {"listitem", "list item"},
    {"log", "log"},
    {"main", "main"},
    {"marquee", "marquee"},
    {"math", "math"},
    {"menu", "menu"},
    {"menubar", "menu bar"},
    {"menuitem", "menu item"},
    {"menuitemcheckbox", "check menu item"},
    {"menuitemradio", "radio menu item"},
    {"meter", "meter"},
    {"month", "month"},
    {"navigation", "navigation"},
    {"note", "note"},
    {"object", "object"},
    {"option", "option"},
    {"password", "password"},
    {"progressbar", "progress bar"},
    {"radio", "radio button"},
    {"radiogroup", "radio group"},
    {"region", "region"},
    {"row", "row"},
    {"rowheader", "row header"},
    {"scrollbar", "scroll bar"},
    {"search", "search"},
    {"searchbox", "search field"},
    {"separator", "separator"},
    {"slider", "slider"},
    {"spinbutton", "spin button"},
    {"status", "status"},
    {"summary", "disclosure button"},
    {"switch", "switch"},
    {"tab", "tab"},
    {"table", "table"},
    {"tablist", "tab list"},
    {"tabpanel", "tab panel"},
    {"textbox", "edit"},
    {"timer", "timer"},
    {"toolbar", "tool bar"},
    {"tooltip", "tool tip"},
    {"tree", "tree"},
    {"treegrid", "tree grid"},
    {"treeitem", "tree item"},
    {"video", "video"},
    {"week", "week"},
});

std::string WordsOfRole(std::string_view role) {
  const auto* found = std::find_if(kRoles.begin(), kRoles.end(),
                                   [&](const auto& each) { return each.role == role; });
  return found == kRoles.end() ? std::string() : found->words;
}

using Words = std::vector<std::string>;

void AddTri(Words& words, Tri state, const char* yes, const char* no, const char* mixed) {
  if (state == Tri::Yes) words.emplace_back(yes);
  if (state == Tri::No) words.emplace_back(no);
  if (state == Tri::Mixed) words.emplace_back(mixed);
}

void AddChecked(Words& words, const ElementFacts& facts) {
  if (facts.role == "switch") {
    AddTri(words, facts.checked, "on", "off", "partly on");
  } else {
    AddTri(words, facts.checked, "checked", "not checked", "partly checked");
  }
}

std::string PopupWords(const std::string& popup) {
  return popup == "listbox" ? "has list" : "has " + popup;
}

std::string CurrentWords(const std::string& current) {
  return current == "true" ? "current" : "current " + current;
}

// What an element of that role opens goes without saying.
bool SaysPopup(const ElementFacts& facts) {
  return !facts.popup.empty() && !(facts.role == "combobox" && facts.popup == "listbox");
}

Words StatesWithout(const ElementFacts& facts, bool with_checked) {
  Words words;
  if (with_checked) AddChecked(words, facts);
  AddTri(words, facts.pressed, "pressed", "not pressed", "partly pressed");
  AddTri(words, facts.expanded, "expanded", "collapsed", "");
  AddTri(words, facts.selected, "selected", "not selected", "");
  if (facts.required) words.emplace_back("required");
  if (facts.invalid) words.emplace_back("invalid");
  if (facts.invalid && !facts.error.empty()) words.push_back(facts.error);
  if (facts.disabled) words.emplace_back("unavailable");
  if (facts.read_only) words.emplace_back("read only");
  if (SaysPopup(facts)) words.push_back(PopupWords(facts.popup));
  if (!facts.current.empty()) words.push_back(CurrentWords(facts.current));
  if (!facts.sort.empty()) {
    words.push_back(facts.sort == "other" ? "sorted" : "sorted " + facts.sort);
  }
  if (facts.vertical) words.emplace_back("vertical");
  if (facts.level > 0) words.push_back("level " + std::to_string(facts.level));
  return words;
}

std::string Joined(const Words& words) {
  std::string sentence;
  for (const auto& each : words) {
    if (each.empty()) continue;
    if (!sentence.empty()) sentence += ", ";
    sentence += each;
  }
  return sentence;
}

std::string TimeWords(int seconds) {
  std::string words;
  const auto add = [&words](int number, const char* one, const char* many) {
    if (!words.empty()) words += ' ';
    words += Counted(number, one, many);
  };
  if (seconds >= 3600) add(seconds / 3600, "hour", "hours");
  if (seconds % 3600 >= 60) add(seconds % 3600 / 60, "minute", "minutes");
  if (seconds % 60 > 0 || words.empty()) add(seconds % 60, "second", "seconds");
  return words;
}

}  // namespace

std::string PositionWords(const ElementFacts& facts) {
  if (facts.position < 0 || (facts.position == 0 && facts.duration == 0)) return {};
  const std::string words = TimeWords(facts.position);
  return facts.duration > 0 ? words + " of " + TimeWords(facts.duration) : words;
}

namespace {

std::string VolumeWords(int percent) {
  return percent == 0 ? "muted" : "volume " + std::to_string(percent) + " percent";
}

// Each frame counts its elements by itself, so the number alone tells no two apart.
bool IsIn(const std::vector<ElementGroup>& groups, const ElementGroup& group) {
  return std::any_of(groups.begin(), groups.end(), [&](const ElementGroup& each) {
    return each.number == group.number && each.role == group.role && each.name == group.name;
  });
}

}  // namespace

std::string RoleWords(const ElementFacts& facts) {
  if (!facts.role_description.empty()) return facts.role_description;
  if (facts.role == "button" && facts.pressed != Tri::None) return "toggle button";
  return WordsOfRole(facts.role);
}

std::string RoleWords(const ElementGroup& group) {
  return group.role_description.empty() ? WordsOfRole(group.role) : group.role_description;
}

Words StateWords(const ElementFacts& facts) { return StatesWithout(facts, true); }

std::string PlaceWords(const ElementFacts& facts) {
  if (facts.row > 0 && facts.column > 0) {
    return "row " + std::to_string(facts.row) + ", column " + std::to_string(facts.column);
  }
  if (facts.place <= 0) return {};
  std::string words = std::to_string(facts.place);
  if (facts.size > 0) words += " of " + std::to_string(facts.size);
  return words;
}

std::string ElementSentence(const ElementFacts& facts) {
  Words words = {RoleWords(facts), facts.name};
  for (auto& state : StateWords(facts)) words.push_back(std::move(state));
  words.push_back(facts.value);
  words.push_back(PositionWords(facts));
  words.push_back(PlaceWords(facts));
  words.push_back(facts.description);
  return Joined(words);
}

Words MoreWords(const ElementFacts& facts, bool with_checked) {
  Words words = StatesWithout(facts, with_checked);
  words.push_back(PlaceWords(facts));
  words.push_back(facts.description);
  std::erase(words, std::string());
  return words;
}

std::string GroupWords(const ElementGroup& group) {
  Words words = {group.name, RoleWords(group)};
  if (group.rows > 0) words.push_back(Counted(group.rows, "row", "rows"));
  if (group.columns > 0) words.push_back(Counted(group.columns, "column", "columns"));
  words.push_back(group.description);
  return Joined(words);
}

Words EnteredWords(const std::vector<ElementGroup>& before, const std::vector<ElementGroup>& now) {
  Words words;
  for (const ElementGroup& group : now) {
    if (!IsIn(before, group)) words.push_back(GroupWords(group));
  }
  return words;
}

std::string EstablishedChangeWords(const ElementFacts& before, const ElementFacts& now) {
  struct Change {
    Tri before;
    Tri now;
    const char* yes;
    const char* no;
  };
  for (const Change& change : {Change{before.expanded, now.expanded, "expanded", "collapsed"},
                               {before.pressed, now.pressed, "pressed", "not pressed"},
                               {before.checked, now.checked, "checked", "not checked"},
                               {before.selected, now.selected, "selected", "not selected"}}) {
    if (change.now == change.before) continue;
    if (change.now == Tri::Yes) return change.yes;
    if (change.now == Tri::No) return change.no;
  }
  return {};
}

std::string ChangeWords(const ElementFacts& before, const ElementFacts& now) {
  Words words;
  const auto old = StateWords(before);
  for (auto& state : StateWords(now)) {
    if (std::find(old.begin(), old.end(), state) == old.end()) words.push_back(std::move(state));
  }
  if (before.invalid && !now.invalid) words.emplace_back("valid");
  if (before.disabled && !now.disabled) words.emplace_back("available");
  if (now.value != before.value) words.push_back(now.value);
  if (now.position != before.position) words.push_back(PositionWords(now));
  if (now.volume >= 0 && now.volume != before.volume) words.push_back(VolumeWords(now.volume));
  if (now.suggestions >= 0 && now.suggestions != before.suggestions) {
    words.push_back(now.suggestions == 0 ? "no suggestions"
                                         : Counted(now.suggestions, "suggestion", "suggestions"));
  }
  if (now.suggestion != before.suggestion && !now.suggestion.empty()) {
    words.push_back(now.suggestion);
    words.push_back(PlaceWords(now));
  }
  return Joined(words);
}

}  // namespace corvane
