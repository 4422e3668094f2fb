#include "platform/linux/engine_options_dialog.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "platform/linux/gtk/text.h"
#include "web/address/OwnAddress.h"

namespace corvane::desktop {
namespace {

using Kind = DialogField::Kind;

enum Field : std::size_t {
  kStartPage,
  kSearchService,
  kZoom,
  kFontSize,
  kImages,
  kScripts,
  kFirstOwnOption
};
enum Button : int { kOk, kClearHistory, kClearCookies, kClearCache, kPermissions, kFirstPage };

constexpr const char* kNoLeastSize = "as the page says";

std::string Percent(int zoom) { return std::to_string(zoom) + " percent"; }

std::string Pixels(int size) { return size == 0 ? kNoLeastSize : std::to_string(size) + " pixels"; }

int WholePercent(double zoom) { return static_cast<int>(zoom * 100 + 0.5); }

// The usual values, and the present one in its place among them.
template <class Words>
std::vector<std::string> With(std::set<int> values, int present, Words words) {
  values.insert(present);
  std::vector<std::string> texts;
  for (const int value : values) texts.push_back(words(value));
  return texts;
}

std::vector<DialogField> FieldsOf(const std::vector<OwnOption>& options) {
  std::vector<DialogField> fields;
  for (const OwnOption& option : options) {
    const Kind kind = option.choices.empty() ? Kind::kCheckBox : Kind::kChoice;
    fields.push_back({kind, option.label, option.value, option.choices});
  }
  return fields;
}

std::string Flag(bool on) { return on ? "True" : "False"; }

}  // namespace

EngineOptionsDialog::EngineOptionsDialog(SpokenDialogs& dialogs, Engine engine)
    : dialogs_(dialogs), engine_(std::move(engine)) {}

void EngineOptionsDialog::OfferOptions(OwnOptions options) {
  if (options.page.empty()) {
    own_ = std::move(options);
  } else {
    pages_.push_back(std::move(options));
  }
}

void EngineOptionsDialog::Show() {
  if (std::exchange(shown_, true)) return;
  Ask(Question(engine_.choices()));
}

void EngineOptionsDialog::Ask(DialogQuestion question) {
  dialogs_.Ask(std::move(question), [this](const DialogAnswer& answer) { Answered(answer); });
}

DialogQuestion EngineOptionsDialog::Question(const EngineChoices& choices) {
  const EnginePreferences& present = choices.preferences;
  const int zoom = WholePercent(present.zoom);
  const int size = present.minimum_font_size;
  DialogQuestion question = {
      .title = "Web options",
      .fields = {{Kind::kText, "Start &page", choices.start_page},
                 {Kind::kText, "&Search service, %s for the words", choices.search_service},
                 {Kind::kChoice, "Page &zoom", Percent(zoom),
                  With({50, 75, 90, 100, 110, 125, 150, 175, 200, 250, 300}, zoom, Percent)},
                 {Kind::kChoice, "Least &font size", Pixels(size),
                  With({0, 10, 12, 14, 16, 18, 20, 24, 28, 32, 40, 48}, size, Pixels)},
                 {Kind::kCheckBox, "Show &images", Flag(present.images)},
                 {Kind::kCheckBox, "Run sc&ripts of pages", Flag(present.scripts)}},
      .buttons = {"OK", "Clear &history", "Clear &cookies", "Clear c&ache", "Sites' per&missions"},
      .check = [this](const DialogAnswer& answer) { return Check(answer); }};
  for (const OwnOptions& page : pages_) question.buttons.push_back(page.page);
  question.buttons.emplace_back("Cancel");
  AddOwnOptions(question);
  return question;
}

void EngineOptionsDialog::AddOwnOptions(DialogQuestion& question) const {
  if (!own_.list) return;
  for (DialogField& field : FieldsOf(own_.list())) question.fields.push_back(std::move(field));
}

void EngineOptionsDialog::ApplyOwnOptions(const DialogAnswer& answer) const {
  if (own_.apply) own_.apply({answer.values.begin() + kFirstOwnOption, answer.values.end()});
}

std::string EngineOptionsDialog::Check(const DialogAnswer& answer) const {
  switch (answer.button) {
    case kClearHistory:
      engine_.clear_history();
      return "The history is cleared";
    case kClearCookies:
      engine_.clear_cookies();
      return "The cookies are cleared";
    case kClearCache:
      engine_.clear_cache();
      return "The cache is cleared";
    case kOk:
      return SearchServiceProblem(std::string(text::trimmed(answer.values.at(kSearchService))));
    default:
      return "";
  }
}

void EngineOptionsDialog::Answered(const DialogAnswer& answer) {
  if (answer.button == kPermissions) return ShowPermissions(answer);
  const auto page = static_cast<std::size_t>(std::max(answer.button - kFirstPage, 0));
  if (answer.button >= kFirstPage && page < pages_.size()) return ShowPage(pages_[page], answer);
  shown_ = false;
  if (answer.button == kOk) Apply(answer);
}

// The user comes back to what was set so far.
void EngineOptionsDialog::ShowPermissions(const DialogAnswer& answer) {
  engine_.show_permissions([this, values = answer.values] { ComeBack(values); });
}

void EngineOptionsDialog::ComeBack(const std::vector<std::string>& values) {
  DialogQuestion question = Question(engine_.choices());
  for (std::size_t i = 0; i < question.fields.size(); ++i) question.fields[i].value = values.at(i);
  Ask(std::move(question));
}

void EngineOptionsDialog::ShowPage(const OwnOptions& page, const DialogAnswer& answer) {
  DialogQuestion question = {.title = WithoutMnemonic(page.page), .fields = FieldsOf(page.list())};
  if (page.try_out) {
    question.changed = [&page](const DialogAnswer& now, std::size_t field) -> DialogChange {
      OwnChange change = page.try_out(now.values, field);
      return {FieldsOf(change.options), change.language, change.example};
    };
  }
  dialogs_.Ask(std::move(question),
               [this, &page, before = answer.values](const DialogAnswer& chosen) {
                 if (chosen.button == kOk) {
                   page.apply(chosen.values);
                 } else if (page.take_back) {
                   page.take_back();
                 }
                 ComeBack(before);
               });
}

void EngineOptionsDialog::Apply(const DialogAnswer& answer) const {
  EngineChoices choices = engine_.choices();
  choices.start_page = text::trimmed(answer.values.at(kStartPage));
  if (choices.start_page.empty()) choices.start_page = kHomePage;
  choices.search_service = text::trimmed(answer.values.at(kSearchService));
  choices.preferences.zoom = number::leading(answer.values.at(kZoom)) / 100;
  // "as the page says" begins with no number and so means none.
  choices.preferences.minimum_font_size =
      static_cast<int>(number::leading(answer.values.at(kFontSize)));
  choices.preferences.images = answer.Checked(kImages);
  choices.preferences.scripts = answer.Checked(kScripts);
  engine_.apply(choices);
  ApplyOwnOptions(answer);
}

}  // namespace corvane::desktop
