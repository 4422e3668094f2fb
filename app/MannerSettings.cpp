#include "app/MannerSettings.h"

#include <cstddef>

namespace corvane {
namespace {

constexpr const char* kSection = "Settings";
constexpr const char* kWindow = "Corvane";
constexpr const char* kKey = "Manner";
constexpr const char* kLabel = "The program behaves";
constexpr const char* kEstablished = "in its established way";
constexpr const char* kToday = "as is usual today";

bool IsSwitch(const MannerChoice& choice) { return choice.on == std::string("True"); }

}  // namespace

std::vector<std::string> MannerSettings::Read() {
  std::vector<std::string> unusable;
  const std::string stored = store_.GetSetting(kWindow, kSection, kKey, "0");
  if (stored != "0" && stored != "1") unusable.emplace_back(kKey);
  Manner manner = stored == "1" ? TodaysManner() : EstablishedManner();
  for (const MannerChoice& choice : MannerChoices()) {
    const std::string value = store_.GetSetting(choice.application, kSection, choice.key, "");
    if (value == choice.on || value == choice.off) {
      manner.*choice.member = value == choice.on;
    } else if (!value.empty()) {
      unusable.emplace_back(choice.key);
    }
  }
  manner_ = manner;
  return unusable;
}

OwnOptions MannerSettings::Options() {
  return {.list = [this] { return List(); },
          .apply = [this](const std::vector<std::string>& values) { Apply(values); }};
}

std::vector<OwnOption> MannerSettings::List() const {
  std::vector<OwnOption> options = {
      {kLabel, {kEstablished, kToday}, manner_.today ? kToday : kEstablished}};
  for (const MannerChoice& choice : MannerChoices()) {
    OwnOption option{choice.label, {}, manner_.*choice.member ? choice.on : choice.off};
    if (!IsSwitch(choice)) option.choices = {choice.off, choice.on};
    options.push_back(std::move(option));
  }
  return options;
}

// What was left as it was shown is no choice of the user's: it goes on following
// `Manner`.
void MannerSettings::Apply(const std::vector<std::string>& values) {
  const std::vector<OwnOption> shown = List();
  const auto changed = [&](std::size_t i) {
    return i < values.size() && values[i] != shown[i].value;
  };
  if (changed(0)) store_.SaveSetting(kWindow, kSection, kKey, values[0] == kToday ? "1" : "0");
  for (std::size_t i = 0; const MannerChoice& choice : MannerChoices()) {
    ++i;
    if (changed(i)) store_.SaveSetting(choice.application, kSection, choice.key, values[i]);
  }
  Read();
}

}  // namespace corvane
