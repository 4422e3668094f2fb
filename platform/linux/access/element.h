#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/access/access_bus.h"

namespace corvane::desktop {

/// What is known of one element on the bus, in the product's terms.
struct Element {
  ElementRef ref;
  std::string name;
  std::string value;  ///< a link's address, a field's contents, a slider's number
  std::string description;
  int role = 0;
  std::uint32_t state = 0;
  int child_count = 0;
};

/// Elements and their children as they were when they were fetched. Never
/// changed once it has been handed out.
class Snapshot {
 public:
  void Add(Element element, std::vector<ElementRef> children);
  const Element* Find(const ElementRef& ref) const;
  /// Those children that were there.
  std::vector<Element> Children(const ElementRef& ref) const;
  std::size_t Size() const { return entries_.size(); }

 private:
  struct Entry {
    Element element;
    std::vector<ElementRef> children;
  };
  std::map<std::string, Entry> entries_;
};

}  // namespace corvane::desktop
