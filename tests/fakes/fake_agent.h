#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/error.h"
#include "platform/agent.h"

namespace corvane::fakes {

/// A speaking agent that records what it is asked; the test completes requests.
class FakeAgent : public Agent {
 public:
  /// Everything asked of any agent: "load FILE", "show", "speak TEXT", "stop".
  struct Journal {
    std::vector<std::string> calls;
    std::string server_error;  ///< what making an agent raises; empty to succeed
    std::string load_error;    ///< what Load raises; empty to succeed
    FakeAgent* agent = nullptr;
    int last_id = 0;

    /// Only what was spoken, with its tags.
    std::vector<std::string> Spoken() const {
      std::vector<std::string> texts;
      for (const auto& call : calls) {
        if (call.rfind("speak ", 0) == 0) texts.push_back(call.substr(6));
      }
      return texts;
    }
  };

  explicit FakeAgent(Journal& journal) : journal_(journal) { journal_.agent = this; }
  ~FakeAgent() override {
    if (journal_.agent == this) journal_.agent = nullptr;
  }

  AgentRequest Load(const std::string& name, const std::string& file) override {
    if (!journal_.load_error.empty()) {
      throw RunTimeError(kErrFileNotFound, "Agent", journal_.load_error);
    }
    journal_.calls.push_back("load " + name + " " + file);
    character_ = std::make_shared<FakeCharacter>(journal_);
    return {++journal_.last_id};
  }
  std::shared_ptr<AgentCharacter> Character(const std::string& name) override {
    if (!character_ || name != "Genie")
      throw RunTimeError(kErrObjectNotSet, "Agent", "No character");
    return character_;
  }

  /// Completes the request that was made last.
  void CompleteLast() { RequestComplete.Raise(AgentRequest{journal_.last_id}); }
  /// Load, show and welcome are done: the character is ready.
  void BecomeReady() {
    CompleteLast();
    CompleteLast();
    CompleteLast();
    journal_.calls.clear();
  }

 private:
  class FakeCharacter : public AgentCharacter {
   public:
    explicit FakeCharacter(Journal& journal) : journal_(journal) {}
    AgentRequest Show() override {
      journal_.calls.push_back("show");
      return {++journal_.last_id};
    }
    AgentRequest Speak(const std::string& text, bool urgent) override {
      journal_.calls.push_back("speak " + text + (urgent ? " (urgent)" : ""));
      return {++journal_.last_id};
    }
    void StopSpeak() override { journal_.calls.push_back("stop"); }

   private:
    Journal& journal_;
  };

  Journal& journal_;
  std::shared_ptr<FakeCharacter> character_;
};

}  // namespace corvane::fakes
