#include "web/page/ElementEvents.h"

#include <utility>

namespace corvane {
namespace {

/// How long, in seconds, what a script cannot tell of a field is waited for.
constexpr double kLookSeconds = 0.3;
/// Events that wait behind it.
constexpr std::size_t kMostWaiting = 100;

void Raise(const ElementEvent& event, HTMLElement& element) {
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

}  // namespace

ElementEvents::ElementEvents(PageDocuments& documents, Later later, Look look)
    : documents_(documents), look_(std::move(look)), patience_(std::move(later)) {}

void ElementEvents::Forget() {
  waiting_.clear();
  in_password_ = false;
}

void ElementEvents::ListenedTo() {
  const std::string document = documents_.PageName();
  const bool unheard = std::exchange(unheard_, false);
  if (std::exchange(asked_, document) != document || unheard) focused_ = {};
  listened_ = true;
}

// What a script cannot tell is looked at from outside, which takes a moment. Whatever
// comes meanwhile waits behind it.
void ElementEvents::Receive(const std::string& text) {
  if (ignores_) return;
  auto event = ParseElementEvent(text);
  if (!event || waiting_.size() >= kMostWaiting) return;
  if (waiting_.empty() && !(event->look && look_)) return Deliver(*event);
  waiting_.push_back(std::move(*event));
  if (waiting_.size() == 1) LookAtFirst();
}

void ElementEvents::LookAtFirst() {
  const auto go_on = [this, wanted = looking_.Renew()](const FieldFocus& seen) {
    if (!wanted || waiting_.empty()) return;
    looking_.End();
    patience_.Cancel();
    Complete(waiting_.front(), seen);
    DeliverWaiting();
  };
  patience_.Start(kLookSeconds, [go_on] { go_on({}); });
  look_(go_on);
}

void ElementEvents::DeliverWaiting() {
  const Life::Watch alive = life_.Look();
  do {
    const ElementEvent event = std::move(waiting_.front());
    waiting_.pop_front();
    Deliver(event);
    if (!alive) return;
  } while (!waiting_.empty() && !(waiting_.front().look && look_));
  if (!waiting_.empty()) LookAtFirst();
}

void ElementEvents::Deliver(const ElementEvent& event) {
  const Life::Watch alive = life_.Look();
  if (event.kind == ElementEvent::Kind::Focus && !event.href.empty()) {
    LinkFocused.Raise(event.href);
    if (!alive) return;
  }
  const HTMLElementPtr element = documents_.ElementOf(event);
  if (!element) return;
  Apply(event, *element);
  if (event.kind == ElementEvent::Kind::Leave) {
    in_password_ = false;
    return;
  }
  if (event.kind == ElementEvent::Kind::Focus) {
    in_password_ = element->type == "password";
    const PageElement place{event.document_id, event.number};
    if (std::exchange(focused_, place) == place && event.again) return;
    unheard_ = unheard_ || !listened_;
  }
  Tell(event, element);
}

// Whoever is told may leave the page, or close its window.
void ElementEvents::Tell(const ElementEvent& event, const HTMLElementPtr& element) {
  const Life::Watch alive = life_.Look();
  const HTMLDocumentPtr page = documents_.Page();
  if (documents_.Introduce(event, element)) page->onelementadded.Raise(element);
  if (page) page->unasked = event.unasked;
  Raise(event, *element);
  const bool moved = event.kind == ElementEvent::Kind::Focus;
  if (moved && alive && page == documents_.Page()) {
    FocusMoved.Raise({event.document_id, event.number});
  }
  if (page) page->unasked = false;
}

}  // namespace corvane
