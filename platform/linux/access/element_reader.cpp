#include "platform/linux/access/element_reader.h"

#include <atspi/atspi-constants.h>

#include <algorithm>
#include <utility>

#include "platform/accessible.h"
#include "platform/linux/access/bus_answer.h"
#include "platform/linux/access/element_facts.h"
#include "platform/linux/access/together.h"

namespace corvane::desktop::reader {
namespace {

constexpr int kDocumentDepth = 5;  // of wrappers around a page
// A program may tell of more children than anybody has.
constexpr std::size_t kMostRefs = 100'000;
constexpr std::size_t kMostAtOnce = 10'000;

// The facts of one element, collected from three answers.
struct Collecting {
  BusFacts facts;
  int missing = 3;
  bool vanished = false;
};

void TakeProperties(const VariantPtr& reply, BusFacts& facts) {
  if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(a{sv})"))) return;
  const VariantPtr all(g_variant_get_child_value(reply.get(), 0));
  const char* text = nullptr;
  if (g_variant_lookup(all.get(), "Name", "&s", &text)) facts.name = text;
  if (g_variant_lookup(all.get(), "Description", "&s", &text)) facts.description = text;
  gint32 count = 0;
  if (g_variant_lookup(all.get(), "ChildCount", "i", &count))
    facts.child_count = std::max(0, count);
}

}  // namespace

void ReadElement(AccessBus& bus, const ElementRef& ref, std::function<void(Element)> done) {
  auto collecting = std::make_shared<Collecting>();
  auto arrived = [&bus, ref, collecting, done = std::move(done)] {
    if (--collecting->missing > 0) return;
    if (!collecting->vanished) return Complete(bus, ref, collecting->facts, done);
    Element gone;
    gone.ref = ref;
    gone.role = kRoleVanished;
    done(std::move(gone));
  };
  bus.Call(ref, kAccessibleInterface, "GetRole", nullptr, [=](VariantPtr reply) {
    collecting->vanished = !reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(u)"));
    if (!collecting->vanished) g_variant_get(reply.get(), "(u)", &collecting->facts.role);
    arrived();
  });
  bus.Call(ref, kAccessibleInterface, "GetState", nullptr, [=](VariantPtr reply) {
    if (reply && g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(au)"))) {
      const VariantPtr words(g_variant_get_child_value(reply.get(), 0));
      collecting->facts.states = StatesOf(words.get());
    }
    arrived();
  });
  bus.Call(ref, "org.freedesktop.DBus.Properties", "GetAll",
           g_variant_new("(s)", kAccessibleInterface), [=](VariantPtr reply) {
             TakeProperties(reply, collecting->facts);
             arrived();
           });
}

void ReadParent(AccessBus& bus, const ElementRef& ref,
                std::function<void(std::optional<ElementRef>)> done) {
  bus.Call(ref, "org.freedesktop.DBus.Properties", "Get",
           g_variant_new("(ss)", kAccessibleInterface, "Parent"),
           [done = std::move(done)](const VariantPtr& reply) {
             if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(v)"))) {
               return done({});
             }
             GVariant* inner = nullptr;
             g_variant_get(reply.get(), "(v)", &inner);
             const VariantPtr owned(inner);
             if (!g_variant_is_of_type(inner, G_VARIANT_TYPE("(so)"))) return done({});
             const char* name = nullptr;
             const char* path = nullptr;
             g_variant_get(inner, "(&s&o)", &name, &path);
             done(ElementRef{name, path});
           });
}

void ReadChildRefs(AccessBus& bus, const ElementRef& ref,
                   std::function<void(std::optional<std::vector<ElementRef>>)> done) {
  bus.Call(
      ref, kAccessibleInterface, "GetChildren", nullptr,
      [done = std::move(done)](VariantPtr reply) {
        if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(a(so))"))) {
          return done(std::nullopt);
        }
        const VariantPtr list(g_variant_get_child_value(reply.get(), 0));
        std::vector<ElementRef> children;
        GVariantIter each;
        g_variant_iter_init(&each, list.get());
        const char* name = nullptr;
        const char* path = nullptr;
        while (children.size() < kMostRefs && g_variant_iter_loop(&each, "(&s&o)", &name, &path)) {
          if (*name != '\0') children.push_back({name, path});
        }
        done(std::move(children));
      });
}

