#include <map>
#include <optional>

#include "platform/linux/engine_options_dialog.h"
#include "tests/platform/gtk/desktop/desktop_test.h"
#include "tests/settings_document.h"
#include "web/EngineChoices.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class MemoryStore : public SettingsStore {
 public:
  std::string GetSetting(const std::string& application, const std::string&, const std::string& key,
                         const std::string& fallback) const override {
    asked.emplace(key, fallback);
    const auto at = values.find(application + "/" + key);
    return at == values.end() ? fallback : at->second;
  }
  void SaveSetting(const std::string& application, const std::string&, const std::string& key,
                   const std::string& value) override {
    values[application + "/" + key] = value;
  }
  std::map<std::string, std::string> values;
  mutable std::map<std::string, std::string> asked;  ///< settings that were read, their defaults
};

TEST(EngineChoices, AreTheDefaultsInAnEmptyStore) {
  const auto choices = EngineChoices::Read(MemoryStore());
  EXPECT_EQ(choices.start_page, kHomePage);
  EXPECT_EQ(choices.search_service, kDefaultSearchService);
  EXPECT_EQ(choices.preferences.zoom, 1.0);
  EXPECT_EQ(choices.preferences.minimum_font_size, 0);
  EXPECT_TRUE(choices.preferences.images);
  EXPECT_TRUE(choices.preferences.scripts);
}

TEST(EngineChoices, ComeBackAsTheyWereWritten) {
  EngineChoices choices;
  choices.start_page = "https://example.org/";
  choices.search_service = "";
  choices.preferences = {1.5, 18, false, false};
  MemoryStore store;
  choices.Write(store);
  EXPECT_EQ(store.values["Corvane/Zoom"], "150");
  const auto read = EngineChoices::Read(store);
  EXPECT_EQ(read.start_page, "https://example.org/");
  EXPECT_EQ(read.search_service, "");
  EXPECT_EQ(read.preferences.zoom, 1.5);
  EXPECT_EQ(read.preferences.minimum_font_size, 18);
  EXPECT_FALSE(read.preferences.images);
  EXPECT_FALSE(read.preferences.scripts);
}

TEST(EngineChoices, NonsenseCountsAsTheDefault) {
  MemoryStore store;
  store.values = {{"Corvane/Zoom", "9999"},
                  {"Corvane/MinimumFontSize", "huge"},
                  {"Corvane/SearchService", "javascript:%s"}};
  const auto choices = EngineChoices::Read(store);
  EXPECT_EQ(choices.preferences.zoom, 1.0);
  EXPECT_EQ(choices.preferences.minimum_font_size, 0);
  EXPECT_EQ(choices.search_service, kDefaultSearchService);
}

TEST(EngineChoices, AreAllInTheDocumentOfTheSettings) {
  const test::SettingsDocument document(CORVANE_SOURCE_DIR);
  const MemoryStore store;
  EngineChoices::Read(store);
  EXPECT_EQ(store.asked.size(), 6U);
  for (const auto& [key, fallback] : store.asked)
    document.Expect(test::SettingsDocument::Table::Others, "Corvane", key, fallback, "-");
}

class EngineOptionsTest : public test::DesktopTest {
 protected:
  void Show() {
    dialog_.Show();
    WaitForSpeech(1);
  }
  void WaitForSpeech(std::size_t count) {
    WaitFor("speech " + std::to_string(count), [&] { return spoken_.size() >= count; });
  }
  std::string Press(const std::vector<std::string>& keys) {
    spoken_.clear();
    std::vector<std::string> command = {"xdotool", "key"};
    command.insert(command.end(), keys.begin(), keys.end());
    Outside(command);
    WaitForSpeech(keys.size());
    return spoken_.back();
  }

