#include "app/MannerSettings.h"

#include <set>

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

std::vector<std::string> Values(const OwnOptions& options) {
  std::vector<std::string> values;
  for (const OwnOption& option : options.list()) values.push_back(option.value);
  return values;
}

std::size_t IndexOf(const char* key) {
  std::size_t index = 1;  // behind the manner itself
  for (const MannerChoice& choice : MannerChoices()) {
    if (choice.key == key) return index;
    ++index;
  }
  throw std::runtime_error(key);
}

TEST(MannerSettings, AnEmptyStoreMeansTheEstablishedWay) {
  FakeSettings store;
  MannerSettings settings(store);
  EXPECT_THAT(settings.Read(), IsEmpty());
  for (const MannerChoice& choice : MannerChoices()) {
    EXPECT_EQ(choice.get(settings.Current()), choice.established) << choice.key;
    EXPECT_EQ(choice.get(kEstablishedManner), choice.established) << choice.key;
  }
  EXPECT_FALSE(settings.Current().today);
}

TEST(MannerSettings, MannerOneMeansTodaysWayInEverything) {
  FakeSettings store;
  store.Main("Manner") = "1";
  MannerSettings settings(store);
  EXPECT_THAT(settings.Read(), IsEmpty());
  for (const MannerChoice& choice : MannerChoices())
    EXPECT_EQ(choice.get(settings.Current()), choice.today) << choice.key;
  EXPECT_TRUE(settings.Current().today);
}

TEST(MannerSettings, EachChoiceCanBeMadeAgainstTheManner) {
  for (const char* manner : {"0", "1"}) {
    for (const MannerChoice& choice : MannerChoices()) {
      for (std::size_t wanted = 0; wanted < choice.values.size(); ++wanted) {
        FakeSettings store;
        store.Main("Manner") = manner;
        store.SaveSetting(std::string(choice.application), "Settings", std::string(choice.key),
                          std::string(choice.values[wanted]));
        MannerSettings settings(store);
        EXPECT_THAT(settings.Read(), IsEmpty());
        EXPECT_EQ(choice.get(settings.Current()), wanted) << choice.key << " under " << manner;
      }
    }
  }
}

TEST(MannerSettings, WhatIsNoValueOfASettingIsNamedAndCountsAsNotStored) {
  FakeSettings store;
  store.Main("Manner") = "today";
  store.Pane("WholeForms") = "true";
  store.Pane("Passwords") = "";
  MannerSettings settings(store);
  EXPECT_THAT(settings.Read(), ElementsAre("Manner", "WholeForms"));
  EXPECT_FALSE(settings.Current().today);
  EXPECT_FALSE(settings.Current().whole_forms);
}

TEST(MannerSettings, WhatIsChosenInTheDialogHoldsAtOnceAndIsKept) {
  FakeSettings store;
  MannerSettings settings(store);
  settings.Read();
  const Manner& manner = settings.Current();
  const OwnOptions options = settings.Options();
  auto values = Values(options);
  values[IndexOf("Passwords")] = "hidden";
  options.apply(values);
  EXPECT_TRUE(manner.hide_passwords);
  EXPECT_THAT(store.saves, ElementsAre("Passwords=hidden"));
}

TEST(MannerSettings, WhatWasNotTouchedInTheDialogGoesOnFollowingTheManner) {
  FakeSettings store;
  MannerSettings settings(store);
  settings.Read();
  const OwnOptions options = settings.Options();
  auto values = Values(options);
  values[0] = options.list()[0].choices[1];
  options.apply(values);
  EXPECT_THAT(store.saves, ElementsAre("Manner=1"));
  EXPECT_TRUE(settings.Current().today);
  EXPECT_TRUE(settings.Current().whole_forms);
  values = Values(options);
  values[0] = options.list()[0].choices[0];
  options.apply(values);
  EXPECT_FALSE(settings.Current().whole_forms);
}

TEST(MannerSettings, NoTwoChoicesShareAKeyOrALabel) {
  std::set<std::string_view> keys;
  std::set<std::string_view> labels;
  for (const MannerChoice& choice : MannerChoices()) {
    EXPECT_TRUE(keys.insert(choice.key).second) << choice.key;
    EXPECT_TRUE(labels.insert(choice.label).second) << choice.label;
  }
}

// The manual's table has each choice with the values of both manners.
TEST(MannerSettings, TheProgramOffersThemToTheOptionsDialog) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.Start();
  ASSERT_TRUE(p.desktop.own_options.list);
  EXPECT_EQ(p.desktop.own_options.list().size(), MannerChoices().size() + 1);
  EXPECT_TRUE(p.process.Manner().today);
}

}  // namespace
}  // namespace corvane::tests
