#include "platform/linux/access/element_facts.h"

#include <atspi/atspi-constants.h>

#include <utility>

#include "base/text.h"
#include "platform/accessible.h"
#include "platform/linux/access/roles.h"

namespace corvane::desktop {
namespace {

constexpr int kLongestText = 12700;  // characters; no more of a label is ever shown
constexpr std::size_t kMostBytes = 4 * kLongestText;
constexpr const char* kEmbedded = "\xEF\xBF\xBC";

enum class Lacks { Nothing, Address, Contents, Number, Words };

// Which question is still to be asked.
Lacks LackOf(const BusFacts& facts) {
  switch (facts.role) {
    case ATSPI_ROLE_LINK:
      return Lacks::Address;
    case ATSPI_ROLE_PASSWORD_TEXT:
      return Lacks::Nothing;  // nobody is to hear it
    case ATSPI_ROLE_ENTRY:
    case ATSPI_ROLE_TEXT:
    case ATSPI_ROLE_EDITBAR:
      return Lacks::Contents;
    case ATSPI_ROLE_SLIDER:
    case ATSPI_ROLE_SPIN_BUTTON:
    case ATSPI_ROLE_PROGRESS_BAR:
    case ATSPI_ROLE_LEVEL_BAR:
    case ATSPI_ROLE_SCROLL_BAR:
    case ATSPI_ROLE_DIAL:
      return Lacks::Number;
    case ATSPI_ROLE_LABEL:
    case ATSPI_ROLE_STATIC:
    case ATSPI_ROLE_PARAGRAPH:
    case ATSPI_ROLE_HEADING:
    case ATSPI_ROLE_SECTION:
    case ATSPI_ROLE_LIST_ITEM:
    case ATSPI_ROLE_TABLE_CELL:
    case ATSPI_ROLE_COLUMN_HEADER:
    case ATSPI_ROLE_ROW_HEADER:
    case ATSPI_ROLE_BLOCK_QUOTE:
    case ATSPI_ROLE_CAPTION:
    case ATSPI_ROLE_DESCRIPTION_TERM:
    case ATSPI_ROLE_DESCRIPTION_VALUE:
      return facts.name.empty() ? Lacks::Words : Lacks::Nothing;
    default:
      return Lacks::Nothing;
  }
}

// A text without what nobody would ever hear of it.
std::string Shown(const std::string& text) {
  return text::left(text::valid(text.substr(0, kMostBytes)), kLongestText);
}

std::string TextOf(const VariantPtr& reply) {
  if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(s)"))) return "";
  const char* text = "";
  g_variant_get(reply.get(), "(&s)", &text);
  return Shown(text);
}

std::string NumberOf(const VariantPtr& reply) {
  if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(v)"))) return "";
  GVariant* inner = nullptr;
  g_variant_get(reply.get(), "(v)", &inner);
  const VariantPtr owned(inner);
  if (!g_variant_is_of_type(inner, G_VARIANT_TYPE_DOUBLE)) return "";
  char buffer[G_ASCII_DTOSTR_BUF_SIZE];
  return g_ascii_formatd(buffer, sizeof buffer, "%.10g", g_variant_get_double(inner));
}

}  // namespace

std::uint64_t StatesOf(GVariant* words) {
  std::uint64_t states = 0;
  gsize count = 0;
  const auto* word =
      static_cast<const guint32*>(g_variant_get_fixed_array(words, &count, sizeof(guint32)));
  for (gsize i = 0; i < count && i < 2; ++i) states |= std::uint64_t{word[i]} << (32 * i);
  return states;
}

std::string PlainText(const std::string& text) {
  std::string plain;
  for (const char byte : text::replace_all(text, kEmbedded, " ")) {
    const bool blank = byte == ' ' || byte == '\n' || byte == '\t' || byte == '\r';
    if (!blank) {
      plain += byte;
    } else if (!plain.empty() && plain.back() != ' ') {
      plain += ' ';
    }
  }
  if (!plain.empty() && plain.back() == ' ') plain.pop_back();
  return plain;
}

void Complete(AccessBus& bus, const ElementRef& ref, const BusFacts& facts,
              std::function<void(Element)> done) {
  Element element{ref,
                  Shown(facts.name),
                  "",
                  Shown(facts.description),
                  RoleOfBus(facts.role),
                  StateOfBus(facts.states, facts.role == ATSPI_ROLE_PASSWORD_TEXT),
                  facts.child_count};
  const auto with = [&](std::string Element::*field, std::string (*read)(const VariantPtr&)) {
    return [element, field, read, done](VariantPtr reply) mutable {
      element.*field = read(reply);
      done(std::move(element));
    };
  };
  const auto all_text = [] { return g_variant_new("(ii)", 0, kLongestText); };
  const auto words = [](const VariantPtr& reply) { return PlainText(TextOf(reply)); };
  switch (LackOf(facts)) {
    case Lacks::Nothing:
      return done(std::move(element));
    case Lacks::Address:
      return bus.Call(ref, "org.a11y.atspi.Hyperlink", "GetURI", g_variant_new("(i)", 0),
                      with(&Element::value, &TextOf));
    case Lacks::Contents:
      return bus.Call(ref, "org.a11y.atspi.Text", "GetText", all_text(),
                      with(&Element::value, &TextOf));
    case Lacks::Words:
      return bus.Call(ref, "org.a11y.atspi.Text", "GetText", all_text(),
                      with(&Element::name, words));
    case Lacks::Number:
      return bus.Call(ref, "org.freedesktop.DBus.Properties", "Get",
                      g_variant_new("(ss)", "org.a11y.atspi.Value", "CurrentValue"),
                      with(&Element::value, &NumberOf));
  }
}

}  // namespace corvane::desktop
