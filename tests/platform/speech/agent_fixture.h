#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/linux/speech/linux_agent.h"
#include "platform/linux/speech/recording_synthesizer.h"
#include "tests/platform/speech/loop_wait.h"
#include "tests/platform/speech/recording_audio.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {

/// An agent that speaks into records, and the requests that it completed.
class AgentFixture : public testing::Test {
 protected:
  AgentFixture() {
    speech_ = std::make_unique<SpeechOutput>(
        [this] { return std::make_unique<RecordingSynthesizer>(spoken_, 100); },
        [this](const Notice&) { return std::make_unique<RecordingAudio>(audio_); }, transcript_);
    agent_ = std::make_unique<LinuxAgent>(*speech_);
    connection_ =
        agent_->RequestComplete.Connect([this](const AgentRequest& request, RequestEnd end) {
          completed_.push_back(request.id);
          if (end == RequestEnd::Cut) cut_.push_back(request.id);
        });
  }

  bool WaitFor(const AgentRequest& request) {
    return RunLoopUntil([&] {
      return std::find(completed_.begin(), completed_.end(), request.id) != completed_.end();
    });
  }

  std::shared_ptr<AgentCharacter> LoadGenie() {
    WaitFor(agent_->Load("Genie", file_));
    return agent_->Character("Genie");
  }

  test::TemporaryFolder folder_;
  std::string file_ = std::string(CORVANE_DATA) + "/talker.acf";
  std::string transcript_ = folder_ / "spoken.jsonl";
  std::shared_ptr<SynthesisRecord> spoken_ = std::make_shared<SynthesisRecord>();
  std::shared_ptr<AudioRecord> audio_ = std::make_shared<AudioRecord>();
  std::vector<int> completed_;
  std::vector<int> cut_;  // among them
  std::unique_ptr<SpeechOutput> speech_;
  std::unique_ptr<LinuxAgent> agent_;
  Connection connection_;
};

}  // namespace corvane::desktop
