#include "platform/linux/access/remote_accessible.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "platform/linux/access/bus_answer.h"
#include "platform/linux/access/element_facts.h"
#include "platform/linux/access/element_reader.h"
#include "platform/linux/access/remote_selection.h"
#include "platform/linux/access/selection_steps.h"

namespace corvane::desktop {
namespace {

constexpr int kReadAnew = 64;  // children; more would keep the user waiting
constexpr const char* kAction = "org.a11y.atspi.Action";
constexpr const char* kComponent = "org.a11y.atspi.Component";

}  // namespace

// What runs on the bus's thread owns nothing of the tree, so that the bus never ends there.
std::vector<AccessibleElement> RemoteAccessible::Children(int most) const {
  auto fetched = tree_->snapshot->Children(element_.ref);
  if (element_.child_count <= kReadAnew || fetched.empty()) {
    using Answer = std::optional<std::vector<Element>>;
    const bool few = !IsUnread() && element_.child_count <= kReadAnew;
    auto answer = tree_->bus->Ask<Answer>(
        [bus = tree_->bus.get(), find = Finder(), few, most](std::function<void(Answer)> done) {
          find([bus, few, most, done = std::move(done)](const std::optional<ElementRef>& ref) {
            if (!ref) return done({});
            if (few) return reader::ReadChildren(*bus, *ref, done);
            reader::ReadSomeChildren(*bus, *ref, 0, std::min(most, kReadAnew), done);
          });
        });
    if (answer && *answer) fetched = std::move(**answer);
  }
  if (fetched.size() > static_cast<std::size_t>(most)) {
    fetched.resize(static_cast<std::size_t>(most));
  }
  return Objects(std::move(fetched));
}

void RemoteAccessible::ReadChildren(int from, int most,
                                    std::function<void(std::vector<Element>)> done) const {
  tree_->bus->Post([bus = tree_->bus.get(), find = Finder(), from, most, done = std::move(done)] {
    bus->Connect([=](const std::string& problem) {
      if (!problem.empty()) return done({});
      find([=](const std::optional<ElementRef>& ref) {
        if (!ref) return done({});
        reader::ReadSomeChildren(*bus, *ref, from, most, [done](auto read) {
          done(read ? std::move(*read) : std::vector<Element>());
        });
      });
    });
  });
}

RemoteAccessible::Find RemoteAccessible::Finder() const {
  return [bus = tree_->bus.get(), ref = element_.ref, unread = IsUnread()](const Found& found) {
    if (!unread) return found(ref);
    reader::FindDocument(*bus, ref, found);
  };
}

std::vector<AccessibleElement> RemoteAccessible::Objects(std::vector<Element> elements) const {
  std::vector<AccessibleElement> objects;
  for (auto& element : elements) {
    objects.push_back({std::make_shared<RemoteAccessible>(tree_, std::move(element)), {}});
  }
  return objects;
}

AccessiblePtr RemoteAccessible::At(ScreenPoint point) const {
  using Answer = std::optional<Element>;
  const ScreenPoint origin = tree_->origin();
  const ScreenPoint inside{point.x - origin.x, point.y - origin.y};
  auto found =
      tree_->bus->Ask<Answer>([bus = tree_->bus.get(), ref = element_.ref, inside,
                               coordinates = tree_->coordinates](std::function<void(Answer)> done) {
        reader::ReadElementAt(*bus, ref, inside, coordinates, std::move(done));
      });
  if (!found || !*found) return nullptr;
  return std::make_shared<RemoteAccessible>(tree_, std::move(**found));
}

AccessiblePtr RemoteAccessible::Parent() const {
  if (element_.ref == tree_->root) return tree_->host;
  using Answer = std::optional<Element>;
  auto parent = tree_->bus->Ask<Answer>(
      [bus = tree_->bus.get(), ref = element_.ref](std::function<void(Answer)> done) {
        reader::ReadParent(*bus, ref, [bus, done](const std::optional<ElementRef>& above) {
          if (!above) return done({});
          reader::ReadElement(*bus, *above, done);
        });
      });
  if (!parent || !*parent) return nullptr;
  return std::make_shared<RemoteAccessible>(tree_, std::move(**parent));
}

std::string RemoteAccessible::AskForText(const char* interface, const char* method) const {
  const auto answer =
      tree_->bus->Ask<std::string>([bus = tree_->bus.get(), ref = element_.ref, interface,
                                    method](std::function<void(std::string)> done) {
        bus->Call(ref, interface, method, g_variant_new("(i)", 0), [done](VariantPtr reply) {
          const char* text = "";
          if (reply && g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(s)"))) {
            g_variant_get(reply.get(), "(&s)", &text);
          }
          done(text::valid(text));
        });
      });
  return answer.value_or("");
}

std::string RemoteAccessible::OwnText(AccessibleText which) const {
  switch (which) {
    case AccessibleText::Name:
      return element_.name;
    case AccessibleText::Value:
      return element_.value;
    case AccessibleText::Description:
      return element_.description;
    case AccessibleText::Help:
      return "";  // the bus knows no such text
    case AccessibleText::DefaultAction:
      return AskForText(kAction, "GetName");
    case AccessibleText::KeyboardShortcut:
      return AskForText(kAction, "GetKeyBinding");
  }
  return "";
}

ScreenRect RemoteAccessible::OwnLocation() const {
  const auto place = tree_->bus->Ask<ScreenRect>(
      [bus = tree_->bus.get(), ref = element_.ref,
       coordinates = tree_->coordinates](std::function<void(ScreenRect)> done) {
        bus->Call(ref, kComponent, "GetExtents",
                  g_variant_new("(u)", static_cast<guint32>(coordinates)),
                  [done](const VariantPtr& reply) { done(RectOf(reply)); });
      });
  if (!place || (place->width == 0 && place->height == 0)) return {};
  const ScreenPoint origin = tree_->origin();
  return {place->left + origin.x, place->top + origin.y, place->width, place->height};
}

void RemoteAccessible::OwnSelect(int flags) {
  tree_->bus->Post([bus = tree_->bus.get(), find = Finder(), flags] {
    find([bus, flags](const std::optional<ElementRef>& ref) {
      if (!ref) return;
      if ((flags & kSelectTakeFocus) != 0) {
        bus->Call(*ref, kComponent, "GrabFocus", nullptr, [](const VariantPtr&) {});
      }
      if (ChangesSelection(flags)) SelectOnBus(*bus, *ref, flags);
    });
  });
}

void RemoteAccessible::OwnDefaultAction() {
  tree_->bus->Post([bus = tree_->bus.get(), ref = element_.ref] {
    bus->Call(ref, kAction, "DoAction", g_variant_new("(i)", 0), [](const VariantPtr&) {});
  });
}

}  // namespace corvane::desktop
