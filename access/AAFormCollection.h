#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "access/AAElement.h"
#include "access/FocusWords.h"
#include "base/event.h"
#include "base/manner.h"
#include "platform/desktop.h"
#include "platform/html_document.h"

namespace corvane {

/// The announcers of a page's form fields and links. They speak through this
/// object's Say; whoever holds it decides what becomes of the words. One a
/// browser pane, kept for the pane's life.
class AAFormCollection {
 public:
  using Slots = std::vector<std::unique_ptr<AAElement>>;

  /// `manner` must outlive the collection.
  explicit AAFormCollection(Desktop& desktop, const Manner& manner = kEstablishedManner)
      : desktop_(desktop), manner_(manner), focus_words_(manner) {}
  AAFormCollection(const AAFormCollection&) = delete;
  AAFormCollection& operator=(const AAFormCollection&) = delete;

  /// Forgets the fields' announcers and makes them anew for the forms of `oDoc`,
  /// letting waiting events run once a field. An element that is no input, select
  /// or text area has none; unless the manner wants whole forms, it ends the walk with
  /// a message box, and fields before it keep their announcers. Fields and links that
  /// appear later, or lie in frames, are announced from their first event on. Called
  /// again while it walks, the newer walk replaces the older. `done` is called behind
  /// the walk, once the user has closed the box.
  void ResetStructure(const HTMLDocumentPtr& oDoc, std::function<void()> done = nullptr);
  /// Adds an announcer for a link; anything but an anchor is ignored.
  void AddLink(const HTMLElementPtr& oLink);
  /// Drops all announcers of links.
  void ClearLinkCollection();
  /// The document of the last ResetStructure.
  const HTMLDocumentPtr& Doc() const { return document_; }
  /// Raises SayEvent with the words.
  void Say(const std::string& sText);

  /// Whether the document held a form at the last reset.
  bool HasForms() const { return blnForms_; }
  /// A slot for each element of every form, empty where there is no announcer,
  /// and one more.
  const Slots& Elements() const { return elements_; }
  /// Slot 0 is empty, links begin at slot 1.
  const Slots& Links() const { return links_; }

  /// Says what an element is that has got the focus; `established` is its announcer's
  /// sentence.
  void SayFocused(const HTMLElement& element, const std::string& established) {
    Say(focus_words_.Of(element, established));
  }

  /// Says what the user has chosen in a list; `option` is its number there, from 0.
  void SayChosen(const HTMLElement& list, const std::string& words, int option) {
    Say(focus_words_.OfChoice(list, words, option));
  }

  /// Where announcers report their errors.
  MessageBox& Box() const { return desktop_.GetMessageBox(); }
  const Manner& HowToSay() const { return manner_; }

  /// The sentence to speak; may be empty.
  Event<const std::string&> SayEvent;

 private:
  void Walk(const HTMLDocument& document);
  void AddLate(const HTMLElementPtr& element);

  Desktop& desktop_;
  const Manner& manner_;
  FocusWords focus_words_;
  HTMLDocumentPtr document_;
  Slots elements_ = Slots(1);
  Slots links_ = Slots(1);
  Slots late_;  // announcers of what appeared after the walk
  bool blnForms_ = false;
  unsigned walk_ = 0;  // counts walks: a newer one makes an older one stop
  Connection added_;
};

}  // namespace corvane
