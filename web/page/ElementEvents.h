#pragma once

#include <deque>
#include <functional>
#include <string>

#include "base/event.h"
#include "base/life.h"
#include "platform/later.h"
#include "web/page/ElementEvent.h"
#include "web/page/PageDocuments.h"

namespace corvane {

/// Raises the events of a page's elements as the page tells them, and knows which of them
/// has the page's focus.
class ElementEvents {
 public:
  /// Looks at what has the page's focus, and hands that on, later; an empty one when there
  /// is nothing to be seen.
  using Look = std::function<void(std::function<void(const FieldFocus&)> seen)>;

  /// `look` may be empty: what a script cannot tell then stays unknown.
  ElementEvents(PageDocuments& documents, Later later, Look look);

  /// The page has told something.
  void Receive(const std::string& text);
  /// Another page is shown.
  void Forget();
  /// The page has been read: nobody knows the elements of this reading yet.
  void PageRead() { listened_ = false; }
  /// Somebody listens now, and has what has the focus told once more. What was told before
  /// had no listener; in a page that is read again it had, but for what came since.
  void ListenedTo();
  /// While true, what happens to the page's elements is not told: the page tells of it so
  /// late that the user has gone elsewhere.
  void Ignore(bool ignore) { ignores_ = ignore; }

  /// The element that has the page's focus, as far as events have told; null for none.
  HTMLElementPtr Focused() const { return documents_.Find(focused_); }
  /// Whether the page's focus is in a field whose text is hidden.
  bool InPassword() const { return in_password_; }

  /// A link has got the focus.
  Event<const std::string& /*address*/> LinkFocused;
  /// As WebBrowser::FocusMoved.
  Event<const PageElement&> FocusMoved;

 private:
  void LookAtFirst();
  void DeliverWaiting();
  void Deliver(const ElementEvent& event);
  void Tell(const ElementEvent& event, const HTMLElementPtr& element);

  PageDocuments& documents_;
  const Look look_;
  bool ignores_ = false;
  PageElement focused_;    // told of last
  bool listened_ = false;  // since the focus was last asked for
  bool unheard_ = false;   // it has moved before
  std::string asked_;      // the document whose focus was asked for last
  bool in_password_ = false;
  std::deque<ElementEvent> waiting_;  // the first one waits to be looked at
  Life looking_;
  Pending patience_;  // for what is seen
  Life life_;
};

}  // namespace corvane
