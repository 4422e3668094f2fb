#include <iterator>
#include <memory>

#include "app/Multithread.h"
#include "app/frmCorvane.h"
#include "platform/linux/automation/bus_automation.h"
#include "platform/linux/automation/bus_names.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fuzz/false_bus.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/lying_bus.h"

using namespace corvane;
using namespace corvane::desktop;

namespace {

using fuzz::Choices;

struct Method {
  const char* interface;
  const char* name;
  const char* types;  // of its arguments, as they should be
};

constexpr Method kMethods[] = {{kFactoryInterface, "CreateObject", "(s)"},
                               {kObjectInterface, "StartBrowser", "(o)"},
                               {kObjectInterface, "KillBrowser", "()"},
                               {kObjectInterface, "Say", "(sb)"},
                               {kObjectInterface, "Release", "()"},
                               {kServiceInterface, "SpeechInit", "()"},
                               {kServiceInterface, "SpeechTerminate", "()"},
                               {kServiceInterface, "KeyBoardEcho", "(b)"},
                               {kServiceInterface, "Say", "(sb)"},
                               {kOpenInterface, "Activate", "(a{sv})"},
                               {kOpenInterface, "Open", "(asa{sv})"},
                               {kOpenInterface, "ActivateAction", "(sava{sv})"},
                               {"org.freedesktop.DBus.Properties", "GetAll", "(s)"},
                               {"org.freedesktop.DBus.Introspectable", "Introspect", "()"}};

std::string PathFor(const Method& method, Choices& choices) {
  if (choices.Below(16) == 0) return fuzz::LyingPath(choices);
  if (method.interface == kServiceInterface) return kServicePath;
  if (method.interface != kObjectInterface) return kFactoryPath;
  return kObjectPathStart + std::to_string(choices.Below(8));
}

GVariant* ArgumentsFor(const Method& method, Choices& choices) {
  constexpr unsigned kWrong = 0;
  constexpr unsigned kRight = 1;  // where only one answer is right
  const unsigned manner = choices.Below(16);
  if (manner == kWrong)
    return fuzz::Lie(choices, kMethods[choices.Below(std::size(kMethods))].types);
  const bool right = manner % 2 == kRight;
  if (right && method.name == std::string("CreateObject"))
    return g_variant_new("(s)", "Corvane.Application");
  if (right && method.name == std::string("StartBrowser"))
    return g_variant_new("(o)", kServicePath);
  return fuzz::Lie(choices, method.types);
}

void Step(fuzz::FalseBus& bus, Multithread& process, Choices& choices) {
  const std::string caller = ":1." + std::to_string(10 + choices.Below(3));
  constexpr unsigned kLeaves = 0;
  constexpr unsigned kClosesAWindow = 1;
  switch (choices.Below(32)) {
    case kLeaves:
      return bus.Leave(caller);
    case kClosesAWindow: {
      bus.WaitForAnswers();
      const auto forms = process.Forms();
      if (!forms.empty()) forms.back()->Unload();
      return;
    }
    default:
      break;
  }
  const Method& method = kMethods[choices.Below(std::size(kMethods))];
  const std::string path = PathFor(method, choices);
  bus.Call(caller, path.c_str(), method.interface, method.name, ArgumentsFor(method, choices));
}

}  // namespace

// What other programs ask for over the session bus, one after the other. Each call is
// answered: the fuzzer waits for that.
void FuzzOne(const std::string& input) {
  // Never taken down: its threads may still be at work when the process ends.
  static auto& bus = *new fuzz::FalseBus;
  Choices choices(input);
  fakes::FakeDesktop desktop;
  desktop.settings.Main("Speech") = "True";
  Multithread process(desktop);
  process.Main();
  Promise(desktop.automation.server != nullptr);
  BusAutomation automation(bus.Program());
  automation.Publish(*desktop.automation.server);
  while (!choices.AtEnd()) Step(bus, process, choices);
  bus.WaitForAnswers();
  automation.Withdraw();
  bus.WaitForAnswers();
  // The service and its windows hold each other until the windows go.
  while (!process.Forms().empty()) process.Forms().back()->Unload();
}
