#include "platform/linux/access/focus_reader.h"

#include <atspi/atspi-constants.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "platform/linux/access/bus_answer.h"
#include "platform/linux/access/desktop_reader.h"
#include "platform/linux/access/element_facts.h"
#include "platform/linux/access/together.h"

namespace corvane::desktop::reader {
namespace {

constexpr const char* kText = "org.a11y.atspi.Text";
constexpr const char* kValue = "org.a11y.atspi.Value";
constexpr const char* kProperties = "org.freedesktop.DBus.Properties";
constexpr int kLongestText = 2000;  // characters of a field
constexpr std::size_t kMostBytes = std::size_t{4} * kLongestText;

GVariant* Property(const char* interface, const char* name) {
  return g_variant_new("(ss)", interface, name);
}

int SelectedOf(const VariantPtr& reply) {
  gint32 start = 0;
  gint32 end = 0;
  if (IsOfType(reply, "(ii)")) g_variant_get(reply.get(), "(ii)", &start, &end);
  return start >= 0 && end > start ? end - start : 0;
}

std::string LineIn(const VariantPtr& reply) {
  if (!IsOfType(reply, "(sii)")) return {};
  const gchar* line = nullptr;
  g_variant_get(reply.get(), "(&sii)", &line, nullptr, nullptr);
  const std::string text(line);
  return text.size() <= kMostBytes ? text : std::string();
}

struct Facts {
  FieldFocus focus;
  std::uint32_t role = 0;
  std::optional<double> value;
};

// A word of a language, unlike the signs that stand for digits: "mm", "yyyy", "--".
bool IsWord(const std::string& text) {
  const bool has_digit = text.find_first_of("0123456789") != std::string::npos;
  return !has_digit && text.find_first_not_of(text.front()) != std::string::npos;
}

std::string ControlOf(std::uint32_t role) {
  switch (role) {
    case ATSPI_ROLE_PUSH_BUTTON:
      return "button";
    case ATSPI_ROLE_TOGGLE_BUTTON:
      return "toggle button";
    case ATSPI_ROLE_CHECK_BOX:
      return "check box";
    case ATSPI_ROLE_SLIDER:
      return "slider";
    default:
      return {};
  }
}

// A part of a date that holds nothing shows what might stand there, and counts as 0. It
// is not when it shows a 0, since an hour may be that, nor when it shows a word: months
// and halves of a day have names and no number.
FieldFocus FocusOf(Facts facts) {
  FieldFocus& focus = facts.focus;
  focus.is_part = facts.role == ATSPI_ROLE_SPIN_BUTTON;
  focus.control = ControlOf(facts.role);
  const std::string& text = focus.text;
  const bool shows_zero = text.find_first_not_of('0') == std::string::npos;
  const bool shows_word = !text.empty() && IsWord(text);
  focus.is_empty = focus.is_part && facts.value.value_or(1) == 0 && !shows_zero && !shows_word;
  return std::move(focus);
}

void AskForLine(AccessBus& bus, const ElementRef& ref, const std::shared_ptr<Facts>& facts,
                const std::shared_ptr<Together>& all) {
  bus.Call(ref, kText, "GetStringAtOffset",
           g_variant_new("(iu)", facts->focus.caret, ATSPI_TEXT_GRANULARITY_LINE),
           [facts, all](const VariantPtr& reply) { facts->focus.line = LineIn(reply); });
}

// All questions at once: the page answers them one after the other.
void Ask(AccessBus& bus, const ElementRef& ref, const std::shared_ptr<Facts>& facts,
         const std::shared_ptr<Together>& all) {
  bus.Call(ref, kAccessibleInterface, "GetRole", nullptr, [facts, all](const VariantPtr& reply) {
    if (IsOfType(reply, "(u)")) g_variant_get(reply.get(), "(u)", &facts->role);
  });
  bus.Call(
      ref, kProperties, "Get", Property(kAccessibleInterface, "Name"),
      [facts, all](const VariantPtr& reply) { facts->focus.name = TextOf(reply, kMostBytes); });
  bus.Call(
      ref, kText, "GetText", g_variant_new("(ii)", 0, kLongestText),
      [facts, all](const VariantPtr& reply) { facts->focus.text = TextOf(reply, kMostBytes); });
  bus.Call(ref, kProperties, "Get", Property(kText, "CaretOffset"),
           [&bus, ref, facts, all](const VariantPtr& reply) {
             facts->focus.caret = IntegerOf(reply).value_or(-1);
             if (facts->focus.caret >= 0) AskForLine(bus, ref, facts, all);
           });
  bus.Call(ref, kText, "GetSelection", g_variant_new("(i)", 0),
           [facts, all](const VariantPtr& reply) { facts->focus.selected = SelectedOf(reply); });
  bus.Call(ref, kProperties, "Get", Property(kValue, "CurrentValue"),
           [facts, all](const VariantPtr& reply) { facts->value = DoubleOf(reply); });
}

}  // namespace

void ReadFocus(AccessBus& bus, const ElementRef& document,
               std::function<void(const FieldFocus&)> done) {
  FindFocus(bus, document,
            [&bus, done = std::move(done)](const std::optional<ElementRef>& focused) {
              if (!focused) return done({});
              const auto facts = std::make_shared<Facts>();
              const auto all =
                  std::make_shared<Together>([facts, done] { done(FocusOf(std::move(*facts))); });
              Ask(bus, *focused, facts, all);
            });
}

}  // namespace corvane::desktop::reader
