#pragma once

#include <string>

namespace corvane {

/// Something that a page says by itself: the words of a live region or an alert, a
/// dialog that has opened without taking the focus, or how much more there was
/// than anybody could hear. The words are the page's, bounded, UTF-8.
struct PageWords {
  std::string words;
  bool urgent = false;  ///< the page asks for it to be heard at once
  /// The role of a dialog that has opened, "dialog" or "alertdialog"; then `name` is
  /// what it is called and `words` how it begins.
  std::string dialog;
  std::string name;
  /// A part of the page has opened: `words` are the program's own. In a live region only
  /// those need them to whom the region itself says nothing.
  enum class Opened { Nothing, Part, PartOfRegion } opened = Opened::Nothing;
  std::string language;  ///< of the part of the page that says them, "de-at"; empty: the page's
  int more = 0;          ///< messages that were left out; nothing else is then set
};

}  // namespace corvane
