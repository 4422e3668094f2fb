#pragma once

#include <webkit2/webkit2.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/html_document.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/page/field_focus.h"
#include "platform/linux/web/page/page_script.h"
#include "platform/page_text.h"
#include "web/page/ElementEvent.h"
#include "web/page/PageRecord.h"

namespace corvane::desktop {

/// Makes an HTMLDocument of the page that a view shows, its frames' documents in
/// their places, and raises the events of its elements. Long records are read on
/// a worker thread.
class PageReader {
 public:
  using Done = std::function<void(HTMLDocumentPtr)>;

  /// `link_focused` is told the address of each link that gets the focus. `look` may be
  /// empty.
  PageReader(WebKitWebView* view, std::function<void(const std::string&)> link_focused,
             LookAtFocus look = nullptr);
  ~PageReader();
  PageReader(const PageReader&) = delete;
  PageReader& operator=(const PageReader&) = delete;

  /// The view shows another page now: what is known of frames is out of date.
  void Forget();
  /// Reads the page; an earlier call that has not called back yet never will.
  /// Always calls back unless the page's process hangs: a page that will not be
  /// read has a document of its title and address.
  void Read(Done done);
  /// Describes the page that has been read as it is now, in a document of its own;
  /// null when there is no such page. Never calls back when the page is left
  /// meanwhile.
  void Describe(Done done);
  /// Gives up a reading that is under way.
  void Cancel();
  /// Has the element that has the focus raise its event, if it does not do so by itself
  /// and has not been asked for before.
  void TellFocus();
  /// The user may have moved the focus, by a key in the page or with the focus that has
  /// come to the view: has a page that runs no scripts, and so cannot tell, raise the
  /// event of the element that has it.
  enum class Moved { ByKey, Here };
  void AskFocus(Moved moved);
  /// The keys are about to come to the element that has the page's focus and has been told
  /// of: not again. `known` when the page knows.
  void FollowFocus(std::function<void()> known);
  /// The element that a record of the page holds under that number; null for others.
  HTMLElementPtr Known(const std::string& document, int number) const;
  /// Whether a select that opens a list has the page's focus.
  bool OnList() const;
  /// The list of the select that has the focus has opened, been walked or closed.
  void TellList(const OpenList& list);
  /// The element that has the page's focus, as far as events have told; null for none.
  HTMLElementPtr Focused() const;
  /// Whether the page's focus is in a field whose text is hidden.
  bool InPassword() const { return in_password_; }
  /// While true, what happens to the page's elements is not told: the page tells of
  /// it so late that the user has gone elsewhere.
  void IgnoreEvents(bool ignore) { ignores_events_ = ignore; }

  /// As WebBrowser::FocusMoved.
  Event<const PageElement&> FocusMoved;

 private:
  void Collect();
  void Receive(const std::string& kind, const std::string& text);
  void ReceiveEvent(const std::string& text);
  void AskFocus(bool again, std::size_t turn);
  void Look();
  void Deliver(const ElementEvent& event);
  void DeliverWaiting();
  static void Raise(const ElementEvent& event, HTMLElement& element);
  HTMLElementPtr ElementOf(const ElementEvent& event);
  bool Introduce(const ElementEvent& event, const HTMLElementPtr& element);
  void ReceiveRecord(PageRecord record);
  void ReceiveCollected(std::string text);
  /// Hands an answer on only while the reading that asked for it is under way.
  std::function<void(std::optional<std::string>)> WhileReading(
      std::function<void(std::optional<std::string>)> handle);
  HTMLDocumentPtr Described(std::vector<PageRecord> records) const;
  void Parse(std::string text, std::function<void(std::vector<PageRecord>)> parsed);
  void FinishIfComplete();
  void Finish();
  bool IsMissingFrames() const;
  HTMLDocumentPtr Join(const FramePlace& place);
  HTMLDocumentPtr MinimalDocument() const;
  void Attach(PageRecord record);

  WebKitWebView* view_;
  std::function<void(const std::string&)> link_focused_;
  std::unique_ptr<PageScript> script_;
  std::shared_ptr<PageReader*> self_;  // answers that come after the reader find it gone

  ObjectPtr<GCancellable> cancel_;  // while a record is asked for
  bool ignores_events_ = false;
  bool silent_ = false;  // the page runs no scripts
  int reading_ = 0;      // counts readings, so that answers to an older one are known
  Done done_;
  bool collected_ = false;  // the page's own record is among `records_`
  bool waited_ = false;     // for the first content of an empty page
  int parsing_ = 0;         // frames' records that are being read
  int page_ = 0;            // counts pages, so that answers for an older one are known
  std::map<FramePlace, PageRecord> records_;
  Delay frame_delay_;

  HTMLDocumentPtr document_;
  std::string origin_;
  std::map<FramePlace, std::string> documents_;  // identities of the documents in place
  std::unordered_map<std::string, std::unordered_map<int, HTMLElementPtr>> elements_;
  std::unordered_set<HTMLElementPtr> introduced_;    // told of as added
  std::size_t late_elements_ = 0;                    // that no record holds
  using ElementPlace = std::pair<std::string, int>;  // a document and the number in it
  ElementPlace focused_;                             // told of last
  bool listened_ = false;                            // since the focus was last asked for
  bool unheard_ = false;                             // it has moved before
  std::string asked_;                                // the document whose focus was asked for last
  bool in_password_ = false;

  LookAtFocus look_;
  std::deque<ElementEvent> waiting_;  // the first one waits to be looked at
  unsigned looks_ = 0;                // counts them, so that a late answer is known
  Delay look_delay_;
  Delay asking_;  // where the focus is
};

}  // namespace corvane::desktop
