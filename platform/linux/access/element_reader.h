#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/access/access_bus.h"
#include "platform/linux/access/element.h"

/// Questions to elements on the accessibility bus. All run on the bus's thread;
/// each answers exactly once unless the bus ends first.
namespace corvane::desktop::reader {

/// All that is known of one element; its role tells when it is gone.
void ReadElement(AccessBus& bus, const ElementRef& ref, std::function<void(Element)> done);

/// The elements below one, as they are now, the first 10,000 of them; nothing when it
/// does not answer.
void ReadChildren(AccessBus& bus, const ElementRef& ref,
                  std::function<void(std::optional<std::vector<Element>>)> done);

/// At most `most` of them, from number `from` on, counted from 0; the others are not
/// touched. Nothing when it does not answer.
void ReadSomeChildren(AccessBus& bus, const ElementRef& ref, int from, int most,
                      std::function<void(std::optional<std::vector<Element>>)> done);

/// The place of the element above one; nothing when it does not answer.
void ReadParent(AccessBus& bus, const ElementRef& ref,
                std::function<void(std::optional<ElementRef>)> done);

/// The places of the elements below one, the first 100,000 of them; nothing when it
/// does not answer.
void ReadChildRefs(AccessBus& bus, const ElementRef& ref,
                   std::function<void(std::optional<std::vector<ElementRef>>)> done);

/// The document inside what a page's process puts into a window; nothing before
/// there is one.
void FindDocument(AccessBus& bus, const ElementRef& plug,
                  std::function<void(std::optional<ElementRef>)> done);

/// An element and everything below it. Gives up between two questions when
/// `cancelled` is set. Elements beyond a generous number are left out.
void ReadTree(AccessBus& bus, const ElementRef& root,
              std::shared_ptr<const std::atomic<bool>> cancelled,
              std::function<void(std::shared_ptr<const Snapshot>)> done);

}  // namespace corvane::desktop::reader