  EngineChoices choices_;
  std::optional<EngineChoices> applied_;
  std::vector<std::string> cleared_;
  std::vector<std::string> spoken_;
  SpokenDialogs dialogs_{windows_,
                         [this](const std::string& text, GtkWindow*) { spoken_.push_back(text); }};
  EngineOptionsDialog dialog_{dialogs_,
                              {.choices = [this] { return choices_; },
                               .apply = [this](const EngineChoices& c) { applied_ = c; },
                               .clear_history = [this] { cleared_.push_back("history"); },
                               .clear_cookies = [this] { cleared_.push_back("cookies"); },
                               .clear_cache = [this] { cleared_.push_back("cache"); },
                               .show_permissions = [this](auto closed) { closed_ = closed; }}};
  std::function<void()> closed_;  // the permissions
};

TEST_F(EngineOptionsTest, IsSpokenFieldByField) {
  Show();
  EXPECT_THAT(spoken_, ElementsAre("Web options. Start page, edit box, " + std::string(kHomePage)));
  EXPECT_EQ(Press({"Tab"}),
            "Search service, %s for the words, edit box, " + std::string(kDefaultSearchService));
  EXPECT_EQ(Press({"Tab"}), "Page zoom, list, 100 percent, 4 of 11");
  EXPECT_EQ(Press({"Tab"}), "Least font size, list, as the page says, 1 of 12");
  EXPECT_EQ(Press({"Tab"}), "Show images, check box, checked");
  EXPECT_EQ(Press({"Tab"}), "Run scripts of pages, check box, checked");
  EXPECT_EQ(Press({"Tab"}), "OK Button");
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the end", [&] { return windows_.FindWindow("Web options") == 0; });
  EXPECT_FALSE(applied_.has_value());
}

TEST_F(EngineOptionsTest, WhatIsChosenIsApplied) {
  Show();
  Outside({"xdotool", "type", "--delay", "20", "example.org"});
  Press({"alt+z"});
  EXPECT_EQ(Press({"Down"}), "110 percent, 5 of 11");
  Press({"Tab"});
  EXPECT_EQ(Press({"Down"}), "10 pixels, 2 of 12");
  Press({"Tab"});
  EXPECT_EQ(Press({"space"}), "not checked");
  Press({"Tab"});
  EXPECT_EQ(Press({"space"}), "not checked");
  Outside({"xdotool", "key", "Return"});
  WaitFor("the choices", [&] { return applied_.has_value(); });
  EXPECT_EQ(applied_->start_page, "example.org");
  EXPECT_EQ(applied_->search_service, kDefaultSearchService);
  EXPECT_EQ(applied_->preferences.zoom, 1.1);
  EXPECT_EQ(applied_->preferences.minimum_font_size, 10);
  EXPECT_FALSE(applied_->preferences.images);
  EXPECT_FALSE(applied_->preferences.scripts);
}

TEST_F(EngineOptionsTest, APresentZoomOfItsOwnIsAmongTheChoices) {
  choices_.preferences.zoom = 1.33;
  Show();
  Press({"alt+z"});
  EXPECT_EQ(spoken_.back(), "Page zoom, list, 133 percent, 7 of 12");
  Outside({"xdotool", "key", "Return"});
  WaitFor("the choices", [&] { return applied_.has_value(); });
  EXPECT_EQ(applied_->preferences.zoom, 1.33);
}

TEST_F(EngineOptionsTest, AServiceThatCannotBeIsSaidAndTheDialogStays) {
  Show();
  Press({"Tab"});
  Outside({"xdotool", "type", "--delay", "20", "ftp://x"});
  EXPECT_EQ(Press({"Return"}), "The search service's address must begin with http or https");
  EXPECT_FALSE(applied_.has_value());
  EXPECT_NE(windows_.FindWindow("Web options"), 0U);
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the end", [&] { return windows_.FindWindow("Web options") == 0; });
}

TEST_F(EngineOptionsTest, ClearingIsDoneAtOnceAndSaid) {
  Show();
  EXPECT_EQ(Press({"alt+h"}), "The history is cleared");
  EXPECT_EQ(Press({"alt+c"}), "The cookies are cleared");
  EXPECT_EQ(Press({"alt+a"}), "The cache is cleared");
  EXPECT_THAT(cleared_, ElementsAre("history", "cookies", "cache"));
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the end", [&] { return windows_.FindWindow("Web options") == 0; });
}

