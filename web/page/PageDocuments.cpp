#include "web/page/PageDocuments.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kMostFrames = 500;
/// Characters of text, with no link and no field, that are no page yet.
constexpr std::size_t kNextToNothing = 30;
/// Elements that a page makes without end are not followed for ever.
constexpr std::size_t kMostLateElements = 20'000;

/// Texts of an element that has changed since it was described.
void Redescribe(const HTMLElement& now, HTMLElement& element) {
  element.type = now.type;
  element.name = now.name;
  element.innerText = now.innerText;
  element.text_before_begin = now.text_before_begin;
  element.text_after_end = now.text_after_end;
  element.kind = now.kind;
  element.label = now.label;
}

HTMLDocumentPtr DocumentOf(const FrameHint& hint) {
  auto document = std::make_shared<HTMLDocument>();
  document->Title = hint.title;
  document->nameProp = hint.title;
  document->location = hint.address;
  return document;
}

FramePlace Inner(FramePlace outer, std::size_t index) {
  outer.push_back(static_cast<int>(index));
  return outer;
}

using RecordsByPlace = std::map<FramePlace, PageRecord>;

// The documents of fresh records put together. A frame that has none is as it
// stood in the document before.
HTMLDocumentPtr Renewed(RecordsByPlace& records, const FramePlace& place,
                        const HTMLDocument* before) {
  const PageRecord& record = records.at(place);
  auto& frames = record.document->frames;
  frames.clear();
  for (std::size_t i = 0; i < record.frames.size(); ++i) {
    const FramePlace inner = Inner(place, i);
    const auto known = before != nullptr && i < before->frames.size()
                           ? before->frames[i]
                           : DocumentOf(record.frames[i]);
    frames.push_back(records.contains(inner) ? Renewed(records, inner, known.get()) : known);
  }
  return record.document;
}

bool IsInside(const FramePlace& place, const FramePlace& outer) {
  return place.size() >= outer.size() && std::equal(outer.begin(), outer.end(), place.begin());
}

}  // namespace

bool LooksEmpty(const std::vector<PageRecord>& records) {
  const PageRecord& page = records.front();
  const HTMLDocument& document = *page.document;
  return records.size() == 1 && page.frames.empty() && document.has_body &&
         document.links.empty() && document.forms.empty() &&
         text::length(document.body_innerText) < kNextToNothing;
}

void PageDocuments::Forget() {
  records_.clear();
  names_.clear();
  elements_.clear();
  introduced_.clear();
  late_elements_ = 0;
  page_.reset();
}

void PageDocuments::AddFrame(PageRecord record) {
  if (record.place.empty()) return;  // the page itself is only read when asked
  if (page_) return Attach(std::move(record));
  if (records_.size() >= kMostFrames) return;
  const FramePlace place = record.place;
  records_[place] = std::move(record);
}

void PageDocuments::AddPage(std::vector<PageRecord> records) {
  origin_ = records.front().origin;
  for (auto& record : records) {
    const FramePlace place = record.place;
    records_[place] = std::move(record);
  }
}

bool PageDocuments::MissesFrames() const {
  for (const auto& [place, record] : records_) {
    for (std::size_t i = 0; i < record.frames.size(); ++i) {
      if (!record.frames[i].silent && !records_.contains(Inner(place, i))) return true;
    }
  }
  return false;
}

HTMLDocumentPtr PageDocuments::PutTogether() {
  elements_.clear();
  introduced_.clear();
  late_elements_ = 0;
  names_.clear();
  silent_ = records_[{}].silent;
  page_ = Join({});
  records_.clear();
  return page_;
}

HTMLDocumentPtr PageDocuments::Join(const FramePlace& place) {
  PageRecord& record = records_[place];
  names_[place] = record.document_id;
  elements_[record.document_id] = std::move(record.elements);
  auto& frames = record.document->frames;
  frames.clear();
  for (std::size_t i = 0; i < record.frames.size(); ++i) {
    const FramePlace inner = Inner(place, i);
    const auto found = records_.find(inner);
    const bool usable = found != records_.end() && found->second.top_origin == origin_;
    frames.push_back(usable ? Join(inner) : DocumentOf(record.frames[i]));
  }
  return record.document;
}

HTMLDocumentPtr PageDocuments::Described(std::vector<PageRecord> records) const {
  if (records.empty() || !records.front().place.empty() || names_.empty() ||
      records.front().document_id != PageName()) {
    return nullptr;
  }
  RecordsByPlace by_place;
  for (auto& record : records) {
    const FramePlace place = record.place;
    by_place[place] = std::move(record);
  }
  return Renewed(by_place, {}, page_.get());
}

void PageDocuments::Attach(PageRecord record) {
  if (record.top_origin != origin_ || elements_.contains(record.document_id)) return;
  HTMLDocumentPtr parent = page_;
  for (std::size_t depth = 0; depth + 1 < record.place.size(); ++depth) {
    const auto index = static_cast<std::size_t>(record.place[depth]);
    if (index >= parent->frames.size()) return;
    parent = parent->frames[index];
  }
  const auto index = static_cast<std::size_t>(record.place.back());
  if (index >= kMostFrames) return;
  while (parent->frames.size() <= index) parent->frames.push_back(std::make_shared<HTMLDocument>());

  ForgetFramesIn(record.place);
  for (const auto& hint : record.frames) record.document->frames.push_back(DocumentOf(hint));
  names_[record.place] = record.document_id;
  elements_[record.document_id] = std::move(record.elements);
  parent->frames[index] = record.document;
}

void PageDocuments::ForgetFramesIn(const FramePlace& place) {
  for (auto known = names_.begin(); known != names_.end();) {
    if (IsInside(known->first, place)) {
      elements_.erase(known->second);
      known = names_.erase(known);
    } else {
      ++known;
    }
  }
}

std::string PageDocuments::PageName() const {
  const auto page = names_.find({});
  return page == names_.end() ? "" : page->second;
}

HTMLElementPtr PageDocuments::Find(const PageElement& element) const {
  const auto document = elements_.find(element.document);
  if (document == elements_.end()) return nullptr;
  const auto found = document->second.find(element.number);
  return found == document->second.end() ? nullptr : found->second;
}

HTMLElementPtr PageDocuments::ElementOf(const ElementEvent& event) {
  const auto document = elements_.find(event.document_id);
  if (document == elements_.end()) return nullptr;
  const auto found = document->second.find(event.number);
  if (found != document->second.end()) {
    if (event.described && introduced_.contains(found->second)) {
      Redescribe(*event.described, *found->second);
    }
    return found->second;
  }
  if (!event.described || late_elements_ >= kMostLateElements) return nullptr;
  ++late_elements_;
  return document->second[event.number] = event.described;
}

bool PageDocuments::Introduce(const ElementEvent& event, const HTMLElementPtr& element) {
  if (!page_ || !page_->onelementadded.HasListeners()) return false;
  const bool listed = !names_.empty() && PageName() == event.document_id &&
                      event.described == nullptr && !introduced_.contains(element);
  return !listed && introduced_.insert(element).second;
}

}  // namespace corvane
