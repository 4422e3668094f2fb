#include "platform/linux/speech/linux_agent.h"

#include <utility>

#include "base/error.h"
#include "platform/linux/speech/character_file.h"
#include "platform/linux/speech/character_window.h"
#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/linux_voice.h"
#include "platform/linux/speech/missing_voices.h"

namespace corvane::desktop {

/// The one character. Whoever asked for it may keep it longer than the agent
/// lives; it then does nothing any more.
class LinuxAgent::SpeakingCharacter : public AgentCharacter,
                                      public std::enable_shared_from_this<SpeakingCharacter> {
 public:
  SpeakingCharacter(LinuxAgent& agent, CharacterFile file)
      : agent_(&agent), file_(std::move(file)) {}

  const std::string& Name() const { return file_.name; }

  /// The agent goes: silent and hidden from now on.
  void Retire() {
    if (agent_ != nullptr) agent_->speech_.Stop();
    agent_ = nullptr;
    window_.reset();
  }

  AgentRequest Show() override {
    if (agent_ == nullptr) return {};
    if (!window_) window_ = std::make_unique<CharacterWindow>(file_);
    window_->Show();
    return agent_->CompleteLater();
  }

  AgentRequest Speak(const std::string& text, bool urgent) override {
    if (agent_ == nullptr) return {};
    Utterance utterance = UtteranceOf(text, urgent);
    utterance.voice = file_.voice;
    utterance.voices = file_.languages;
    utterance.pitch_shift = file_.pitch_shift;
    utterance.speed_shift = file_.speed_shift;
    const auto request = std::make_shared<AgentRequest>();
    const auto balloon = std::make_shared<std::string>(utterance.text);
    const std::weak_ptr<SpeakingCharacter> self = weak_from_this();
    request->id = agent_->speech_.Speak(
        std::move(utterance),
        [self, request, balloon] {
          if (const auto character = self.lock()) character->Begun(*request, *balloon);
        },
        [self, request](SpeechEnd end) {
          if (const auto character = self.lock()) character->Ended(*request, end);
        });
    return *request;
  }

  void StopSpeak(const std::vector<AgentRequest>& kept) override {
    if (agent_ != nullptr) agent_->speech_.Stop(NumbersOf(kept));
  }

 private:
  void Begun(AgentRequest request, const std::string& text) {
    TellMissingVoices();
    speaking_ = request.id;
    if (window_) window_->ShowSpeaking(text);
  }

  void Ended(AgentRequest request, SpeechEnd end) {
    if (window_ && speaking_ == request.id) window_->ShowIdle();
    if (agent_ == nullptr) return;
    agent_->RequestComplete.Raise(request,
                                  end == SpeechEnd::kSpoken ? RequestEnd::Done : RequestEnd::Cut);
  }

  // Once the library runs it is known where its voices are.
  void TellMissingVoices() {
    if (agent_ == nullptr || std::exchange(voices_looked_for_, true)) return;
    for (const std::string& sentence : MissingVoices(file_, EspeakDataFolder())) {
      agent_->speech_.Notified.Raise(sentence);
    }
  }

  LinuxAgent* agent_;
  CharacterFile file_;
  std::unique_ptr<CharacterWindow> window_;
  bool voices_looked_for_ = false;
  int speaking_ = 0;  ///< the request whose text stands in the balloon
};

LinuxAgent::LinuxAgent(SpeechOutput& speech) : speech_(speech) {}

LinuxAgent::~LinuxAgent() {
  if (character_) character_->Retire();
}

AgentRequest LinuxAgent::Load(const std::string& name, const std::string& file) {
  CharacterFile contents = ReadCharacterFile(name, file);
  if (character_) character_->Retire();
  character_ = std::make_shared<SpeakingCharacter>(*this, std::move(contents));
  return CompleteLater();
}

std::shared_ptr<AgentCharacter> LinuxAgent::Character(const std::string& name) {
  if (!character_ || character_->Name() != name) {
    throw RunTimeError(kErrObjectNotSet, "Agent", "The character \"" + name + "\" is not loaded.");
  }
  return character_;
}

AgentRequest LinuxAgent::CompleteLater() {
  const AgentRequest request{speech_.NextRequest()};
  loop_.Post([this, request] { RequestComplete.Raise(request, RequestEnd::Done); });
  return request;
}

}  // namespace corvane::desktop
