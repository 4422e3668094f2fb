#include "speech/SpeechOrder.h"

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

constexpr int kProtectedMessages = 2;  // ordinary messages after an urgent one

}  // namespace

Voice& SpeechOrder::Speaking() const {
  if (character_) return *character_;
  return desktop_.GetVoice();
}

void SpeechOrder::CharacterGoes() {
  if (!character_) return;
  greeting_ = {};
  StopSpeak();
  character_.reset();
}

AgentRequest SpeechOrder::Speak(const std::string& text, SpeechStyle style, bool urgent,
                                Remembered remembered) {
  if (remembered == Remembered::Yes) words_.Add(text);
  const AgentRequest request = Speaking().Speak(text_.For(text, style), urgent);
  if (auto told = text_.TakeTold(); !told.empty()) told_[request.id] = std::move(told);
  return request;
}

AgentRequest SpeechOrder::Say(const std::string& text, SpeechStyle style, Urgency urgency,
                              Remembered remembered) {
  if (urgency == Urgency::Dialog) dialog_ = greeting_ = {};
  if (urgency == Urgency::Ordinary && protect_ > 0) {
    --protect_;
    NoLongerFollowed();
  } else {
    StopSpeak();
    protect_ = urgency == Urgency::Urgent ? kProtectedMessages : 0;
  }
  const AgentRequest request = Speak(text, style, urgency != Urgency::Ordinary, remembered);
  if (urgency == Urgency::Dialog) dialog_ = request;
  return request;
}

void SpeechOrder::SayThrough(const std::string& text, SpeechStyle style,
                             ISpeechNotify::Spoken spoken) {
  // Who goes on when he has been heard to the end lets what waits behind him be heard,
  // too.
  const bool goes_on = !spoken_ && !behind_.empty() && protect_ == 0;
  followed_ = goes_on ? Speak(text, style, false) : Say(text, style, Urgency::Ordinary);
  spoken_ = std::move(spoken);
}

void SpeechOrder::SayBehind(const std::string& text, SpeechStyle style,
                            ISpeechNotify::Spoken spoken) {
  behind_.push_back({Speak(text, style, false), std::move(spoken)});
}

AgentRequest SpeechOrder::Greet(const std::string& text) {
  words_.Add(text);
  return greeting_ = Speaking().Speak(text_.ForGreeting(text), false);
}

void SpeechOrder::StopSpeak() {
  std::vector<AgentRequest> kept;
  for (const AgentRequest& request : {dialog_, greeting_}) {
    if (request.id != 0) kept.push_back(request);
  }
  Speaking().StopSpeak(kept);
  NoLongerFollowed();
}

// Whoever follows a message would go on with the next one when it ends, and so cut
// off what has been said behind it.
void SpeechOrder::NoLongerFollowed() {
  if (const auto spoken = std::exchange(spoken_, nullptr)) spoken(false);
}

void SpeechOrder::Silence() {
  dialog_ = {};
  if (manner_.today) greeting_ = {};
  StopSpeak();
}

void SpeechOrder::Ended(const AgentRequest& request, RequestEnd end) {
  if (request.id == 0) return;
  if (request.id == dialog_.id) dialog_ = {};
  if (request.id == greeting_.id) greeting_ = {};
  if (const auto told = told_.extract(request.id); told && end == RequestEnd::Cut) {
    text_.TellAgain(told.mapped());
  }
  const auto behind = std::find_if(behind_.begin(), behind_.end(), [&](const Behind& each) {
    return each.request.id == request.id;
  });
  if (behind != behind_.end()) {
    const auto told = std::move(behind->spoken);
    behind_.erase(behind);
    return told(end == RequestEnd::Done);
  }
  if (request.id != followed_.id) return;
  if (const auto spoken = std::exchange(spoken_, nullptr)) spoken(end == RequestEnd::Done);
}

}  // namespace corvane
