#include "platform/linux/access/element.h"

#include <utility>

namespace corvane::desktop {
namespace {

std::string Key(const ElementRef& ref) { return ref.bus + ref.path; }

}  // namespace

void Snapshot::Add(Element element, std::vector<ElementRef> children) {
  auto key = Key(element.ref);
  entries_[std::move(key)] = Entry{std::move(element), std::move(children)};
}

const Element* Snapshot::Find(const ElementRef& ref) const {
  const auto at = entries_.find(Key(ref));
  return at == entries_.end() ? nullptr : &at->second.element;
}

std::vector<Element> Snapshot::Children(const ElementRef& ref) const {
  std::vector<Element> children;
  const auto at = entries_.find(Key(ref));
  if (at == entries_.end()) return children;
  for (const auto& child : at->second.children) {
    if (const Element* element = Find(child)) children.push_back(*element);
  }
  return children;
}

}  // namespace corvane::desktop
