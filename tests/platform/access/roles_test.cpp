#include "platform/linux/access/roles.h"

#include <atspi/atspi-constants.h>
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "platform/accessible.h"

namespace corvane::desktop {
namespace {

TEST(Roles, BusAndToolkitAreTranslatedAlike) {
  EXPECT_EQ(RoleOfBus(ATSPI_ROLE_DIALOG), kRoleDialog);
  EXPECT_EQ(RoleOfToolkit(ATK_ROLE_DIALOG), kRoleDialog);
  EXPECT_EQ(RoleOfBus(ATSPI_ROLE_LINK), kRoleLink);
  EXPECT_EQ(RoleOfToolkit(ATK_ROLE_LINK), kRoleLink);
  EXPECT_EQ(RoleOfBus(ATSPI_ROLE_IMAGE), kRoleGraphic);
  EXPECT_EQ(RoleOfToolkit(ATK_ROLE_ENTRY), kRoleEditableText);
  EXPECT_EQ(RoleOfBus(ATSPI_ROLE_ENTRY), kRoleEditableText);
  EXPECT_EQ(RoleOfBus(ATSPI_ROLE_PUSH_BUTTON), 43);
  EXPECT_EQ(RoleOfBus(999), 20);  // a grouping
}

TEST(Roles, EveryRoleOfTheListHasWords) {
  for (int role = 1; role <= 64; ++role) EXPECT_NE(WordsOfRole(role), "") << role;
  EXPECT_EQ(WordsOfRole(kRoleLink), "link");
  EXPECT_EQ(WordsOfRole(kRoleEditableText), "editable text");
  EXPECT_EQ(WordsOfRole(RoleOfBus(ATSPI_ROLE_HEADING)), "heading");
  EXPECT_EQ(WordsOfRole(0), "");
  EXPECT_EQ(WordsOfRole(kRoleVanished), "");
}

TEST(Roles, WordsAreThoseOfTheUsersLanguage) {
  const std::string before = setlocale(LC_ALL, nullptr);
  g_setenv("LANGUAGE", "de", TRUE);
  setlocale(LC_ALL, "C");  // words already looked up are forgotten with a change only
  ASSERT_NE(setlocale(LC_ALL, "C.UTF-8"), nullptr);
  EXPECT_EQ(WordsOfRole(kRoleLink), "Verknüpfung");
  EXPECT_EQ(WordsOfRole(kRoleEditableText), "Eingabefeld");
  EXPECT_EQ(WordsOfRole(43), "Druckknopf");
  EXPECT_EQ(WordsOfRole(RoleOfBus(ATSPI_ROLE_HEADING)), "Überschrift");
  EXPECT_EQ(WordsOfRole(31), "help balloon") << "in English where the desktop has no words";
  g_unsetenv("LANGUAGE");
  setlocale(LC_ALL, "C");
  setlocale(LC_ALL, before.c_str());
  EXPECT_EQ(WordsOfRole(kRoleLink), "link");
}

TEST(Roles, StatesBecomeTheProductsBits) {
  const auto bit = [](AtspiStateType state) { return std::uint64_t{1} << static_cast<int>(state); };
  const auto seen =
      bit(ATSPI_STATE_VISIBLE) | bit(ATSPI_STATE_SHOWING) | bit(ATSPI_STATE_SENSITIVE);
  EXPECT_EQ(StateOfBus(seen, false), 0U);
  EXPECT_EQ(StateOfBus(seen | bit(ATSPI_STATE_CHECKED), false), 0x10U);
  EXPECT_EQ(StateOfBus(seen | bit(ATSPI_STATE_EXPANDABLE), false), 0x400U);
  EXPECT_EQ(StateOfBus(seen | bit(ATSPI_STATE_READ_ONLY), false), 0x40U);
  EXPECT_EQ(StateOfBus(seen, true), 0x20000000U);
  EXPECT_NE(StateOfBus(0, false) & kStateInvisible, 0U);
}

}  // namespace
}  // namespace corvane::desktop
