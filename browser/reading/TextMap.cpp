#include "browser/reading/TextMap.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/language.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr int kMuchText = 25;  // characters between two links that make a text of its own

constexpr std::size_t kStep = 1024;  // characters between two places whose offsets are kept

bool IsLink(const PageSpan& span) { return span.kind == PageSpan::Kind::Link; }

bool IsBlank(char c) { return c == ' ' || c == '\n' || c == '\t'; }

}  // namespace

TextMap::TextMap(PageTextPtr page) : page_(std::move(page)) {
  const std::string& text = page_->text;
  for (std::size_t at = 0; at < text.size(); at = text::offset_of(text, kStep, at)) {
    offsets_.push_back(at);
  }
  FindLanguages();
}

void TextMap::FindLanguages() {
  struct Open {
    int end = 0;
    std::string language;
  };
  std::vector<Open> open = {{std::numeric_limits<int>::max(), ""}};
  languages_.push_back({});
  const auto change = [&](int start) {
    if (languages_.back().start == start) languages_.pop_back();
    languages_.push_back({start, open.back().language});
  };
  const auto close_until = [&](int position) {
    while (open.back().end <= position) {
      const int end = open.back().end;
      open.pop_back();
      change(end);
    }
  };
  for (const PageSpan& span : page_->spans) {
    if (span.kind != PageSpan::Kind::Language || !span.facts) continue;
    close_until(span.start);
    open.push_back({std::min(span.End(), open.back().end), language::Tag(span.facts->name)});
    change(span.start);
  }
  close_until(page_->length);
}

std::size_t TextMap::LanguageIndex(int position) const {
  const auto behind =
      std::upper_bound(languages_.begin() + 1, languages_.end(), position,
                       [](int at, const Change& change) { return at < change.start; });
  return static_cast<std::size_t>(behind - languages_.begin()) - 1;
}

const std::string& TextMap::LanguageAt(int position) const {
  return languages_[LanguageIndex(position)].language;
}

std::string TextMap::Marked(int start, int length) const {
  std::string marked;
  const int end = std::min(start + length, page_->length);
  for (std::size_t i = LanguageIndex(start); start < end; ++i) {
    const int until = i + 1 < languages_.size() ? std::min(languages_[i + 1].start, end) : end;
    marked += language::Marked(Text(start, until - start), languages_[i].language);
    start = until;
  }
  return marked;
}

std::size_t TextMap::FirstFrom(int position) const {
  const auto first =
      std::lower_bound(page_->spans.begin(), page_->spans.end(), position,
                       [](const PageSpan& span, int start) { return span.start < start; });
  return static_cast<std::size_t>(first - page_->spans.begin());
}

std::optional<std::size_t> TextMap::Next(Way way, int position, std::optional<std::size_t> here,
                                         const Wanted& wanted) const {
  const auto& spans = page_->spans;
  const bool stands = here && *here < spans.size() && spans[*here].start == position;
  if (way == Way::On) {
    for (std::size_t i = stands ? *here + 1 : FirstFrom(position + 1); i < spans.size(); ++i) {
      if (wanted(spans[i])) return i;
    }
  } else {
    for (std::size_t i = stands ? *here : FirstFrom(position); i-- > 0;) {
      if (wanted(spans[i])) return i;
    }
  }
  return std::nullopt;
}

std::optional<int> TextMap::BehindLinks(Way way, int position) const {
  const auto& spans = page_->spans;
  std::optional<int> last;  // the text found so far
  for (std::size_t i = 0; i < spans.size(); ++i) {
    if (!IsLink(spans[i])) continue;
    std::size_t next = i + 1;
    while (next < spans.size() && !IsLink(spans[next])) ++next;
    const int end = next < spans.size() ? spans[next].start : page_->length;
    const std::string between = Text(spans[i].End(), end - spans[i].End());
    const std::size_t first = between.find_first_not_of(" \n\t");
    if (first == std::string::npos || end - spans[i].End() < kMuchText) continue;
    const int found = spans[i].End() + static_cast<int>(first);  // blanks are a byte each
    if (way == Way::On && found > position) return found;
    if (way == Way::Back && found >= position) return last;
    last = found;
  }
  return way == Way::Back ? last : std::nullopt;
}

std::pair<std::size_t, std::size_t> TextMap::BeginningIn(int start, int end) const {
  return {FirstFrom(start), FirstFrom(std::max(start, end))};
}

std::optional<std::size_t> TextMap::LastBefore(int position) const {
  const std::size_t behind = FirstFrom(position + 1);
  return behind == 0 ? std::nullopt : std::optional(behind - 1);
}

// Whoever is at the caret stands before the character there.
std::optional<std::size_t> TextMap::Around(int position, const Wanted& wanted) const {
  for (std::size_t i = FirstFrom(position + 1); i-- > 0;) {
    const PageSpan& span = page_->spans[i];
    if (span.End() > position && wanted(span)) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> TextMap::Of(const PageElement& element) const {
  for (std::size_t i = 0; i < page_->spans.size(); ++i) {
    const PageSpan& span = page_->spans[i];
    if (span.number == element.number && page_->ElementOf(span) == element) return i;
  }
  return std::nullopt;
}

std::string TextMap::Text(int start, int length) const {
  if (start < 0 || start >= page_->length || length <= 0) return {};
  const std::string& text = page_->text;
  const auto first = static_cast<std::size_t>(start);
  const std::size_t from = text::offset_of(text, first % kStep, offsets_[first / kStep]);
  const std::size_t end = text::offset_of(text, static_cast<std::size_t>(length), from);
  return text.substr(from, end - from);
}

std::string TextMap::Words(const PageSpan& span) const {
  std::string words = Text(span.start, span.length);
  std::replace_if(words.begin(), words.end(), IsBlank, ' ');
  return words;
}

}  // namespace corvane
