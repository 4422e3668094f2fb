#include "web/page/FindInPage.h"

#include <utility>

#include "base/safe_name.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestShown = 100;

}  // namespace

FindInPage::FindInPage(Engine& engine, QuestionDesk& desk,
                       std::function<void(const std::string&)> say, std::function<void()> found)
    : engine_(engine),
      desk_(desk),
      say_(std::move(say)),
      found_(std::move(found)),
      searches_(engine.SearchDone.Connect([this](unsigned places) { Found(places); })) {}

void FindInPage::Ask() {
  desk_.Ask(QuestionDesk::Asker::User,
            {"Find in page", "", {{.label = "Find", .value = words_}}, {"&Find", "&Cancel"}},
            [this](const auto& reply) {
              if (!reply || reply->button != 0 || reply->values.at(0).empty()) return;
              words_ = reply->values.at(0);
              Start();
            });
}

// From the page's beginning: the engine starts at what is selected.
void FindInPage::Start() {
  engine_.Evaluate("getSelection().removeAllRanges()", [this, alive = life_.Look()](const auto&) {
    if (!alive) return;
    place_ = 0;
    going_ = Going::Start;
    engine_.Search(words_);
  });
}

void FindInPage::Step(bool forward) {
  if (words_.empty()) return Ask();
  if (place_ == 0) return Start();
  going_ = forward ? Going::Forward : Going::Back;
  engine_.SearchOn(forward ? Engine::Direction::Forward : Engine::Direction::Back);
}

// The engine counts the places only when it starts to look.
void FindInPage::Found(unsigned counted) {
  const Going going = std::exchange(going_, Going::Nowhere);
  if (going == Going::Nowhere) return;
  if (counted == 0) return Failed();
  if (going == Going::Start) count_ = counted;
  const unsigned count = count_;
  if (count == 0) return;
  std::string where;
  if (going == Going::Start) {
    place_ = 1;
  } else if (going == Going::Forward) {
    if (place_ >= count) where = "From the beginning. ";
    place_ = place_ >= count ? 1 : place_ + 1;
  } else {
    if (place_ <= 1 || place_ > count) where = "From the end. ";
    place_ = place_ <= 1 || place_ > count ? count : place_ - 1;
  }
  Tell(where + std::to_string(place_) + " of " + std::to_string(count));
}

void FindInPage::Failed() {
  place_ = 0;
  say_("Not found: " + Shorten(words_, kLongestShown));
}

// With the words around the place, which only the page knows.
void FindInPage::Tell(const std::string& where) {
  engine_.Evaluate("corvane.around()", [this, alive = life_.Look(), where](const auto& around) {
    if (!alive) return;
    say_(around && !around->empty() ? where + ": " + *around : where);
    if (alive) found_();
  });
}

}  // namespace corvane
