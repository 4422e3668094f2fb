#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "browser/PaneContext.h"
#include "browser/reading/TextMap.h"

namespace corvane {

/// The page as it stands in the text pane: its text with what lies where in it, which
/// follows the page's title, and its reader's place there, which is kept while the page
/// is read again and while other pages of the history are shown.
class PageInPane {
 public:
  explicit PageInPane(PaneContext& pane);

  /// What lies where; null while that is not known.
  const TextMap* Map() const { return map_.get(); }
  /// Whether it is still to come.
  bool IsComing() const { return coming_; }
  /// Whether it is known; says so where it is not.
  bool IsKnown() const;

  /// The caret's place in the page's text; below 0 in front of it.
  int Caret() const;
  /// The span that the reader has been led to and still stands at.
  std::optional<std::size_t> Here() const;
  /// The reader acts on a span: where it begins at the caret, it is what he stands at.
  void StandAt(std::size_t span);
  /// Leads the reader to a span, or to a place; the page scrolls along.
  void GoTo(std::size_t span);
  void GoTo(int position);

  /// Takes the reader along to a place in the pane where these words are said; the page
  /// scrolls along.
  void ReadAt(int position, const std::string& words);
  /// The first of the page's words at a place or behind it; the place itself where none is.
  int WordsFrom(int position) const;
  /// Where the page's text ends in the pane; the pane's end where that is not known.
  int End() const;

  /// Has the text taken anew; Refreshed follows, unless the page is left or hangs.
  void Refresh();

  /// Title, content and the reader's place in few words.
  std::string AtAGlance() const;

  /// A line of the pane, as it is said when the caret enters it. `start`: in the pane.
  std::string LineWords(int start, const std::string& line) const;
  /// The same of the line of the pane that the position lies in, from there on; so many
  /// characters of it at most.
  std::string LineWordsFrom(int position, std::size_t most = std::string::npos) const;
  /// Words that stand in the pane at the position, marked with their languages where they
  /// are the page's.
  std::string InItsLanguages(int position, const std::string& words) const;
  /// The page's words at the caret, marked with the language there.
  std::string InLanguageHere(const std::string& words) const;

  /// The reader has been led elsewhere in the pane, and told so.
  Event<> Moved;
  /// What was still to come has come, or will not.
  Event<> Arrived;
  /// The text stands there as the page was when it was last asked for, or there is none;
  /// with the place of the first words that were not there before, below 0 for none.
  Event<int> Refreshed;

 private:
  /// A place that can be found again in another reading of the page.
  struct Mark {
    PageElement element;  ///< that it lies in; none for the bare position
    PageSpan::Kind kind = PageSpan::Kind::Link;
    std::string words;  ///< of the element
    int offset = 0;     ///< in it
    int position = 0;   ///< in the text
  };
  bool IsWanted() const;
  void Shown();
  void Take(const PageTextPtr& text);
  int Put(const PageTextPtr& text);
  int Place(const PageTextPtr& text);
  int Replace(const PageText& text);
  void Restore(const Mark& mark);
  void BeginAt(int position);
  void KeepPlace();
  std::optional<Mark> CaretMark() const;
  int PositionOf(const Mark& mark) const;
  void Changed();
  void SetCaret(int position);

  PaneContext& pane_;
  std::unique_ptr<TextMap> map_;
  bool coming_ = false;
  int length_ = 0;                      // characters of the page's text in the pane
  std::optional<std::size_t> here_;     // the span led to last
  std::string address_;                 // of the page
  std::string document_;                // its name
  std::map<std::string, Mark> places_;  // in the pages of the history, by address
  std::optional<Mark> again_;           // the place in the page that is read again
  bool finding_ = false;                // what has been found in the page is wanted
  bool stale_ = false;  // the page has changed, or may have, since its text was taken
  Connection asking_;
  Connections connections_;
};

}  // namespace corvane
