#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/html_document.h"
#include "platform/page_text.h"
#include "web/page/ElementEvent.h"
#include "web/page/PageRecord.h"

namespace corvane {

/// The documents of one page, its frames' in their places, put together from the records
/// that arrive in whatever order, and their elements by the names that events use.
class PageDocuments {
 public:
  /// Another page is shown: nothing of it is known.
  void Forget();
  /// The page is read once more: what frames have told so far still holds.
  void BeginReading() { page_.reset(); }

  /// A frame has told what is in it. Once the page has been put together, its document
  /// takes its place there.
  void AddFrame(PageRecord record);
  /// The page itself has told, and frames along with it.
  void AddPage(std::vector<PageRecord> records);
  /// Whether a frame still has to tell.
  bool MissesFrames() const;
  /// Puts together what is there; what lies in frames that have told nothing, or belong to
  /// an older page, is not known.
  HTMLDocumentPtr PutTogether();
  /// The same of records of the page as it is now, which change nothing here. A frame that
  /// tells nothing is as it was. Null when they are of another page.
  HTMLDocumentPtr Described(std::vector<PageRecord> records) const;

  /// Null until the page has been put together.
  const HTMLDocumentPtr& Page() const { return page_; }
  /// The name of the page's own document; empty before.
  std::string PageName() const;
  /// Whether the page runs no scripts, and so never tells anything unasked.
  bool IsSilent() const { return silent_; }

  /// The element that a record holds under that number; null for others.
  HTMLElementPtr Find(const PageElement& element) const;
  /// The element that an event is about; one that no record holds joins the others. Null
  /// where it cannot be known.
  HTMLElementPtr ElementOf(const ElementEvent& event);
  /// Whether the page's own lists lack the element and nobody has been told of it yet.
  /// Asked while nobody knows the page, nobody is.
  bool Introduce(const ElementEvent& event, const HTMLElementPtr& element);

 private:
  using Elements = std::unordered_map<int, HTMLElementPtr>;

  HTMLDocumentPtr Join(const FramePlace& place);
  void Attach(PageRecord record);
  void ForgetFramesIn(const FramePlace& place);

  std::map<FramePlace, PageRecord> records_;  // that wait to be put together
  std::string origin_;                        // of the page
  bool silent_ = false;

  HTMLDocumentPtr page_;
  std::map<FramePlace, std::string> names_;  // of the documents in place
  std::unordered_map<std::string, Elements> elements_;
  std::unordered_set<HTMLElementPtr> introduced_;  // told of as added
  std::size_t late_elements_ = 0;                  // that no record holds
};

/// Whether a page has next to nothing in it. Many a page comes so, and scripts fill it
/// after it has loaded.
bool LooksEmpty(const std::vector<PageRecord>& records);

}  // namespace corvane
