#include "explorer/CHTMLStructure.h"

#include <utility>

#include "base/handling.h"

namespace corvane {
namespace {

std::string FirstNotEmpty(const std::string& one, const std::string& two,
                          const std::string& three = {}) {
  if (!one.empty()) return one;
  return two.empty() ? three : two;
}

// The separator in front stays also where nothing stands before it.
std::string LabelOfField(const HTMLElement& field) {
  std::string label;
  for (const auto* part : {&field.name, &field.innerText}) {
    if (!part->empty()) label += " - " + *part;
  }
  return label;
}

}  // namespace

void CHTMLStructure::setChild(PageObject object, Kind kind) {
  desktop_.DoEvents();
  object_ = std::move(object);
  kind_ = kind;
  const auto& document = object_.document;
  const auto& element = object_.element;
  ErrorsIgnored(
      [&] {
        if (element) href_ = element->href;
      },
      [&] {
        switch (kind) {
          case kDocument:
          case kFrame:
            has_children_ = true;
            Required(document);
            text_ = FirstNotEmpty(document->nameProp, document->Title);
            break;
          case kLinks:
            SetCollection("Links ", Required(document).links.size());
            break;
          case kFrames:
            SetCollection("Frames ", Required(document).frames.size());
            break;
          case kAnchors:
            SetCollection("Anchors ", Required(document).anchors.size());
            break;
          case kForms:
            SetCollection("Forms ", Required(document).forms.size());
            break;
          case kLink:
            Required(element);
            text_ = FirstNotEmpty(element->innerText, element->href);
            break;
          case kAnchor:
            Required(element);
            text_ = FirstNotEmpty(element->innerText, element->href, element->name);
            break;
          case kForm:
            text_ = "Contents";
            has_children_ = !Required(document).forms.at(object_.index).elements.empty();
            break;
          case kFormElement:
            text_ = LabelOfField(Required(element));
            break;
        }
      });
}

void CHTMLStructure::SetCollection(const std::string& word, std::size_t length) {
  text_ = word + std::to_string(length);
  has_children_ = length > 0;
}

std::string CHTMLStructure::Location() const {
  return object_.document ? object_.document->location : std::string();
}

void CHTMLStructure::Add(ExplorerItems& items, PageObject object, Kind kind) const {
  auto item = std::make_shared<CHTMLStructure>(desktop_);
  item->setChild(std::move(object), kind);
  items.push_back(std::move(item));
}

// Whoever builds lets events run between the items, in which this item may be
// let go: what is gone through is held here.
ExplorerItems CHTMLStructure::IExplorerItem_GetChildren(CExplorer&, TreeNode&) {
  ExplorerItems items;
  const HTMLDocumentPtr document = object_.document;
  const auto elements = [&](const std::vector<HTMLElementPtr>& all, Kind kind) {
    items.reserve(all.size());
    for (const auto& element : all) Add(items, {document, element, 0}, kind);
  };
  ErrorsIgnored([&] {
    switch (kind_) {
      case kDocument:
      case kFrame:
        for (const Kind kind : {kLinks, kFrames, kAnchors, kForms})
          Add(items, {document, {}, 0}, kind);
        if (branches_) {
          for (auto& branch : branches_()) items.push_back(std::move(branch));
        }
        break;
      case kLinks:
        elements(Required(document).links, kLink);
        break;
      case kFrames:
        // A copy: a frame that reports itself late joins the document's own.
        for (const auto& frame : std::vector(Required(document).frames)) {
          Add(items, {frame, {}, 0}, kFrame);
        }
        break;
      case kAnchors:
        elements(Required(document).anchors, kAnchor);
        break;
      case kForms:
        for (std::size_t i = 0; i < Required(document).forms.size(); ++i) {
          Add(items, {document, {}, i}, kForm);
        }
        break;
      case kForm:
        elements(Required(document).forms.at(object_.index).elements, kFormElement);
        break;
      default:
        break;
    }
  });
  return items;
}

void CHTMLStructure::IExplorerItem_SetText(const std::string&) {
  throw RunTimeError(kErrRefused, "IExplorerItem", "Unable to delete this object");
}

void CHTMLStructure::IExplorerItem_Delete() {
  throw RunTimeError(kErrRefused, "IExplorerItem", "Unable to delete this object");
}

}  // namespace corvane
