#include "speech/SpokenWords.h"

namespace corvane {

void SpokenWords::Add(const std::string& text) {
  if (text.empty()) return;
  messages_.push_front(text);
  if (messages_.size() > kMost) messages_.pop_back();
  back_ = 0;
}

const std::string* SpokenWords::Back() {
  if (back_ == messages_.size()) return nullptr;
  return &messages_[back_++];
}

const std::string* SpokenWords::Present() const {
  if (messages_.empty()) return nullptr;
  return &messages_[back_ == 0 ? 0 : back_ - 1];
}

}  // namespace corvane
