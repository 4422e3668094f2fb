#include "platform/linux/access/remote_selection.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/linux/access/element_facts.h"
#include "platform/linux/access/element_reader.h"
#include "platform/linux/access/selection_steps.h"
#include "platform/linux/access/together.h"

namespace corvane::desktop {
namespace {

constexpr const char* kSelection = "org.a11y.atspi.Selection";
constexpr int kMostSelected = 10'000;

void Ignored(const VariantPtr& /*reply*/) {}

void ReadIndex(AccessBus& bus, const ElementRef& element, std::function<void(int)> done) {
  bus.Call(element, kAccessibleInterface, "GetIndexInParent", nullptr,
           [done = std::move(done)](const VariantPtr& reply) {
             gint32 index = -1;
             if (reply && g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(i)"))) {
               g_variant_get(reply.get(), "(i)", &index);
             }
             done(index);
           });
}

using Indexes = std::vector<int>;

void ReadSelectedOf(AccessBus& bus, const ElementRef& parent, int count,
                    std::function<void(const Indexes&)> done) {
  auto selected = std::make_shared<Indexes>();
  const auto all = std::make_shared<Together>([selected, done = std::move(done)] {
    std::sort(selected->begin(), selected->end());
    done(*selected);
  });
  for (int i = 0; i < count; ++i) {
    bus.Call(parent, kSelection, "GetSelectedChild", g_variant_new("(i)", i),
             [&bus, selected, all](const VariantPtr& reply) {
               if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("((so))"))) return;
               const char* name = "";
               const char* path = "";
               g_variant_get(reply.get(), "((&s&o))", &name, &path);
               ReadIndex(bus, {name, path}, [selected, all](int index) {
                 if (index >= 0) selected->push_back(index);
               });
             });
  }
}

void ReadSelected(AccessBus& bus, const ElementRef& parent,
                  std::function<void(const Indexes&)> done) {
  bus.Call(parent, "org.freedesktop.DBus.Properties", "Get",
           g_variant_new("(ss)", kSelection, "NSelectedChildren"),
           [&bus, parent, done = std::move(done)](const VariantPtr& reply) {
             if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(v)"))) return;
             GVariant* inner = nullptr;
             g_variant_get(reply.get(), "(v)", &inner);
             const VariantPtr owned(inner);
             if (!g_variant_is_of_type(inner, G_VARIANT_TYPE_INT32)) return;
             ReadSelectedOf(bus, parent, std::min(g_variant_get_int32(inner), kMostSelected), done);
           });
}

}  // namespace

void SelectOnBus(AccessBus& bus, const ElementRef& element, int flags) {
  reader::ReadParent(bus, element, [&bus, element, flags](const std::optional<ElementRef>& parent) {
    if (!parent) return;
    ReadIndex(bus, element, [&bus, parent = *parent, flags](int index) {
      if (index < 0) return;
      ReadSelected(bus, parent, [&bus, parent, flags, index](const Indexes& selected) {
        const SelectionSteps steps = StepsFor(flags, index, selected);
        if (steps.clear) bus.Call(parent, kSelection, "ClearSelection", nullptr, &Ignored);
        for (const int each : steps.select) {
          bus.Call(parent, kSelection, "SelectChild", g_variant_new("(i)", each), &Ignored);
        }
      });
    });
  });
}

}  // namespace corvane::desktop
