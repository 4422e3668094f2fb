#pragma once

#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// A state that an element may have, lack, or not know at all.
enum class Tri { None, No, Yes, Mixed };

/// Something that groups elements: a dialog, a fieldset, a list box, a landmark.
struct ElementGroup {
  int number = 0;    ///< tells it apart from the page's other elements
  std::string role;  ///< as ElementFacts::role
  std::string name;
  std::string role_description;
  int rows = 0;  ///< of a table or grid
  int columns = 0;
  std::string description;  ///< of a dialog: its text, where it is short

  bool operator==(const ElementGroup&) const = default;
};

/// What an element of a page is to its user, as its page tells it: the page may
/// lie, but cannot say more than this. Texts are UTF-8 and bounded; names, values and
/// descriptions may be marked with their language (base/language.h).
struct ElementFacts {
  int number = 0;  ///< tells it apart from the page's other elements
  /// The name of its role as ARIA has it, or one of "password", "date", "month",
  /// "week", "clock", "datetime", "color", "file", "frame", "summary", "audio",
  /// "video", "object"; empty for what is nothing in particular.
  std::string role;
  std::string role_description;  ///< the page's own word for the role
  std::string name;
  Tri checked = Tri::None;
  Tri pressed = Tri::None;
  Tri expanded = Tri::None;
  Tri selected = Tri::None;
  std::string popup;    ///< "menu", "listbox", "tree", "grid", "dialog" or empty
  std::string current;  ///< "page", "step", "location", "date", "time", "true" or empty
  std::string sort;     ///< "ascending", "descending", "other" or empty
  bool required = false;
  bool invalid = false;
  bool disabled = false;
  bool read_only = false;
  bool multiple = false;  ///< several can be chosen
  bool lines = false;     ///< a text of several lines
  bool vertical = false;  ///< a slider or separator that goes up and down
  int level = 0;          ///< 0: none
  int place = 0;          ///< among its like, from 1; 0: unknown
  int size = 0;           ///< how many there are of its like; 0: unknown
  int row = 0;            ///< of a cell, from 1
  int column = 0;
  std::string value;
  int suggestions = -1;    ///< that a field offers for what is typed; -1: unknown
  std::string suggestion;  ///< the one that the arrows have reached
  int position = -1;       ///< of what plays, in seconds; -1: unknown
  int duration = 0;        ///< in seconds; 0: unknown
  int volume = -1;         ///< percent, 0 where it is muted; -1: unknown
  std::string error;       ///< why it is invalid
  std::string description;
  std::vector<ElementGroup> groups;  ///< that it lies in, the outermost first
  std::string language;              ///< of its words: a tag; empty: nobody says

  bool operator==(const ElementFacts&) const = default;
};

using ElementFactsPtr = std::shared_ptr<const ElementFacts>;

}  // namespace corvane
