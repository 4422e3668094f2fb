// Walks the pages of today's widgets by keys and compares what the page scripts tell
// of each stop with what must be conveyed there.
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/platform/web/facts_fixture.h"

namespace corvane::desktop {
namespace {

using Json = nlohmann::json;

std::string FileText(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The element that the user attends to, as the program is told of it.
constexpr const char* kAttended =
    "(() => { let at = document.activeElement;"
    " while (at && at.shadowRoot && at.shadowRoot.activeElement) at = at.shadowRoot.activeElement;"
    " const id = at && at.getAttribute('aria-activedescendant');"
    " const within = id && document.getElementById(id);"
    " let facts = corvaneFacts;"
    " while (at && at.contentDocument) {"
    "  facts = at.contentWindow.corvaneFacts; at = at.contentDocument.activeElement; }"
    " return at ? JSON.stringify(facts.factsOf(within || at)) : '{}'; })()";

class PatternsTest : public FactsTest {
 protected:
  void Press(const std::string& name) {
    guint modifiers = 0;
    std::string key = name;
    for (auto plus = key.find('+'); plus != std::string::npos; plus = key.find('+')) {
      const std::string modifier = key.substr(0, plus);
      if (modifier == "shift") modifiers |= GDK_SHIFT_MASK;
      if (modifier == "ctrl") modifiers |= GDK_CONTROL_MASK;
      if (modifier == "alt") modifiers |= GDK_MOD1_MASK;
      key = key.substr(plus + 1);
    }
    guint keyval = gdk_keyval_from_name(key.c_str());
    view_.Key(keyval, modifiers);
    // The page has had the key and what it started at once.
    Asked("'settled'");
    view_.EvaluateInPage("new Promise(done => setTimeout(done, 0)) && 1");
    Asked("'settled'");
  }

  /// What a stop lacks; empty when all is told.
  std::string Lacking(const Json& step) {
    const Json facts = Json::parse(Asked(kAttended), nullptr, false);
    std::ostringstream lacking;
    const auto compare = [&](const char* what, const std::string& told, const std::string& wanted) {
      if (told != wanted) lacking << what << " '" << told << "' not '" << wanted << "'; ";
    };
    // Where the caret is within a text, and which choice of a list is the present one,
    // is told by the field.
    const bool stays = step.value("stays", false) || step.contains("text");
    if (facts.value("role", "") == "listbox" && step.value("role", "") == "option") {
      const std::string choice = step.at("name");
      if (facts.value("value", "").find(choice) == std::string::npos) {
        compare("choice", facts.value("value", ""), choice);
      }
      return lacking.str();
    }
    if (step.contains("role") && !stays) {
      std::string role = facts.value("role", "");
      if (role == "summary") role = "button";
      if (step.at("role").is_string()) compare("role", role, step.at("role"));
    }
    if (step.contains("name") && step.at("name").is_string() && !stays) {
      compare("name", facts.value("name", ""), step.at("name"));
    }
    const Json states = step.value("states", Json::object());
    for (const auto& [state, value] : states.items()) {
      const std::string wanted = value.get<std::string>();
      if (state == "multiline" || state == "orientation" || state == "autocomplete" ||
          state == "placeholder" || state == "multiselectable") {
        continue;
      }
      const std::string key = state == "haspopup" ? "popup" : state;
      const Json told = facts.value(key, Json());
      std::string word = told.is_string() ? told.get<std::string>()
                         : told == true   ? "true"
                                          : "false";
      if (told.is_null() && wanted != "false") word = "";
      compare(state.c_str(), word, wanted);
    }
    if (step.contains("place")) {
      compare(
          "place",
          std::to_string(facts.value("place", 0)) + " of " + std::to_string(facts.value("size", 0)),
          step["place"]);
    }
    if (step.contains("level")) {
      compare("level", std::to_string(facts.value("level", 0)),
              step["level"].is_number() ? std::to_string(step["level"].get<int>())
                                        : step["level"].get<std::string>());
    }
    if (step.contains("value")) compare("value", facts.value("value", ""), step["value"]);
    if (step.contains("description")) {
      compare("description", facts.value("description", ""), step["description"]);
    }
    const Json enters = step.value("enters", Json::array());
    for (const Json& group : enters) {
      if (group[0] == "list") continue;  // said by the text that it is in
      bool found = false;
      const Json groups = facts.value("groups", Json::array());
      for (const Json& told : groups) {
        const std::string role = told[1] == "frame" ? "" : told[1].get<std::string>();
        found = found || (role == group[0] && told[2] == group[1]);
      }
      if (!found)
        lacking << "group " << group.dump() << " not in " << facts.value("groups", Json()).dump()
                << "; ";
    }
    return lacking.str();
  }
};

TEST_F(PatternsTest, EveryStopIsTold) {
  const Json walks = Json::parse(FileText(CORVANE_WALKS));
  int stops = 0;
  int whole = 0;
  for (const auto& [name, steps] : walks.items()) {
    const char* only = g_getenv("CORVANE_WALK");
    if (only != nullptr && name != only) continue;
    server_.Page("/", FileText(std::string(CORVANE_PATTERNS) + "/" + name + ".html"));
    view_.Go(server_.Url());
    view_.Focus();
    int number = 0;
    for (const Json& step : steps) {
      ++number;
      if (!step.contains("key") || !step.at("key").is_string()) continue;
      Press(step["key"]);
      if (step.value("silent", false)) continue;
      const std::string lacking = Lacking(step);
      ++stops;
      whole += lacking.empty() ? 1 : 0;
      if (!lacking.empty()) {
        ADD_FAILURE() << name << " " << number << " " << step["key"] << ": " << lacking;
      }
    }
  }
  std::cout << whole << " of " << stops << " stops are told whole\n";
}

}  // namespace
}  // namespace corvane::desktop
