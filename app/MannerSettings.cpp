#include "app/MannerSettings.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace corvane {
namespace {

constexpr const char* kSection = "Settings";
constexpr const char* kWindow = "Corvane";
constexpr const char* kKey = "Manner";
constexpr const char* kLabel = "The program behaves";
constexpr const char* kEstablished = "in its established way";
constexpr const char* kToday = "as is usual today";

std::optional<std::size_t> IndexOf(const MannerChoice& choice, const std::string& value) {
  const auto found = std::find(choice.values.begin(), choice.values.end(), value);
  if (found == choice.values.end()) return std::nullopt;
  return static_cast<std::size_t>(found - choice.values.begin());
}

}  // namespace

std::vector<std::string> MannerSettings::Read() {
  std::vector<std::string> unusable;
  const std::string stored = store_.GetSetting(kWindow, kSection, kKey, "0");
  if (stored != "0" && stored != "1") unusable.emplace_back(kKey);
  Manner manner = stored == "1" ? TodaysManner() : EstablishedManner();
  for (const MannerChoice& choice : MannerChoices()) {
    const std::string value =
        store_.GetSetting(std::string(choice.application), kSection, std::string(choice.key), "");
    if (const auto index = IndexOf(choice, value)) {
      choice.set(manner, *index);
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
    OwnOption option{
        std::string(choice.label), {}, std::string(choice.values[choice.get(manner_)])};
    if (!choice.IsSwitch()) option.choices.assign(choice.values.begin(), choice.values.end());
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
    if (!changed(i)) continue;
    store_.SaveSetting(std::string(choice.application), kSection, std::string(choice.key),
                       values[i]);
  }
  Read();
}

}  // namespace corvane
