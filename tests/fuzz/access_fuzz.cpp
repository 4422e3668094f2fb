#include <deque>
#include <map>
#include <utility>

#include "base/text.h"
#include "platform/linux/access/access_bus.h"
#include "platform/linux/access/desktop_reader.h"
#include "platform/linux/access/element_facts.h"
#include "platform/linux/access/element_reader.h"
#include "platform/linux/access/other_windows.h"
#include "platform/linux/access/remote_accessible.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/lying_bus.h"

using namespace corvane;
using namespace corvane::desktop;

namespace {

using fuzz::Choices;

// What is on its way on the bus: answers come in an order of their own.
struct Bus {
  Choices* choices = nullptr;
  std::deque<std::function<void()>> answers;

  void Deliver() {
    while (!answers.empty()) {
      const bool last = choices->Below(4) == 0;
      auto answer = std::move(last ? answers.back() : answers.front());
      last ? answers.pop_back() : answers.pop_front();
      answer();
    }
  }
};

Bus& TheBus() {
  static Bus bus;
  return bus;
}

// What each question is answered with by a program that is well.
const char* TypeOf(const std::string& method) {
  static const std::map<std::string, const char*> types = {
      {"GetRole", "(u)"},
      {"GetState", "(au)"},
      {"GetAll", "(a{sv})"},
      {"Get", "(v)"},
      {"GetChildren", "(a(so))"},
      {"GetItems", "(a((so)(so)(so)iiassusau))"},
      {"GetText", "(s)"},
      {"GetURI", "(s)"},
      {"GetName", "(s)"},
      {"GetKeyBinding", "(s)"},
      {"GetExtents", "((iiii))"},
      {"GetCharacterExtents", "(iiii)"},
      {"GetAccessibleAtPoint", "((so))"},
      {"GetSelectedChild", "((so))"},
      {"GetMatches", "(a(so))"},
      {"GetIndexInParent", "(i)"},
      {"GetConnectionUnixProcessID", "(u)"}};
  const auto at = types.find(method);
  return at == types.end() ? "()" : at->second;
}

VariantPtr AnswerTo(const std::string& method) {
  Choices& choices = *TheBus().choices;
  // Nobody there, a wrong type, or bytes that are not what they say they are.
  constexpr unsigned kNobody = 0;
  constexpr unsigned kWrongType = 1;
  constexpr unsigned kRawBytes = 2;
  if (choices.AtEnd()) return nullptr;
  const unsigned manner = choices.Below(16);
  const char* type = TypeOf(method);
  switch (manner) {
    case kNobody:
      return nullptr;
    case kWrongType: {
      static constexpr const char* kTypes[] = {"()", "(s)", "(i)", "(u)", "(v)", "(a(so))", "(au)"};
      type = kTypes[choices.Below(std::size(kTypes))];
      break;
    }
    case kRawBytes: {
      const auto raw = choices.Bytes(choices.Byte());
      GBytes* bytes = g_bytes_new(raw.data(), raw.size());
      GVariant* value = g_variant_new_from_bytes(G_VARIANT_TYPE(type), bytes, FALSE);
      g_bytes_unref(bytes);
      return VariantPtr(g_variant_ref_sink(value));
    }
    default:
      break;
  }
  return VariantPtr(g_variant_ref_sink(fuzz::Lie(choices, type)));
}

}  // namespace

namespace corvane::desktop {

// The bus without a socket and without a thread: its answers are the input's.
AccessBus::AccessBus(std::function<void()> lost) : lost_(std::move(lost)) {}

AccessBus::~AccessBus() {
  g_main_loop_unref(loop_);
  g_main_context_unref(context_);
}

void AccessBus::Connect(Connected connected) { connected(""); }

void AccessBus::Post(std::function<void()> run) {
  run();
  TheBus().Deliver();
}

void AccessBus::Call(const ElementRef& /*element*/, const char* /*interface*/, const char* method,
                     GVariant* args, Reply reply, int /*timeout*/) {
  if (args != nullptr) g_variant_unref(g_variant_ref_sink(args));
  TheBus().answers.emplace_back(
      [reply = std::move(reply), method = std::string(method)] { reply(AnswerTo(method)); });
}

}  // namespace corvane::desktop

