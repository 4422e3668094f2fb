#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/settings_store.h"

namespace corvane::contract {

/// What everybody may rely on who keeps settings (platform/settings_store.h). `Maker` has a
/// store without any value as `store`.
template <class Maker>
class SettingsContract : public testing::Test {
 protected:
  std::string Get(const std::string& key, const std::string& fallback = "fallback") {
    return Store().GetSetting("Corvane", "Settings", key, fallback);
  }
  void Save(const std::string& key, const std::string& value) {
    Store().SaveSetting("Corvane", "Settings", key, value);
  }
  SettingsStore& Store() { return maker_.store; }

  Maker maker_;
};

TYPED_TEST_SUITE_P(SettingsContract);

TYPED_TEST_P(SettingsContract, WhatWasNeverSavedIsTheCallersFallback) {
  EXPECT_EQ(this->Get("Rate", "150"), "150");
  EXPECT_EQ(this->Get("Rate", "90"), "90") << "the fallback is not kept";
}

TYPED_TEST_P(SettingsContract, WhatIsSavedIsThereAtOnceAndTheLastOneHolds) {
  this->Save("Rate", "150");
  EXPECT_EQ(this->Get("Rate"), "150");
  this->Save("Rate", "200");
  EXPECT_EQ(this->Get("Rate"), "200");
}

TYPED_TEST_P(SettingsContract, AnEmptyValueIsAValue) {
  this->Save("Folder", "");
  EXPECT_EQ(this->Get("Folder"), "");
}

TYPED_TEST_P(SettingsContract, ApplicationsSectionsAndKeysAreKeptApart) {
  this->Save("Rate", "1");
  this->Store().SaveSetting("Corvane", "Other", "Rate", "2");
  this->Store().SaveSetting("pnlBrowser", "Settings", "Rate", "3");
  this->Save("Pitch", "4");
  EXPECT_EQ(this->Get("Rate"), "1");
  EXPECT_EQ(this->Store().GetSetting("Corvane", "Other", "Rate", ""), "2");
  EXPECT_EQ(this->Store().GetSetting("pnlBrowser", "Settings", "Rate", ""), "3");
  EXPECT_EQ(this->Store().GetSetting("pnlBrowser", "Settings", "Pitch", "none"), "none");
}

TYPED_TEST_P(SettingsContract, ATextComesBackAsItWas) {
  for (const char* text :
       {"a=b", "; no comment", "# nor this", "[Settings]", "\xC3\xA4 \xE2\x82\xAC", "\"quoted\"",
        "C:\\folder\\", "  blanks around  ", "two\nlines"}) {
    this->Save("Text", text);
    EXPECT_EQ(this->Get("Text"), text);
  }
}

REGISTER_TYPED_TEST_SUITE_P(SettingsContract, WhatWasNeverSavedIsTheCallersFallback,
                            WhatIsSavedIsThereAtOnceAndTheLastOneHolds, AnEmptyValueIsAValue,
                            ApplicationsSectionsAndKeysAreKeptApart, ATextComesBackAsItWas);

}  // namespace corvane::contract
