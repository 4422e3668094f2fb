#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/event.h"
#include "platform/element_facts.h"

namespace corvane {

/// What an element's event brings along about the caret, counted in characters.
struct ElementCaret {
  int selection_length = 0;  ///< characters selected in the focused field
  int text_after = 0;        ///< characters from the caret to the field's end
  bool known = true;         ///< false: where the caret is cannot be told
  /// What the key that was released has done to the field's text.
  enum class Edit { None, Typed, Removed } edit = Edit::None;
  /// How far the key leads that was released.
  enum class Step { Character, Word, Line, Paragraph } step = Step::Character;
  bool extends = false;  ///< the key selects
  /// The line at the caret as it is shown, of a field of several lines; nothing where
  /// it was not told.
  std::optional<std::string> line = std::nullopt;
};

/// The list that a select opens over the page, and the option in it that its user has
/// come to; nothing is chosen before the list is closed.
struct OpenList {
  bool open = false;
  std::string option;
  std::string group;  ///< of options, that it stands in
  int place = 0;      ///< among the options, from 1; 0: at none
  int size = 0;       ///< how many options there are
};

/// One element of a page, filled from the page record. Texts are UTF-8. The
/// values are those at the time of the record or of the element's last event.
class HTMLElement {
 public:
  /// The class name that the element reports of itself, such as
  /// "HTMLAnchorElement", "HTMLInputElement" or "HTMLButtonElement".
  std::string type_name;
  std::string innerText;
  std::string href;  ///< absolute address; empty where there is none
  std::string name;
  std::string type;  ///< "text", "checkbox", "select-one", "textarea" ...
  /// What an input whose type says "text" really is: "email", "number", "date" ...;
  /// empty for all others.
  std::string kind;
  /// What its author calls a field (of a link or button without text: what stands for
  /// its text, such as a picture's words).
  std::string label;
  std::string language;  ///< of a link, where it is not that of the page: "de-at"
  std::string value;
  bool status = false;  ///< a check box or radio button is checked
  int selectedIndex = -1;
  std::vector<std::string> options;  ///< the texts of a select's options
  std::vector<int> chosen;           ///< which of them are selected, ascending
  std::string text_before_begin;     ///< page text just before the start tag
  std::string text_after_end;        ///< page text just after the end tag
  ElementCaret caret;
  /// The part of a field of several parts (such as a date's month) that has the
  /// focus, and what it holds; empty for all others.
  std::string part;
  std::string part_value;
  /// What the element is to its user, as its last event told it; null before.
  ElementFactsPtr facts;
  ElementFactsPtr facts_before;  ///< as it was told before that
  /// The change that is being told has come with the focus, not after it.
  bool changed_with_focus = false;
  OpenList list;  ///< of a select

  Event<> onfocus;
  Event<> onkeyup;
  /// Of an input that holds a number or a colour: with each step of its value.
  Event<> onchange;
  /// The page has changed what the element is to its user: a state, a value.
  Event<> onstate;
  /// A select's list has opened, been walked or closed.
  Event<> onlist;
};

using HTMLElementPtr = std::shared_ptr<HTMLElement>;

struct HTMLForm {
  std::vector<HTMLElementPtr> elements;
};

/// A loaded page, or a frame's page, as it was when its record was made.
class HTMLDocument {
 public:
  std::string Title;
  std::string nameProp;  ///< the page's name for people; often the title
  std::string language;  ///< that its author says, "de-at"; empty: none
  std::string location;  ///< the page's own address
  /// Whether the page has a body; without one there is no innerText to read.
  bool has_body = false;
  std::string body_innerText;
  std::vector<HTMLElementPtr> links;    ///< every anchor and area with an address, in order
  std::vector<HTMLElementPtr> anchors;  ///< every named anchor
  std::vector<HTMLForm> forms;
  std::vector<std::shared_ptr<HTMLDocument>> frames;
  /// Of the page's top document: the page that was read before it has shown another
  /// one in its place, without loading it; its user is still in it.
  bool in_place = false;
  /// Of the page's top document: its user has asked for it to be read as it is now.
  bool read_again = false;
  /// Of the page's top document: the event that is being raised is the page's own
  /// doing, not what something follows that the user has done.
  bool unasked = false;

  /// Of the page's top document: an element of the page that this document's own
  /// lists do not hold is about to raise its first event. It has appeared since
  /// the record was made, lies in a frame, or is neither link nor form field.
  Event<const HTMLElementPtr&> onelementadded;
};

using HTMLDocumentPtr = std::shared_ptr<HTMLDocument>;

}  // namespace corvane
