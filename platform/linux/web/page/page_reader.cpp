#include "platform/linux/web/page/page_reader.h"

#include <malloc.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "web/address/OwnAddress.h"

namespace corvane::desktop {
namespace {

/// Longer texts are taken apart on a worker thread.
// When a page that cannot tell where its focus is is asked after a key.
constexpr std::array kAskSeconds = {0.0, 0.05, 0.2};
constexpr std::size_t kShortText = 64 * 1024;
/// After longer ones the worker gives free memory back to the system.
constexpr std::size_t kLargeText = 1024 * 1024;
/// Nothing that a page sends may be longer.
constexpr std::size_t kLongestText = 256 * 1024 * 1024;
/// How long a page waits for frames whose documents have said nothing yet.
constexpr double kFrameSeconds = 0.5;
constexpr std::size_t kMostFrames = 500;
/// Characters of text, with no link and no field, that are no page yet.
constexpr std::size_t kNextToNothing = 30;
/// Elements that a page makes without end are not followed for ever.
constexpr std::size_t kMostLateElements = 20'000;
/// How long what a script cannot tell of a field is waited for.
constexpr double kLookSeconds = 0.3;
/// Events that wait behind it.
constexpr std::size_t kMostWaiting = 100;

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

using Records = std::vector<PageRecord>;

Records ParseAny(const std::string& text) {
  Records records = ParseRecords(text);
  if (records.empty()) {
    if (auto record = ParseRecord(text)) records.push_back(std::move(*record));
  }
  return records;
}

HTMLDocumentPtr DocumentOf(const FrameHint& hint) {
  auto document = std::make_shared<HTMLDocument>();
  document->Title = hint.title;
  document->nameProp = hint.title;
  document->location = hint.address;
  return document;
}

using RecordsByPlace = std::map<FramePlace, PageRecord>;

// The documents of fresh records put together. A frame that has none is as it
// stood in the document before.
HTMLDocumentPtr PutTogether(RecordsByPlace& records, const FramePlace& place,
                            const HTMLDocument* before) {
  const PageRecord& record = records.at(place);
  auto& frames = record.document->frames;
  frames.clear();
  for (std::size_t i = 0; i < record.frames.size(); ++i) {
    FramePlace inner = place;
    inner.push_back(static_cast<int>(i));
    const auto known = before != nullptr && i < before->frames.size()
                           ? before->frames[i]
                           : DocumentOf(record.frames[i]);
    frames.push_back(records.contains(inner) ? PutTogether(records, inner, known.get()) : known);
  }
  return record.document;
}

/// Whether the page has next to nothing in it. Many a page comes so, and scripts
/// fill it after it has loaded.
bool LooksEmpty(const Records& records) {
  const PageRecord& page = records.front();
  const HTMLDocument& document = *page.document;
  return records.size() == 1 && page.frames.empty() && document.has_body &&
         document.links.empty() && document.forms.empty() &&
         text::length(document.body_innerText) < kNextToNothing;
}

bool IsInside(const FramePlace& place, const FramePlace& outer) {
  return place.size() >= outer.size() && std::equal(outer.begin(), outer.end(), place.begin());
}

}  // namespace

PageReader::PageReader(WebKitWebView* view, std::function<void(const std::string&)> link_focused,
                       LookAtFocus look)
    : view_(view),
      link_focused_(std::move(link_focused)),
      self_(std::make_shared<PageReader*>(this)),
      look_(std::move(look)) {
  script_ = std::make_unique<PageScript>(
      webkit_web_view_get_user_content_manager(view),
      std::vector{"record.js", "names.js", "like_lists.js", "table_grid.js", "facts.js", "caret.js",
                  "events.js", "attention.js", "suggestions.js"},
      "corvane", [this](const std::string& kind, const std::string& text) { Receive(kind, text); });
}

PageReader::~PageReader() { Cancel(); }

void PageReader::Forget() {
  Cancel();
  ++page_;
  parsing_ = 0;
  records_.clear();
  documents_.clear();
  elements_.clear();
  introduced_.clear();
  late_elements_ = 0;
  waiting_.clear();
  in_password_ = false;
  document_.reset();
}

void PageReader::Cancel() {
  if (cancel_) g_cancellable_cancel(cancel_.get());
  cancel_.reset();
  ++reading_;
  done_ = nullptr;
  collected_ = false;
  frame_delay_.Cancel();
}

void PageReader::Read(Done done) {
  Cancel();
  done_ = std::move(done);
  document_.reset();
  cancel_.reset(g_cancellable_new());
  waited_ = false;
  Collect();
}

void PageReader::Collect() {
  Evaluate(view_, "corvane.collect()", cancel_.get(),
           WhileReading([this](std::optional<std::string> text) {
             ReceiveCollected(std::move(text).value_or(""));
           }));
}

std::function<void(std::optional<std::string>)> PageReader::WhileReading(
    std::function<void(std::optional<std::string>)> handle) {
  return [weak = std::weak_ptr(self_), reading = reading_,
          handle = std::move(handle)](std::optional<std::string> text) {
    const auto self = weak.lock();
    if (self && (*self)->reading_ == reading) handle(std::move(text));
  };
}

// The elements that it finds are not remembered by the page's script: those that
// are new are described with their first event as if it had never been asked.
void PageReader::Describe(Done done) {
  if (!document_) return done(nullptr);
  Evaluate(view_, "corvane.collect(false)", nullptr,
           WhileReading([this, done](std::optional<std::string> text) {
             Parse(std::move(text).value_or(""), [this, reading = reading_, done](Records records) {
               if (reading == reading_) done(Described(std::move(records)));
             });
           }));
}

HTMLDocumentPtr PageReader::Described(Records records) const {
  const auto top = documents_.find({});
  if (records.empty() || !records.front().place.empty() || top == documents_.end() ||
      records.front().document_id != top->second) {
    return document_;
  }
  RecordsByPlace by_place;
  for (auto& record : records) {
    const FramePlace place = record.place;
    by_place[place] = std::move(record);
  }
  return PutTogether(by_place, {}, document_.get());
}

void PageReader::Parse(std::string text, std::function<void(Records)> parsed) {
  if (text.size() > kLongestText) text.clear();
  if (text.size() <= kShortText) return parsed(ParseAny(text));
  OnWorker(
      [text = std::move(text), weak = std::weak_ptr(self_), parsed = std::move(parsed)]() mutable {
        const auto records = std::make_shared<Records>(ParseAny(text));
        const bool large = text.size() > kLargeText;
        std::string().swap(text);
        PostToLoop(
            [records, weak, parsed] {
              if (!weak.expired()) parsed(std::move(*records));
            },
            Turn::InTurn);
        // What was made of it lies between the holes of what it was taken apart into.
        if (large) malloc_trim(0);
      });
}

void PageReader::ReceiveCollected(std::string text) {
  Parse(std::move(text), [this, reading = reading_](Records records) {
    if (reading != reading_) return;  // another reading has begun
    if (records.empty() || !records.front().place.empty()) {
      document_ = MinimalDocument();
      const Done done = std::move(done_);
      Cancel();
      return done(document_);
    }
    if (!waited_ && LooksEmpty(records)) {
      waited_ = true;
      return Await(view_, "corvaneChanges.filled()", cancel_.get(),
                   WhileReading([this](const auto&) { Collect(); }));
    }
    origin_ = records.front().origin;
    for (auto& record : records) {
      const FramePlace place = record.place;
      records_[place] = std::move(record);
    }
    collected_ = true;
    if (parsing_ > 0 || IsMissingFrames()) {
      frame_delay_.Start(kFrameSeconds, [this] { Finish(); });
    } else {
      Finish();
    }
  });
}

bool PageReader::IsMissingFrames() const {
  for (const auto& [place, record] : records_) {
    for (std::size_t i = 0; i < record.frames.size(); ++i) {
      if (record.frames[i].silent) continue;
      FramePlace inner = place;
      inner.push_back(static_cast<int>(i));
      if (!records_.contains(inner)) return true;
    }
  }
  return false;
}

void PageReader::FinishIfComplete() {
  if (collected_ && done_ && parsing_ == 0 && !IsMissingFrames()) Finish();
}

void PageReader::Finish() {
  listened_ = false;  // nobody knows the elements of this reading yet
  elements_.clear();
  introduced_.clear();
  late_elements_ = 0;
  documents_.clear();
  silent_ = records_[{}].silent;
  document_ = Join({});
  records_.clear();
  const Done done = std::move(done_);
  const HTMLDocumentPtr document = document_;
  Cancel();
  done(document);
}

HTMLDocumentPtr PageReader::Join(const FramePlace& place) {
  PageRecord& record = records_[place];
  documents_[place] = record.document_id;
  elements_[record.document_id] = std::move(record.elements);
  auto& frames = record.document->frames;
  frames.clear();
  for (std::size_t i = 0; i < record.frames.size(); ++i) {
    FramePlace inner = place;
    inner.push_back(static_cast<int>(i));
    const auto found = records_.find(inner);
    const bool usable = found != records_.end() && found->second.top_origin == origin_;
    frames.push_back(usable ? Join(inner) : DocumentOf(record.frames[i]));
  }
  return record.document;
}

HTMLDocumentPtr PageReader::MinimalDocument() const {
  auto document = std::make_shared<HTMLDocument>();
  document->Title = Text(webkit_web_view_get_title(view_));
  document->nameProp = document->Title;
  document->location = ShownAddress(Text(webkit_web_view_get_uri(view_)));
  return document;
}

void PageReader::Receive(const std::string& kind, const std::string& text) {
  if (kind == "event") return ReceiveEvent(text);
  if (kind != "record") return;
  ++parsing_;
  Parse(text, [this, page = page_](Records records) {
    if (page != page_) return;
    --parsing_;
    if (!records.empty()) ReceiveRecord(std::move(records.front()));
    FinishIfComplete();
  });
}

void PageReader::ReceiveRecord(PageRecord record) {
  if (record.place.empty()) return;  // the page itself is only read when asked
  if (document_) return Attach(std::move(record));
  if (records_.size() >= kMostFrames) return;
  const FramePlace place = record.place;
  records_[place] = std::move(record);
}

void PageReader::Attach(PageRecord record) {
  if (record.top_origin != origin_ || elements_.contains(record.document_id)) return;
  HTMLDocumentPtr parent = document_;
  for (std::size_t depth = 0; depth + 1 < record.place.size(); ++depth) {
    const auto index = static_cast<std::size_t>(record.place[depth]);
    if (index >= parent->frames.size()) return;
    parent = parent->frames[index];
  }
  const auto index = static_cast<std::size_t>(record.place.back());
  if (index >= kMostFrames) return;
  while (parent->frames.size() <= index) parent->frames.push_back(std::make_shared<HTMLDocument>());

  for (auto known = documents_.begin(); known != documents_.end();) {
    if (IsInside(known->first, record.place)) {
      elements_.erase(known->second);
      known = documents_.erase(known);
    } else {
      ++known;
    }
  }
  for (const auto& hint : record.frames) record.document->frames.push_back(DocumentOf(hint));
  documents_[record.place] = record.document_id;
  elements_[record.document_id] = std::move(record.elements);
  parent->frames[index] = record.document;
}

// What was told before somebody asked had no listener yet. In a page that is read again
// it had, but for what came since it was read.
void PageReader::TellFocus() {
  const auto top = documents_.find({});
  const std::string document = top != documents_.end() ? top->second : "";
  const bool unheard = std::exchange(unheard_, false);
  if (std::exchange(asked_, document) != document || unheard) focused_ = {};
  listened_ = true;
  Evaluate(view_, "corvaneEvents.tellAgain()", nullptr, [](const auto&) {});
}

void PageReader::FollowFocus(std::function<void()> known) {
  Evaluate(view_, "corvaneEvents.follow()", nullptr,
           [known = std::move(known)](const auto& answer) {
             if (answer == "known") known();
           });
}

// The engine gives a page one key at a time: a question may overtake one that waits.
void PageReader::AskFocus(Moved moved) {
  if (silent_ && document_) AskFocus(moved == Moved::ByKey, 0);
}

void PageReader::AskFocus(bool again, std::size_t turn) {
  asking_.Start(kAskSeconds[turn], [this, again, turn] {
    const char* call = again ? "corvaneEvents.focus(1)" : "corvaneEvents.focus(0)";
    Evaluate(view_, call, nullptr, [weak = std::weak_ptr(self_), page = page_](const auto& event) {
      const auto self = weak.lock();
      if (self && (*self)->page_ == page && event && !event->empty()) (*self)->ReceiveEvent(*event);
    });
    if (turn + 1 < kAskSeconds.size()) AskFocus(true, turn + 1);
  });
}

// What a script cannot tell is looked at from outside, which takes a moment. Whatever
// comes meanwhile waits behind it.
void PageReader::ReceiveEvent(const std::string& text) {
  if (ignores_events_) return;
  auto event = ParseElementEvent(text);
  if (!event || waiting_.size() >= kMostWaiting) return;
  if (waiting_.empty() && !(event->look && look_)) return Deliver(*event);
  waiting_.push_back(std::move(*event));
  if (waiting_.size() == 1) Look();
}

void PageReader::Look() {
  const auto go_on = [this, look = ++looks_](const FieldFocus& seen) {
    if (look != looks_ || waiting_.empty()) return;
    ++looks_;
    look_delay_.Cancel();
    Complete(waiting_.front(), seen);
    DeliverWaiting();
  };
  look_delay_.Start(kLookSeconds, [go_on] { go_on({}); });
  look_(GTK_WIDGET(view_), [weak = std::weak_ptr(self_), go_on](const FieldFocus& seen) {
    if (!weak.expired()) go_on(seen);
  });
}

void PageReader::DeliverWaiting() {
  const std::weak_ptr self = self_;
  do {
    const ElementEvent event = std::move(waiting_.front());
    waiting_.pop_front();
    Deliver(event);
    if (self.expired()) return;
  } while (!waiting_.empty() && !waiting_.front().look);
  if (!waiting_.empty()) Look();
}

void PageReader::Deliver(const ElementEvent& event) {
  if (event.kind == ElementEvent::Kind::Focus && !event.href.empty()) link_focused_(event.href);
  const HTMLElementPtr element = ElementOf(event);
  if (!element) return;
  Apply(event, *element);
  if (event.kind == ElementEvent::Kind::Leave) {
    in_password_ = false;
    return;
  }
  if (event.kind == ElementEvent::Kind::Focus) {
    in_password_ = element->type == "password";
    const ElementPlace place{event.document_id, event.number};
    if (std::exchange(focused_, place) == place && event.again) return;
    unheard_ = unheard_ || !listened_;
  }
  const HTMLDocumentPtr page = document_;  // a listener may leave it, or close the window
  const std::weak_ptr self = self_;
  if (Introduce(event, element)) page->onelementadded.Raise(element);
  if (page) page->unasked = event.unasked;
  Raise(event, *element);
  const bool moved = event.kind == ElementEvent::Kind::Focus;
  if (moved && !self.expired() && page == document_) {
    FocusMoved.Raise({event.document_id, event.number});
  }
  if (page) page->unasked = false;
}

HTMLElementPtr PageReader::Focused() const { return Known(focused_.first, focused_.second); }

bool PageReader::OnList() const {
  const HTMLElementPtr element = Focused();
  return element && element->type_name == "HTMLSelectElement" && element->facts &&
         element->facts->role == "combobox";
}

// A select has the focus before its list opens.
void PageReader::TellList(const OpenList& list) {
  const HTMLElementPtr select = Focused();
  if (!select) return;
  select->list = list;
  select->onlist.Raise();
}

void PageReader::Raise(const ElementEvent& event, HTMLElement& element) {
  switch (event.kind) {
    case ElementEvent::Kind::Focus:
      return element.onfocus.Raise();
    case ElementEvent::Kind::KeyUp:
      return element.onkeyup.Raise();
    case ElementEvent::Kind::State:
      return element.onstate.Raise();
    case ElementEvent::Kind::Change:
      return element.onchange.Raise();
    case ElementEvent::Kind::Leave:
      return;
  }
}

HTMLElementPtr PageReader::Known(const std::string& document, int number) const {
  const auto elements = elements_.find(document);
  if (elements == elements_.end()) return nullptr;
  const auto found = elements->second.find(number);
  return found == elements->second.end() ? nullptr : found->second;
}

// The element that an event is about; one that no record holds joins the others.
HTMLElementPtr PageReader::ElementOf(const ElementEvent& event) {
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

// Whether the page's own lists lack the element and nobody has been told of it. While
// nobody knows the document yet there is nobody to be told.
bool PageReader::Introduce(const ElementEvent& event, const HTMLElementPtr& element) {
  if (!document_ || !document_->onelementadded.HasListeners()) return false;
  const auto top = documents_.find({});
  const bool listed = top != documents_.end() && top->second == event.document_id &&
                      event.described == nullptr && !introduced_.contains(element);
  return !listed && introduced_.insert(element).second;
}

}  // namespace corvane::desktop
