#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/event.h"
#include "base/life.h"
#include "platform/engine.h"
#include "platform/html_document.h"
#include "platform/later.h"
#include "web/page/ElementEvents.h"
#include "web/page/PageDocuments.h"

namespace corvane {

/// Makes an HTMLDocument of the page that a view shows, its frames' documents in
/// their places, and has the events of its elements raised. Long records are read
/// on a worker thread.
class DocumentReader {
 public:
  using Done = std::function<void(const HTMLDocumentPtr&)>;

  /// `look` may be empty.
  DocumentReader(Engine& engine, Schedule schedule, ElementEvents::Look look);
  DocumentReader(const DocumentReader&) = delete;
  DocumentReader& operator=(const DocumentReader&) = delete;

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
  /// The element that a record of the page holds; null for others.
  HTMLElementPtr Known(const PageElement& element) const { return documents_.Find(element); }
  /// Whether a select that opens a list has the page's focus.
  bool OnList() const;
  /// The list of the select that has the focus has opened, been walked or closed.
  void TellList(const OpenList& list);

  ElementEvents& Events() { return events_; }
  const ElementEvents& Events() const { return events_; }

 private:
  using Records = std::vector<PageRecord>;

  void Collect();
  void Collected(std::string text);
  void PageCame(Records records);
  void FrameCame(const std::string& text);
  void Parse(std::string text, std::function<void(Records)> parsed);
  void FinishIfComplete();
  void Finish();
  void End(const HTMLDocumentPtr& document);
  HTMLDocumentPtr MinimalDocument() const;
  void AskFocusInTurn(bool again, std::size_t turn);

  Engine& engine_;
  Schedule schedule_;
  PageDocuments documents_;
  ElementEvents events_;
  Life page_life_;  // what was asked of an older page is no longer wanted
  Life reading_;    // the same of an older reading
  Done done_;
  bool collected_ = false;  // the page's own record is there
  bool waited_ = false;     // for the first content of an empty page
  int parsing_ = 0;         // frames' records that are being read
  Pending frames_;          // what frames tell is waited for
  Pending asking_;          // where the focus is
  Connection messages_;
};

}  // namespace corvane
