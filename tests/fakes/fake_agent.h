#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "platform/agent.h"

namespace corvane::fakes {

/// A speaking agent that records what it is asked; the test completes requests.
class FakeAgent : public Agent {
 public:
  /// Everything asked of any agent or voice: "load FILE", "show", "speak TEXT",
  /// "voice TEXT" for what no character speaks, "stop", "stop but 3".
  struct Journal {
    std::vector<std::string> calls;
    std::string server_error;  ///< what making an agent raises; empty to succeed
    std::string load_error;    ///< what Load raises; empty to succeed
    FakeAgent* agent = nullptr;
    int last_id = 0;
    std::vector<int> speaking = {};  ///< asked to be spoken and not over yet
    std::vector<int> cut = {};       ///< dropped, and not told of yet

    AgentRequest Speak(const std::string& call) {
      calls.push_back(call);
      speaking.push_back(++last_id);
      return {last_id};
    }
    void Stop(const std::vector<AgentRequest>& kept) {
      std::string call = "stop";
      std::vector<int> stay;
      for (const int id : std::exchange(speaking, {})) {
        const bool is_kept = std::any_of(kept.begin(), kept.end(),
                                         [id](const auto& request) { return request.id == id; });
        (is_kept ? stay : cut).push_back(id);
        if (is_kept) call += " but " + std::to_string(id);
      }
      speaking = stay;
      calls.push_back(call);
    }

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

  /// Completes the request that was made last, behind what was dropped before.
  void CompleteLast() {
    const int last = journal_.last_id;
    const bool dropped = std::count(journal_.cut.begin(), journal_.cut.end(), last) != 0;
    TellOfCuts();
    if (dropped) return;
    std::erase(journal_.speaking, last);
    RequestComplete.Raise(AgentRequest{last}, RequestEnd::Done);
  }
  /// Ends what is being spoken without having been asked to: another's words, or
  /// the device.
  void CutOff() {
    std::exchange(journal_.speaking, {}).swap(journal_.cut);
    TellOfCuts();
  }
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
      return journal_.Speak("speak " + text + (urgent ? " (urgent)" : ""));
    }
    void StopSpeak(const std::vector<AgentRequest>& kept) override { journal_.Stop(kept); }

   private:
    Journal& journal_;
  };

  void TellOfCuts() {
    for (const int id : std::exchange(journal_.cut, {})) {
      RequestComplete.Raise(AgentRequest{id}, RequestEnd::Cut);
    }
  }

  Journal& journal_;
  std::shared_ptr<FakeCharacter> character_;
};

/// The voice that speaks without a character, into the same journal.
class FakeVoice : public Voice {
 public:
  explicit FakeVoice(FakeAgent::Journal& journal) : journal_(journal) {}
  AgentRequest Speak(const std::string& text, bool urgent) override {
    return journal_.Speak("voice " + text + (urgent ? " (urgent)" : ""));
  }
  void StopSpeak(const std::vector<AgentRequest>& kept) override { journal_.Stop(kept); }

 private:
  FakeAgent::Journal& journal_;
};

}  // namespace corvane::fakes