void ReadChildren(AccessBus& bus, const ElementRef& ref,
                  std::function<void(std::optional<std::vector<Element>>)> done) {
  ReadChildRefs(bus, ref, [&bus, done = std::move(done)](auto refs) {
    if (!refs) return done(std::nullopt);
    if (refs->empty()) return done(std::vector<Element>());
    if (refs->size() > kMostAtOnce) refs->resize(kMostAtOnce);
    struct Filling {
      std::vector<Element> elements;
      std::size_t missing;
    };
    auto filling = std::make_shared<Filling>();
    filling->elements.resize(refs->size());
    filling->missing = refs->size();
    for (std::size_t i = 0; i < refs->size(); ++i) {
      ReadElement(bus, (*refs)[i], [filling, i, done](Element element) {
        filling->elements[i] = std::move(element);
        if (--filling->missing == 0) done(std::move(filling->elements));
      });
    }
  });
}

namespace {

constexpr const char* kNoElement = "/org/a11y/atspi/null";

std::optional<ElementRef> RefOf(const VariantPtr& reply) {
  if (!IsOfType(reply, "((so))")) return {};
  const char* name = nullptr;
  const char* path = nullptr;
  g_variant_get(reply.get(), "((&s&o))", &name, &path);
  if (*name == '\0' || g_str_equal(path, kNoElement)) return {};
  return ElementRef{name, path};
}

}  // namespace

// All questions are on their way at once; their number is the caller's.
void ReadSomeChildren(AccessBus& bus, const ElementRef& ref, int from, int most,
                      std::function<void(std::optional<std::vector<Element>>)> done) {
  struct Filling {
    std::vector<std::optional<Element>> elements;
    bool answered = false;
  };
  const auto filling = std::make_shared<Filling>();
  filling->elements.resize(static_cast<std::size_t>(std::max(0, most)));
  const auto all = std::make_shared<Together>([filling, done = std::move(done)] {
    if (!filling->answered) return done(std::nullopt);
    std::vector<Element> there;
    for (auto& element : filling->elements) {
      if (element) there.push_back(std::move(*element));
    }
    done(std::move(there));
  });
  for (int i = 0; i < most; ++i) {
    bus.Call(ref, kAccessibleInterface, "GetChildAtIndex", g_variant_new("(i)", from + i),
             [&bus, filling, all, i](const VariantPtr& reply) {
               filling->answered = filling->answered || reply != nullptr;
               const auto child = RefOf(reply);
               if (!child) return;
               ReadElement(bus, *child, [filling, all, i](Element element) {
                 filling->elements[static_cast<std::size_t>(i)] = std::move(element);
               });
             });
  }
}

namespace {

bool IsDocument(std::uint32_t role) {
  return role == ATSPI_ROLE_DOCUMENT_WEB || role == ATSPI_ROLE_DOCUMENT_FRAME;
}

void FindDocumentBelow(AccessBus& bus, const ElementRef& ref, int depth,
                       std::function<void(std::optional<ElementRef>)> done) {
  bus.Call(ref, kAccessibleInterface, "GetRole", nullptr, [=, &bus](VariantPtr reply) {
    guint32 role = 0;
    if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(u)"))) return done({});
    g_variant_get(reply.get(), "(u)", &role);
    if (IsDocument(role)) return done(ref);
    if (depth == 0) return done({});
    ReadChildRefs(bus, ref, [=, &bus](auto children) {
      if (!children || children->empty()) return done({});
      FindDocumentBelow(bus, children->front(), depth - 1, done);
    });
  });
}

}  // namespace

void FindDocument(AccessBus& bus, const ElementRef& plug,
                  std::function<void(std::optional<ElementRef>)> done) {
  FindDocumentBelow(bus, plug, kDocumentDepth, std::move(done));
}

}  // namespace corvane::desktop::reader