TEST_F(EngineOptionsTest, SitesPermissionsLeadBackToWhatWasSetSoFar) {
  Show();
  Press({"alt+z"});
  Press({"Down"});
  Outside({"xdotool", "key", "alt+m"});
  WaitFor("the permissions", [&] { return closed_ != nullptr; });
  WaitFor("the end", [&] { return windows_.FindWindow("Web options") == 0; });
  EXPECT_FALSE(applied_.has_value());
  spoken_.clear();
  dialog_.Show();
  closed_();
  WaitForSpeech(1);
  EXPECT_THAT(spoken_, ElementsAre("Web options. Start page, edit box, " + std::string(kHomePage)));
  Press({"alt+z"});
  EXPECT_EQ(spoken_.back(), "Page zoom, list, 110 percent, 5 of 11");
  Outside({"xdotool", "key", "Return"});
  WaitFor("the choices", [&] { return applied_.has_value(); });
  EXPECT_EQ(applied_->preferences.zoom, 1.1);
}

TEST_F(EngineOptionsTest, TheProgramsOwnChoicesFollowAndAreApplied) {
  std::vector<std::string> own;
  dialog_.OfferOptions(
      {.list =
           [] {
             return std::vector<OwnOption>{{"Ways", {"old", "new"}, "old"}, {"Loud", {}, "False"}};
           },
       .apply = [&](const std::vector<std::string>& values) { own = values; }});
  Show();
  Press({"alt+r"});
  EXPECT_EQ(Press({"Tab"}), "Ways, list, old, 1 of 2");
  EXPECT_EQ(Press({"Down"}), "new, 2 of 2");
  EXPECT_EQ(Press({"Tab"}), "Loud, check box, not checked");
  EXPECT_EQ(Press({"space"}), "checked");
  Outside({"xdotool", "key", "Return"});
  WaitFor("the choices", [&] { return !own.empty(); });
  EXPECT_THAT(own, ElementsAre("new", "True"));
}

TEST_F(EngineOptionsTest, APageOfItsOwnIsHeardAsItIsChosenAndLeadsBack) {
  std::vector<std::string> tried;
  std::vector<std::string> applied;
  int taken_back = 0;
  const std::vector<OwnOption> options = {{"Speed", {"slow", "fast"}, "slow"}};
  dialog_.OfferOptions({.page = "Spe&ech",
                        .list = [&] { return options; },
                        .apply = [&](const auto& values) { applied = values; },
                        .try_out = [&](const auto& values, std::size_t changed) -> OwnChange {
                          tried.push_back(values.at(changed));
                          return {options, "", ""};
                        },
                        .take_back = [&] { ++taken_back; }});
  Show();
  Press({"alt+z"});
  Press({"Down"});
  EXPECT_EQ(Press({"alt+e"}), "Speech. Speed, list, slow, 1 of 2");
  EXPECT_EQ(Press({"Down"}), "fast, 2 of 2");
  EXPECT_THAT(tried, ElementsAre("fast"));
  EXPECT_EQ(Press({"Escape"}), "Web options. Start page, edit box, " + std::string(kHomePage));
  EXPECT_EQ(taken_back, 1);
  EXPECT_EQ(Press({"alt+z"}), "Page zoom, list, 110 percent, 5 of 11");
  Press({"alt+e"});
  Press({"Down"});
  Press({"Return"});
  EXPECT_THAT(applied, ElementsAre("fast"));
  EXPECT_EQ(taken_back, 1);
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the end", [&] { return windows_.FindWindow("Web options") == 0; });
}

TEST_F(EngineOptionsTest, IsOpenOnlyOnceAndCanBeOpenedAgain) {
  Show();
  dialog_.Show();
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the end", [&] { return windows_.FindWindow("Web options") == 0; });
  Settle();
  EXPECT_EQ(spoken_.size(), 1U);
  dialog_.Show();
  WaitForSpeech(2);
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the end", [&] { return windows_.FindWindow("Web options") == 0; });
}

}  // namespace
}  // namespace corvane::desktop
