#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/page_text.h"

namespace corvane {

/// Looks up what lies where in a page's text. Spans are named by their index in
/// PageText::spans, positions are characters of PageText::text.
class TextMap {
 public:
  using Wanted = std::function<bool(const PageSpan&)>;
  enum class Way { On, Back };

  explicit TextMap(PageTextPtr page);

  const PageText& Page() const { return *page_; }
  const PageSpan& At(std::size_t index) const { return page_->spans[index]; }

  /// The nearest wanted span in that direction that begins beyond the position. Of
  /// several that begin together each is reached by itself: `here` is the one that has
  /// been reached at the position, none when the caret came there otherwise.
  std::optional<std::size_t> Next(Way way, int position, std::optional<std::size_t> here,
                                  const Wanted& wanted) const;
  /// The first text behind a row of links, in that direction; none where there is none.
  std::optional<int> BehindLinks(Way way, int position) const;
  /// The spans that begin in a part of the text, by index: the first one and the one
  /// behind the last.
  std::pair<std::size_t, std::size_t> BeginningIn(int start, int end) const;
  /// The last of the spans that begin at the position or before it.
  std::optional<std::size_t> LastBefore(int position) const;
  /// The innermost span that holds the position and is wanted.
  std::optional<std::size_t> Around(int position, const Wanted& wanted) const;
  std::optional<std::size_t> Of(const PageElement& element) const;
  /// The span's words, each line end a blank.
  std::string Words(const PageSpan& span) const;
  /// Some of the text.
  std::string Text(int start, int length) const;
  /// The same, marked with the languages that its parts are in.
  std::string Marked(int start, int length) const;
  /// The language at the position: a tag; empty where nobody says.
  const std::string& LanguageAt(int position) const;

 private:
  /// From here on the text is in another language.
  struct Change {
    int start = 0;
    std::string language;
  };
  void FindLanguages();
  std::size_t LanguageIndex(int position) const;
  std::size_t FirstFrom(int position) const;

  PageTextPtr page_;
  std::vector<std::size_t> offsets_;  // in bytes, of every kStep-th character
  std::vector<Change> languages_;     // by their starts; the first one is at 0
};

}  // namespace corvane
