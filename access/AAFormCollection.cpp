#include "access/AAFormCollection.h"

#include <utility>

#include "access/AAInputElement.h"
#include "access/AALinkElement.h"
#include "access/AASelectElement.h"
#include "access/AATextAreaElement.h"
#include "base/error.h"
#include "platform/errors_shown.h"

namespace corvane {
namespace {

/// Elements that appear after a page was read are the page's doing; a page that
/// makes them without end gets no announcers for the rest.
constexpr std::size_t kMostLateElements = 20'000;

constexpr const char* kLinkTypeName = "HTMLAnchorElement";

/// The announcer for an element of a form; empty where there is none for it.
std::unique_ptr<AAElement> MakeAnnouncer(const std::string& type_name) {
  if (type_name == "HTMLInputElement") return std::make_unique<AAInputElement>();
  if (type_name == "HTMLSelectElement") return std::make_unique<AASelectElement>();
  if (type_name == "HTMLTextAreaElement") return std::make_unique<AATextAreaElement>();
  return nullptr;
}

}  // namespace

void AAFormCollection::ResetStructure(const HTMLDocumentPtr& oDoc, std::function<void()> done) {
  const auto reset = [&] {
    ++walk_;
    focus_words_.Forget();
    document_ = oDoc;
    elements_ = Slots(1);
    late_.clear();
    added_.Disconnect();
    HTMLDocument& document = Required(oDoc);
    blnForms_ = !document.forms.empty();
    added_ = document.onelementadded.Connect(
        [this](const HTMLElementPtr& element) { AddLate(element); });
    Walk(document);
  };
  ErrorsShown(Box(), "ResetStructure Error: ", reset, std::move(done));
}

void AAFormCollection::Walk(const HTMLDocument& document) {
  const unsigned mine = walk_;
  const HTMLDocumentPtr kept = document_;  // a newer walk may let go of it
  std::size_t slot = 0;
  for (const auto& form : document.forms) {
    elements_.resize(elements_.size() + form.elements.size());
    for (const auto& element : form.elements) {
      desktop_.DoEvents();
      if (walk_ != mine) return;
      elements_[slot] = MakeAnnouncer(element->type_name);
      if (elements_[slot] || !manner_.whole_forms) {
        Required(elements_[slot]).Initialize(element, *this);
      }
      ++slot;
    }
  }
}

void AAFormCollection::AddLate(const HTMLElementPtr& element) {
  ErrorsShown(Box(), "ResetStructure Error: ", [&] {
    if (late_.size() >= kMostLateElements) return;
    auto announcer = MakeAnnouncer(element->type_name);
    if (element->type_name == kLinkTypeName) announcer = std::make_unique<AALinkElement>();
    if (!announcer) return;
    announcer->Initialize(element, *this);
    late_.push_back(std::move(announcer));
  });
}

void AAFormCollection::AddLink(const HTMLElementPtr& oLink) {
  ErrorsShown(Box(), "AddLink Error: ", [&] {
    if (Required(oLink).type_name != kLinkTypeName) return;
    links_.push_back(std::make_unique<AALinkElement>());
    links_.back()->Initialize(oLink, *this);
  });
}

void AAFormCollection::ClearLinkCollection() { links_ = Slots(1); }

void AAFormCollection::Say(const std::string& sText) {
  ErrorsShown(Box(), "Form Say Error: ", [&] { SayEvent.Raise(sText); });
}

}  // namespace corvane
