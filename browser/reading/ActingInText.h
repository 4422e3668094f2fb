#pragma once

#include <optional>

#include "browser/PaneContext.h"
#include "browser/reading/PageInPane.h"

namespace corvane {

/// What the user does with the page where its text is read: follows a link, presses a
/// button, goes into a field and comes back from it. Where the page leads on from there,
/// the reader is led along.
class ActingInText {
 public:
  /// What is said where Use has found nothing to do.
  static constexpr const char* kNothingToUse = "No link, button or field here";

  ActingInText(PaneContext& pane, PageInPane& page);

  /// Does with the innermost element at the caret what there is to do with it. False,
  /// and nothing done, where there is none.
  bool Use();

  enum class Then { Read, Act };
  /// Leads the user to an element of the page's text, or has it act on it there, from
  /// wherever the focus is.
  void Lead(const PageElement& element, Then then);

 private:
  void Left(const PageElement& element);
  void Gone();
  void FocusMoved(const PageElement& element);
  void Refreshed(int first_new);
  void GoToLeft(const PageElement& element);
  void SayLineAt(int position);
  void Forget();

  PaneContext& pane_;
  PageInPane& page_;
  struct Used {
    PageElement element;
    int said;      ///< how often something had been said
    int news = 0;  ///< lines that have been said since, as nothing else was
  };
  std::optional<Used> used_;         // and no key has been pressed in the text since
  std::optional<PageElement> left_;  // the element of the page that the user comes from
  std::optional<PageElement> to_;    // that the page has led its focus to
  Connections connections_;
};

}  // namespace corvane
