#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/engine.h"
#include "platform/later.h"

namespace corvane::fakes {

/// A view of an engine that does what the test says. What it is asked stands in `calls`;
/// questions to its page are answered later, by what `Answers` holds.
class FakeEngine : public Engine {
 public:
  explicit FakeEngine(Later later) : later_(std::move(later)) {}

  // --- what the test lets happen --------------------------------------------------

  /// A load begins; comes to show its page; has come to its end.
  void Begin(const std::string& where) {
    SetAddress(where);
    SetLoading(true);
    Stepped.Raise(Step::Started);
  }
  void Commit() { Stepped.Raise(Step::Committed); }
  void Commit(const std::string& where) {
    SetAddress(where);
    Commit();
  }
  void End() {
    SetLoading(false);
    Stepped.Raise(Step::Finished);
  }
  /// The whole way.
  void Bring(const std::string& where) {
    Begin(where);
    Commit();
    End();
  }
  /// The load that has begun fails before anything has come.
  void Fail(LoadFailure::Kind kind) {
    SetLoading(false);
    Failed.Raise({address, {kind, "said by the engine"}});
    Stepped.Raise(Step::Finished);
  }
  /// The page of a problem that was asked for comes.
  void BringProblem() { Bring(problem_address); }
  void SetAddress(const std::string& where) {
    address = where;
    AddressChanged.Raise();
  }
  void SetLoading(bool now) {
    if (std::exchange(loading, now) != now) LoadingChanged.Raise();
  }
  void Die(Engine::End end) {
    SetLoading(false);
    Gone.Raise(end);
  }
  LoadDecision Decide(const LoadWish& wish) {
    LoadDecision decision;
    LoadWanted.Raise(wish, decision);
    if (decision.then) decision.then();
    return decision;
  }
  LoadDecision Decide(const LoadAnswer& answer) {
    LoadDecision decision;
    AnswerCame.Raise(answer, decision);
    if (decision.then) decision.then();
    return decision;
  }
  bool MayOpenWindow(const LoadWish& wish) {
    bool granted = false;
    WindowWanted.Raise(wish, granted);
    return granted;
  }
  /// What was asked since the last call of this.
  std::vector<std::string> TakeCalls() { return std::exchange(calls, {}); }

  /// The record that a page of this text and address gives, with its name "d1".
  static std::string Record(const std::string& title, const std::string& text,
                            const std::string& more = "") {
    return R"({"records":[{"id":"d1","place":[],"origin":"o","top":"o","title":")" + title +
           R"(","body":")" + text + "\"" + more + "}]}";
  }

  bool hangs = false;  ///< the page answers nothing
  /// What the page answers; what is not here fails.
  std::map<std::string, std::string> answers{
      {"1", "1"},
      {"corvane.collect()", Record("Title", "Some thirty characters and more of text")}};
  std::vector<std::string> calls;
  std::vector<std::string> evaluated;
  std::string address;
  std::string title;
  bool loading = false;
  bool has_focus = false;
  bool in_front = true;
  bool has_back = false;
  bool has_forward = false;
  double zoom = 0;
  bool muted = false;
  std::string problem_page;     ///< shown last
  std::string problem_address;  ///< under which
  std::function<void(const std::string&)> told_how_it_went;

  // --- Engine -----------------------------------------------------------------------

  void Load(const std::string& where) override {
    calls.push_back("load " + where);
    SetLoading(true);
    SetAddress(where);
  }
  void LoadInstead(const std::string& html, const std::string& where) override {
    problem_page = html;
    problem_address = where;
    calls.push_back("show problem");
    SetLoading(true);
  }
  void Reload() override {
    calls.push_back("reload");
    SetLoading(true);
  }
  void StopLoading() override { calls.push_back("stop"); }
  bool CanGo(Direction direction) const override {
    return direction == Direction::Back ? has_back : has_forward;
  }
  void Go(Direction direction) override {
    calls.push_back(direction == Direction::Back ? "back" : "forward");
    SetLoading(true);
  }
  std::string Address() const override { return address; }
  std::string Title() const override { return title; }
  bool IsLoading() const override { return loading; }

  void Evaluate(const std::string& expression, Answer answer) override {
    evaluated.push_back(expression);
    if (hangs) return;
    const auto found = answers.find(expression);
    std::optional<std::string> text;
    if (found != answers.end()) text = found->second;
    coming_.push_back(later_(0, [answer = std::move(answer), text] { answer(text); }));
  }
  void Act(const std::string& expression, Answer answer) override {
    calls.push_back("act " + expression);
    Evaluate(expression, std::move(answer));
  }
  void Await(const std::string& expression, Answer answer) override {
    Evaluate(expression, std::move(answer));
  }

  void Search(const std::string& words) override { calls.push_back("search " + words); }
  void SearchOn(Direction direction) override {
    calls.push_back(direction == Direction::Forward ? "search on" : "search back");
  }

  void SetMuted(bool wanted) override { muted = wanted; }
  bool IsMuted() const override { return muted; }
  void SetZoom(double wanted) override { zoom = wanted; }
  FileRequest SaveRequest(const std::string& of) override {
    FileRequest request;
    request.kind = FileRequest::Kind::Save;
    request.name = of;
    return request;
  }
  void Save(const std::string& path, std::function<void(const std::string&)> done) override {
    calls.push_back("save " + path);
    told_how_it_went = std::move(done);
  }
  void Print(std::function<void(const std::string&)> done) override {
    calls.push_back("print");
    told_how_it_went = std::move(done);
  }
  void Download(const std::string& where) override { calls.push_back("download " + where); }
  void StopDocument() override {}

  void TryClose() override { calls.push_back("try to close"); }
  void EndProcess() override { calls.push_back("end process"); }

  void TakeFocus() override { has_focus = true; }
  bool HasFocus() const override { return has_focus; }
  bool IsInFront() const override { return in_front; }
  void* Asker() override { return this; }

 private:
  Later later_;
  std::deque<std::shared_ptr<void>> coming_;
};

}  // namespace corvane::fakes
