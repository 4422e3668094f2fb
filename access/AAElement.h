#pragma once

#include "base/event.h"
#include "platform/html_document.h"

namespace corvane {

class AAFormCollection;

/// Listens to one element of a page and hands a sentence about it to the
/// collection. Destroying it ends the listening.
class AAElement {
 public:
  AAElement() = default;
  AAElement(const AAElement&) = delete;
  AAElement& operator=(const AAElement&) = delete;
  virtual ~AAElement() = default;

  /// Starts listening to `element`; `collection` outlives this object.
  void Initialize(const HTMLElementPtr& element, AAFormCollection& collection) {
    element_ = element;
    collection_ = &collection;
    Listen();
  }

 protected:
  /// Connects the events that this kind of element is announced on.
  virtual void Listen() = 0;
  HTMLElement& Element() const { return *element_; }
  AAFormCollection& Collection() const { return *collection_; }

  Connections connections_;

 private:
  HTMLElementPtr element_;
  AAFormCollection* collection_ = nullptr;
};

}  // namespace corvane
