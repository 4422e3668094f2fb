#include "tests/settings_document.h"

#include "app/MannerSettings.h"
#include "tests/temporary_folder.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using test::SettingsDocument;
using Table = SettingsDocument::Table;

// The values that the choices have in a manner, as a dialog shows them.
std::vector<std::string> ValuesUnder(const char* manner) {
  FakeSettings store;
  store.Main("Manner") = manner;
  MannerSettings settings(store);
  settings.Read();
  std::vector<std::string> values;
  for (const OwnOption& option : settings.Options().list()) values.push_back(option.value);
  values.erase(values.begin());  // the manner itself
  return values;
}

TEST(SettingsDocument, ListsEveryChoiceOfTheMannerWithBothDefaults) {
  const SettingsDocument document(CORVANE_SOURCE_DIR);
  const auto established = ValuesUnder("0");
  const auto today = ValuesUnder("1");
  for (std::size_t i = 0; const MannerChoice& choice : MannerChoices()) {
    document.Expect(Table::Manner, std::string(choice.application), std::string(choice.key),
                    established.at(i), today.at(i));
    ++i;
  }
}

// The value that the installed defaults give the setting; "-" where they give none.
std::string Installed(const std::string& application, const std::string& key) {
  std::istringstream ini(test::ContentOf(std::string(CORVANE_SOURCE_DIR) + "/data/xdg/corvane/" +
                                         application + ".ini"));
  for (std::string line; std::getline(ini, line);) {
    if (line.starts_with(key + "=")) return line.substr(key.size() + 1);
  }
  return "-";
}

bool IsOfTheManner(const std::string& key) {
  for (const MannerChoice& choice : MannerChoices()) {
    if (choice.key == key) return true;
  }
  return false;
}

TEST(SettingsDocument, ListsEveryOtherSettingThatTheProgramReads) {
  const SettingsDocument document(CORVANE_SOURCE_DIR);
  Program p;
  p.StartTalking();
  EXPECT_GT(p.desktop.settings.asked.size(), 10U);
  for (const auto& [setting, fallback] : p.desktop.settings.asked) {
    const auto& [application, key] = setting;
    if (IsOfTheManner(key)) continue;
    document.Expect(Table::Others, application, key, fallback.empty() ? "none" : fallback,
                    Installed(application, key));
  }
}

}  // namespace
}  // namespace corvane::tests
