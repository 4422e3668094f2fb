#include "speech/KeyName.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "platform/control.h"

namespace corvane {
namespace {

struct Named {
  int code;
  const char* name;
};

// "Print Screen" belongs to the print key, not to the snapshot key beside it.
constexpr auto kNames = std::to_array<Named>({
    {9, "Tab"},        {13, "Enter"},     {16, "Shift"},        {17, "Control"}, {18, "Alt"},
    {19, "Pause"},     {20, "Caps Lock"}, {27, "Escape"},       {32, "Space"},   {33, "Page Up"},
    {34, "Page Down"}, {35, "End"},       {36, "Home"},         {37, "Left"},    {38, "Up"},
    {39, "Right"},     {40, "Down"},      {42, "Print Screen"}, {45, "Insert"},  {46, "Delete"},
    {91, "Window"},    {144, "Num Lock"}, {145, "Scroll Lock"},
});
constexpr int kLastF = 123;  // F12

}  // namespace

std::string NamedKey(int key_code) {
  if (key_code >= kKeyF1 && key_code <= kLastF) {
    return "F" + std::to_string(key_code - kKeyF1 + 1);
  }
  const auto* named = std::find_if(kNames.begin(), kNames.end(),
                                   [key_code](const Named& each) { return each.code == key_code; });
  return named == kNames.end() ? "" : named->name;
}

std::string KeyName(int key_code) {
  const std::string name = NamedKey(key_code);
  return name.empty() ? text::character(key_code) : name;
}

bool WritesCharacter(int key_code) {
  const auto between = [key_code](int first, int last) {
    return key_code >= first && key_code <= last;
  };
  // The space bar, digits and letters, the keypad, punctuation by layout.
  return key_code == 32 || between('0', '9') || between('A', 'Z') || between(96, 111) ||
         between(186, 226);
}

}  // namespace corvane
