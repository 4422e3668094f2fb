#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/fakes/fake_engine.h"
#include "tests/fakes/fake_programs.h"
#include "tests/fakes/fake_questions.h"
#include "tests/fakes/fake_time.h"
#include "web/Browser.h"

namespace corvane::tests {

/// A browser over an engine that does what the test says, with a log of what it reports.
class BrowserTest : public testing::Test {
 protected:
  BrowserTest() {
    options_.programs = programs_;
    options_.problem_page = "{{title}}|{{sentence}}";
    options_.page_visited = [this](const auto& address, const auto&) {
      visited_.push_back(address);
    };
    Make(/*opened_by_page=*/false);
    browser_->TellTo(events_);
    Listen();
  }
  ~BrowserTest() override { browser_.reset(); }

  void Make(bool opened_by_page) {
    browser_.reset();
    const Schedule schedule{time_.AsLater(),
                            [this](Weight, const std::function<std::function<void()>()>& work) {
                              aside_.push_back(time_.AsLater()(0, work()));
                            },
                            [this] { return time_.Now(); }};
    browser_ = std::make_unique<Browser>(
        engine_,
        Browser::Shared{options_, preferences_, schedule, {questions_, nullptr, programs_, book_}},
        nullptr, opened_by_page);
  }

  /// Goes to a page, which comes and is read.
  void Visit(const std::string& address) {
    browser_->Navigate(address);
    engine_.Bring(address);
    Settle();
    ASSERT_FALSE(browser_->Busy());
    engine_.TakeCalls();
    log_.clear();
    said_.clear();
  }
  /// Lets come what is on its way.
  void Settle() { time_.Pass(0); }

  fakes::FakeTime time_;
  fakes::FakeEngine engine_{time_.AsLater()};
  std::shared_ptr<fakes::FakePrograms> programs_ = std::make_shared<fakes::FakePrograms>();
  std::shared_ptr<fakes::FakeQuestions> questions_ = std::make_shared<fakes::FakeQuestions>();
  PermissionBook book_{"", nullptr};
  BrowserOptions options_;
  std::vector<int> zooms_;  // stored
  Preferences preferences_{[this](int percent) { zooms_.push_back(percent); }};
  WebEvents events_;
  std::vector<std::string> log_;   // "begin", "end", "close", "window"
  std::vector<std::string> said_;  // by the program
  std::string status_;             // shown last
  std::vector<std::string> visited_;
  std::vector<FileRequest> files_;
  std::unique_ptr<Browser> browser_;

 private:
  void Listen() {
    const auto note = [this](const char* what) { return [this, what] { log_.push_back(what); }; };
    connections_ += events_.DownloadBegin.Connect(note("begin"));
    connections_ += events_.DownloadComplete.Connect(note("end"));
    connections_ += events_.WindowClosing.Connect(note("close"));
    connections_ += events_.NewWindow.Connect(note("window"));
    connections_ += events_.StatusTextChange.Connect([this](const auto& text) { status_ = text; });
    connections_ +=
        events_.Announcement.Connect([this](const auto& text) { said_.push_back(text); });
    connections_ +=
        events_.FilesWanted.Connect([this](const auto& each) { files_.push_back(each); });
  }

  std::vector<std::shared_ptr<void>> aside_;
  Connections connections_;
};

}  // namespace corvane::tests
