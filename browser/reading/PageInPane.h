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
  /// What is said where Use has found nothing to do.
  static constexpr const char* kNothingToUse = "No link, button or field here";

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
  /// Leads the reader to a span, or to a place; the page scrolls along.
  void GoTo(std::size_t span);
  void GoTo(int position);

  enum class Then { Read, Act };
  /// Leads the user to an element of the page's text, or has it act on it there, from
  /// wherever the focus is.
  void Lead(const PageElement& element, Then then);
  /// Takes the reader along to a place in the pane where these words are said; the page
  /// scrolls along.
  void ReadAt(int position, const std::string& words);
  /// Where the page's text ends in the pane; the pane's end where that is not known.
  int End() const;

  /// Does with the innermost element at the caret what there is to do with it. False,
  /// and nothing done, where there is none.
  bool Use();

  /// Title, content and the reader's place in few words.
  std::string AtAGlance() const;

  /// A line of the pane, as it is said when the caret enters it. `start`: in the pane.
  std::string LineWords(int start, const std::string& line) const;
  /// Words that stand in the pane at the position, marked with their languages where they
  /// are the page's.
  std::string InItsLanguages(int position, const std::string& words) const;
  /// The page's words at the caret, marked with the language there.
  std::string InLanguageHere(const std::string& words) const;

  /// The reader has been led elsewhere in the pane, and told so.
  Event<> Moved;
  /// What was still to come has come, or will not.
  Event<> Arrived;

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
  void Ask();
  void Take(const PageTextPtr& text);
  void Put(const PageTextPtr& text);
  void Place(const PageTextPtr& text);
  void Replace(const PageText& text);
  void Restore(const Mark& mark);
  void KeepPlace();
  std::optional<Mark> CaretMark() const;
  int PositionOf(const Mark& mark) const;
  void Left(const PageElement& element);
  void Gone();
  void LookIn(std::size_t look);
  void GoToLeft();
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
  std::optional<PageElement> left_;     // the element whose place is wanted
  bool finding_ = false;                // what has been found in the page is wanted
  std::unique_ptr<Timer> timChanged_;   // what an element's use has changed is looked at
  std::size_t looks_ = 0;               // which look comes next
  Connection asking_;
  Connections connections_;
};

}  // namespace corvane