namespace {

void Check(const std::string& text) { Promise(text == text::valid(text)); }

void Check(const Element& element) {
  Check(element.name);
  Check(element.value);
  Check(element.description);
  PlainText(element.name);
}

// Asks and waits; each question is answered once.
template <class Answer, class Question>
Answer Asked(Question question) {
  int times = 0;
  Answer kept{};
  question([&](Answer answer) {
    ++times;
    kept = std::move(answer);
  });
  TheBus().Deliver();
  Promise(times == 1);
  return kept;
}

// What the tree in the side bar asks of an element, and of some below it.
void Walk(const AccessiblePtr& element, Choices& choices, int depth) {
  for (const auto which : {AccessibleText::Name, AccessibleText::Value, AccessibleText::Description,
                           AccessibleText::DefaultAction, AccessibleText::KeyboardShortcut})
    Check(element->Text(which, {}));
  element->State({});
  element->Location({});
  element->Select(static_cast<int>(choices.Below(32)), {});
  element->DoDefaultAction({});
  element->Role(static_cast<std::int32_t>(choices.Below(4)));
  const auto children = element->Children(static_cast<int>(choices.Below(100)));
  const auto parent = element->Parent();
  if (depth == 0) return;
  if (parent) Walk(parent, choices, depth - 1);
  for (const auto& child : children) {
    if (choices.AtEnd()) return;
    Walk(child.object, choices, depth - 1);
  }
}

void WalkTree(const std::shared_ptr<AccessBus>& bus, const ElementRef& root, Choices& choices) {
  auto tree = std::make_shared<RemoteTree>();
  tree->bus = bus;
  tree->root = root;
  tree->snapshot = Asked<std::shared_ptr<const Snapshot>>([&](const auto& done) {
    reader::ReadTree(*bus, root, std::make_shared<std::atomic<bool>>(false), done);
  });
  tree->origin = [] { return ScreenPoint{100, 100}; };
  const Element* top = tree->snapshot->Find(root);
  Promise(top != nullptr);
  Check(*top);
  for (const auto& child : tree->snapshot->Children(root)) Check(child);
  const auto object = std::make_shared<RemoteAccessible>(tree, *top);
  object->At({7, 7});
  Walk(object, choices, 3);
}

void ReadWindows(AccessBus& bus, Choices& choices) {
  const auto windows =
      Asked<std::vector<OtherWindow>>([&](const auto& done) { reader::ReadDesktop(bus, done); });
  OtherWindows known;
  known.Update(windows);
  for (const auto& window : known.All()) {
    Check(window.element);
    Check(window.program);
    Promise(known.Find(known.HandleOf(window.element.ref)) != nullptr);
  }
  const auto at = static_cast<int>(choices.Byte());
  WindowAt(windows, {}, {at, at});
  WindowAt(windows, StackedWindow{choices.Byte(), "Name", {0, 0, at, at}}, {at, at});
}

}  // namespace

// What programs on the accessibility bus answer, who may tell anything.
void FuzzOne(const std::string& input) {
  Choices choices(input);
  TheBus().choices = &choices;
  const auto bus = std::make_shared<AccessBus>([] {});
  const ElementRef root{":1.7", fuzz::LyingPath(choices)};
  switch (choices.Below(6)) {
    case 0:
      ReadWindows(*bus, choices);
      break;
    case 1:
      Asked<std::optional<ScreenPoint>>(
          [&](const auto& done) { reader::ReadCaret(*bus, root, done); });
      break;
    case 2:
      Asked<std::optional<Element>>([&](const auto& done) {
        reader::ReadElementAt(*bus, root, {5, 5}, reader::Coordinates::Screen, done);
      });
      break;
    case 3:
      Asked<std::optional<ElementRef>>(
          [&](const auto& done) { reader::FindDocument(*bus, root, done); });
      break;
    default:
      WalkTree(bus, root, choices);
  }
}
