#include "browser/reading/TextKinds.h"

#include <algorithm>
#include <vector>

#include "access/ElementWords.h"
#include "base/count.h"
#include "base/language.h"
#include "base/text.h"

namespace corvane {
namespace {

using Kind = PageSpan::Kind;

constexpr int kLongestWords = 1000;  // characters of what is reached

std::string Joined(const std::vector<std::string>& words) {
  std::string all;
  for (const auto& each : words) {
    if (each.empty()) continue;
    if (!all.empty()) all += ", ";
    all += each;
  }
  return all;
}

std::string SizeWords(const PageSpan& table) {
  return Joined({table.level > 0 ? Counted(table.level, "row", "rows") : "",
                 table.more > 0 ? Counted(table.more, "column", "columns") : ""});
}

std::string RoleOr(const PageSpan& span, const char* otherwise) {
  const std::string role = span.facts ? RoleWords(*span.facts) : "";
  return role.empty() ? otherwise : role;
}

std::string NameOf(const PageSpan& span) { return span.facts ? span.facts->name : ""; }

// Words that its page has given it.
std::string InItsLanguage(const TextMap& map, const PageSpan& span, const std::string& words) {
  return language::Marked(words, map.LanguageAt(span.start));
}
std::string MarkedName(const TextMap& map, const PageSpan& span) {
  return InItsLanguage(map, span, NameOf(span));
}

std::string StatesOf(const PageSpan& span) {
  return span.facts ? Joined(StateWords(*span.facts)) : "";
}

bool IsNamelessField(const PageSpan& span) {
  return IsField(span) && span.facts && span.facts->name.empty() && span.facts->value.empty();
}

std::string FirstLine(const TextMap& map, const PageSpan& span) {
  const std::string words = map.Text(span.start, std::min(span.length, kLongestWords));
  const auto length = static_cast<int>(text::length(words.substr(0, words.find('\n'))));
  return map.Marked(span.start, length);
}

/// What is said in front of an element's text, on the line that it begins on. What
/// stands in the text anyway is not said twice.
std::string Before(const TextMap& map, const PageSpan& span) {
  const std::string name = NameOf(span);
  const bool is_written =
      !name.empty() && map.Text(span.start, static_cast<int>(text::length(name))) == name;
  switch (span.kind) {
    case Kind::Item:
      if (span.level > 0) return std::to_string(span.level);
      return span.more > 0 ? "bullet" : "";
    case Kind::Table:
      return is_written ? RoleOr(span, "table")
                        : Joined({RoleOr(span, "table"), MarkedName(map, span), SizeWords(span)});
    case Kind::Landmark:
    case Kind::Frame:
      return is_written ? KindWords(span) : Joined({KindWords(span), MarkedName(map, span)});
    case Kind::Cell:
    case Kind::Language:
    case Kind::Place:
      return "";
    default:
      return KindWords(span);
  }
}

/// What is said behind it, and where in the text.
struct Tail {
  int end = 0;
  std::string words;
};

Tail After(const TextMap& map, const PageSpan& span) {
  if (span.kind == Kind::Table) {
    const std::string name = NameOf(span);
    const int length = static_cast<int>(text::length(name));
    const bool is_written = length > 0 && map.Text(span.start, length) == name;
    return {span.start + length, is_written ? SizeWords(span) : ""};
  }
  return {span.End(), StatesOf(span)};
}

/// A sentence that is put together piece by piece.
class Spoken {
 public:
  void Add(const std::string& text) { words_ += text; }
  /// Words of the program's own, set off from what follows.
  void AddKind(const std::string& words) {
    if (!words.empty()) words_ += words + ", ";
  }
  /// The same, set off from what is in front.
  void AddState(const std::string& words) {
    if (words.empty()) return;
    if (!words_.ends_with(", ")) words_ += ", ";
    words_ += words;
  }
  std::string Take() {
    words_ = text::replace_all(words_, "\t", ", ");
    if (words_.ends_with(", ")) words_.resize(words_.size() - 2);
    return words_;
  }

 private:
  std::string words_;
};

}  // namespace

bool IsField(const PageSpan& span) {
  switch (span.kind) {
    case Kind::Button:
    case Kind::Edit:
    case Kind::CheckBox:
    case Kind::Radio:
    case Kind::Choice:
    case Kind::Widget:
      return true;
    default:
      return false;
  }
}

std::string KindWords(const PageSpan& span) {
  switch (span.kind) {
    case Kind::Heading:
      return span.level > 0 ? "heading level " + std::to_string(span.level) : "heading";
    case Kind::Link:
      return span.visited ? "visited link" : "link";
    case Kind::List:
      return "list of " + std::to_string(span.level);
    case Kind::Item:
      return "list item";
    case Kind::Table:
      return Joined({RoleOr(span, "table"), SizeWords(span)});
    case Kind::Quotation:
      return "quotation";
    case Kind::Picture:
      return "picture";
    case Kind::Frame:
      return RoleOr(span, "frame");
    case Kind::Cell:
    case Kind::Language:
    case Kind::Place:
      return "";
    default:
      return RoleOr(span, "");
  }
}

std::string ReachedWords(const TextMap& map, const PageSpan& span) {
  switch (span.kind) {
    case Kind::List:
    case Kind::Landmark:
    case Kind::Frame:
    case Kind::Table:
      return Joined({MarkedName(map, span), KindWords(span)});
    case Kind::Item:
    case Kind::Quotation:
      return Joined({FirstLine(map, span), KindWords(span)});
    default:
      break;
  }
  if (IsField(span) && span.facts) {
    std::string name = MarkedName(map, span);
    if (name.empty() && span.facts->value.empty() && span.kind == Kind::Widget) {
      name = FirstLine(map, span);
    }
    const std::string value = InItsLanguage(map, span, span.facts->value);
    return Joined({name, KindWords(span), value, StatesOf(span)});
  }
  std::string words = map.Marked(span.start, std::min(span.length, kLongestWords));
  std::replace(words.begin(), words.end(), '\n', ' ');
  std::replace(words.begin(), words.end(), '\t', ' ');
  return Joined({words, KindWords(span), StatesOf(span)});
}

std::string LineWithKinds(const TextMap& map, int start, const std::string& line,
                          std::size_t from) {
  const int end = start + static_cast<int>(text::length(line));
  const auto [first, behind] = map.BeginningIn(start, end);
  Spoken spoken;
  int at = start;  // what has been said reaches here
  std::vector<Tail> open;
  const auto say_until = [&](int position) {
    if (position > at) spoken.Add(map.Marked(at, position - at));
    at = std::max(at, position);
  };
  const auto close_until = [&](int position) {
    while (!open.empty() && open.back().end <= position) {
      say_until(open.back().end);
      spoken.AddState(open.back().words);
      open.pop_back();
    }
  };
  for (std::size_t i = std::max(first, from); i < behind; ++i) {
    const PageSpan& span = map.At(i);
    close_until(span.start);
    say_until(span.start);
    spoken.AddKind(Before(map, span));
    if (IsNamelessField(span)) at = std::min(span.End(), end);
    Tail tail = After(map, span);
    tail.end = std::min(tail.end, end);
    // What ends first is on top, also where a name ends inside of what it names.
    const auto place = std::find_if(open.rbegin(), open.rend(),
                                    [&](const Tail& each) { return each.end >= tail.end; });
    if (!tail.words.empty()) open.insert(place.base(), std::move(tail));
  }
  close_until(end);
  say_until(end);
  return spoken.Take();
}

}  // namespace corvane
