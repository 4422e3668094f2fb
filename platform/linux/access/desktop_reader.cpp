#include "platform/linux/access/desktop_reader.h"

#include <atspi/atspi-constants.h>
#include <unistd.h>

#include <memory>
#include <utility>

#include "platform/linux/access/bus_answer.h"
#include "platform/linux/access/element_facts.h"
#include "platform/linux/access/element_reader.h"
#include "platform/linux/access/together.h"

namespace corvane::desktop::reader {
namespace {

constexpr const char* kComponent = "org.a11y.atspi.Component";
constexpr const char* kText = "org.a11y.atspi.Text";
constexpr const char* kProperties = "org.freedesktop.DBus.Properties";
constexpr int kDeepest = 100;
constexpr int kMostPrograms = 500;

const ElementRef kRegistry{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
const ElementRef kBusItself{"org.freedesktop.DBus", "/org/freedesktop/DBus"};

struct Desktop {
  std::vector<OtherWindow> windows;
};

void ReadWindow(AccessBus& bus, const Element& element, const OtherWindow& of_program,
                const std::shared_ptr<Desktop>& desktop, const std::shared_ptr<Together>& all) {
  auto window = std::make_shared<OtherWindow>(of_program);
  window->element = element;
  const auto whole = std::make_shared<Together>([window, desktop, all] {
    if (window->element.role != kRoleVanished) desktop->windows.push_back(*window);
  });
  bus.Call(element.ref, kComponent, "GetExtents",
           g_variant_new("(u)", static_cast<guint32>(Coordinates::Screen)),
           [window, whole](const VariantPtr& reply) { window->place = RectOf(reply); });
  bus.Call(element.ref, kAccessibleInterface, "GetState", nullptr,
           [window, whole](const VariantPtr& reply) {
             if (!IsOfType(reply, "(au)")) return;
             const VariantPtr words(g_variant_get_child_value(reply.get(), 0));
             window->active = ((StatesOf(words.get()) >> ATSPI_STATE_ACTIVE) & 1U) != 0;
           });
}

void ReadProgram(AccessBus& bus, const ElementRef& program, const std::shared_ptr<Desktop>& desktop,
                 const std::shared_ptr<Together>& all) {
  bus.Call(kBusItself, "org.freedesktop.DBus", "GetConnectionUnixProcessID",
           g_variant_new("(s)", program.bus.c_str()), [=, &bus](const VariantPtr& reply) {
             OtherWindow window;
             if (IsOfType(reply, "(u)")) g_variant_get(reply.get(), "(u)", &window.process);
             if (window.process == static_cast<std::uint32_t>(getpid())) return;
             ReadElement(bus, program, [=, &bus](const Element& element) {
               if (element.role == kRoleVanished) return;
               OtherWindow of_program = window;
               of_program.program = element.name;
               ReadChildren(bus, program, [=, &bus](const auto& windows) {
                 for (const auto& each : windows.value_or(std::vector<Element>())) {
                   ReadWindow(bus, each, of_program, desktop, all);
                 }
               });
             });
           });
}

}  // namespace

void ReadDesktop(AccessBus& bus, std::function<void(std::vector<OtherWindow>)> done) {
  auto desktop = std::make_shared<Desktop>();
  const auto all = std::make_shared<Together>(
      [desktop, done = std::move(done)] { done(std::move(desktop->windows)); });
  ReadChildRefs(bus, kRegistry, [&bus, desktop, all](const auto& programs) {
    if (!programs) return;
    int count = 0;
    for (const auto& program : *programs) {
      if (++count <= kMostPrograms) ReadProgram(bus, program, desktop, all);
    }
  });
}

namespace {

void Descend(AccessBus& bus, const ElementRef& ref, ScreenPoint point, Coordinates coordinates,
             int depth, const std::function<void(std::optional<Element>)>& done) {
  const auto here = [&bus, ref, done] {
    ReadElement(bus, ref, [done](Element element) {
      if (element.role == kRoleVanished) return done({});
      done(std::move(element));
    });
  };
  if (depth == 0) return here();
  bus.Call(ref, kComponent, "GetAccessibleAtPoint",
           g_variant_new("(iiu)", point.x, point.y, static_cast<guint32>(coordinates)),
           [=, &bus](const VariantPtr& reply) {
             const char* name = "";
             const char* path = "";
             if (IsOfType(reply, "((so))")) g_variant_get(reply.get(), "((&s&o))", &name, &path);
             const ElementRef inner{name, path};
             const bool none = inner.bus.empty() || inner.path.ends_with("/null") || inner == ref;
             if (none) return here();
             Descend(bus, inner, point, coordinates, depth - 1, done);
           });
}

}  // namespace

void ReadElementAt(AccessBus& bus, const ElementRef& ref, ScreenPoint point,
                   Coordinates coordinates, std::function<void(std::optional<Element>)> done) {
  Descend(bus, ref, point, coordinates, kDeepest, done);
}

namespace {

using CaretDone = std::function<void(std::optional<ScreenPoint>)>;

void ReadCharacter(AccessBus& bus, const ElementRef& ref, int offset,
                   std::function<void(ScreenRect)> done) {
  bus.Call(ref, kText, "GetCharacterExtents",
           g_variant_new("(iu)", offset, static_cast<guint32>(Coordinates::Window)),
           [done = std::move(done)](const VariantPtr& reply) { done(RectOf(reply)); });
}

// The caret is at the left edge of the character that it stands before; at the end
// of a text, where there is none, at the right edge of the last one.
void ReadCaretAt(AccessBus& bus, const ElementRef& ref, int offset, const CaretDone& done) {
  ReadCharacter(bus, ref, offset, [=, &bus](ScreenRect rect) {
    if (rect.width > 0) return done(ScreenPoint{rect.left, rect.top});
    if (offset == 0) {
      bus.Call(ref, kComponent, "GetExtents",
               g_variant_new("(u)", static_cast<guint32>(Coordinates::Window)),
               [done](const VariantPtr& reply) {
                 const ScreenRect field = RectOf(reply);
                 done(ScreenPoint{field.left, field.top});
               });
      return;
    }
    ReadCharacter(bus, ref, offset - 1, [done](ScreenRect last) {
      done(ScreenPoint{last.left + last.width, last.top});
    });
  });
}

// Elements that have the focus, one at most.
GVariant* FocusedOnly() {
  GVariantBuilder states;
  g_variant_builder_init(&states, G_VARIANT_TYPE("ai"));
  g_variant_builder_add(&states, "i", 1 << ATSPI_STATE_FOCUSED);
  g_variant_builder_add(&states, "i", 0);
  GVariantBuilder attributes;
  g_variant_builder_init(&attributes, G_VARIANT_TYPE("a{ss}"));
  GVariantBuilder roles;
  g_variant_builder_init(&roles, G_VARIANT_TYPE("ai"));
  GVariantBuilder interfaces;
  g_variant_builder_init(&interfaces, G_VARIANT_TYPE("as"));
  return g_variant_new("((aiia{ss}iaiiasib)uib)", &states, ATSPI_Collection_MATCH_ALL, &attributes,
                       ATSPI_Collection_MATCH_ALL, &roles, ATSPI_Collection_MATCH_ALL, &interfaces,
                       ATSPI_Collection_MATCH_ALL, FALSE,
                       static_cast<guint32>(ATSPI_Collection_SORT_ORDER_CANONICAL), 1, TRUE);
}

}  // namespace

void FindFocus(AccessBus& bus, const ElementRef& document,
               std::function<void(std::optional<ElementRef>)> done) {
  bus.Call(document, "org.a11y.atspi.Collection", "GetMatches", FocusedOnly(),
           [done = std::move(done)](const VariantPtr& reply) {
             if (!IsOfType(reply, "(a(so))")) return done({});
             const VariantPtr list(g_variant_get_child_value(reply.get(), 0));
             if (g_variant_n_children(list.get()) == 0) return done({});
             const char* name = nullptr;
             const char* path = nullptr;
             g_variant_get_child(list.get(), 0, "(&s&o)", &name, &path);
             done(ElementRef{name, path});
           });
}

void ReadCaret(AccessBus& bus, const ElementRef& document, CaretDone done) {
  FindFocus(bus, document, [&bus, done = std::move(done)](std::optional<ElementRef> focused) {
    if (!focused) return done({});
    bus.Call(*focused, kProperties, "Get", g_variant_new("(ss)", kText, "CaretOffset"),
             [&bus, focused = *focused, done](const VariantPtr& offset) {
               const int at = IntegerOf(offset).value_or(-1);
               if (at < 0) return done({});
               ReadCaretAt(bus, focused, at, done);
             });
  });
}

}  // namespace corvane::desktop::reader
