#include "platform/linux/web/files/downloads.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "platform/linux/web/files/download_folder.h"
#include "web/library/FreePath.h"

namespace corvane::desktop {

Downloads::Downloads(std::shared_ptr<Questions> questions, std::string folder, Say say)
    : folder_(folder.empty() ? DownloadFolder() : std::move(folder)),
      say_(std::move(say)),
      desk_(std::move(questions), [this] {
        say_(asking_, "Too many downloads were wanted at once. The rest is refused.");
      }) {}

Downloads::~Downloads() { desk_.Reset(); }

Download::Host Downloads::HostFor(int number) {
  return {[this, number](DialogQuestion question, auto answer) {
            const auto from =
                std::find_if(running_.begin(), running_.end(),
                             [number](const auto& each) { return each->State().number == number; });
            asking_ = from == running_.end() ? nullptr : (*from)->View();
            if (asking_ != nullptr) question.asker = asking_;
            desk_.Ask(QuestionDesk::Asker::Page, std::move(question), std::move(answer));
          },
          [this](const std::string& name) { return FreePathFor(name); }, say_,
          [this, number] { Over(number); }};
}

void Downloads::Begin(WebKitDownload* download) {
  const int number = ++last_number_;
  running_.push_back(std::make_unique<Download>(number, download, HostFor(number)));
}

// A file that is coming is not there yet under its own name.
std::string Downloads::FreePathFor(const std::string& name) const {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  return FreePath(folder_, name, [this](const std::string& path) {
    return std::any_of(running_.begin(), running_.end(),
                       [&](const auto& each) { return each->State().path == path; });
  });
}

void Downloads::Over(int number) {
  running_.remove_if([&](const auto& each) {
    const DownloadState state = each->State();
    if (state.number != number) return false;
    if (!state.path.empty()) over_.push_front(state);
    return true;
  });
  if (over_.size() > kMostRemembered) over_.pop_back();
}

std::vector<DownloadState> Downloads::List() const {
  std::vector<DownloadState> all(over_.begin(), over_.end());
  for (const auto& each : running_) {
    const DownloadState state = each->State();
    if (state.phase == DownloadState::Phase::Coming) all.push_back(state);
  }
  std::sort(all.begin(), all.end(),
            [](const auto& one, const auto& other) { return one.number > other.number; });
  return all;
}

void Downloads::Stop(int number) {
  for (const auto& each : running_) {
    // The engine may tell of its end at once, and it then goes.
    if (each->State().number == number) return each->Stop();
  }
}

void Downloads::StopAll() {
  std::vector<int> numbers;
  for (const auto& each : running_) numbers.push_back(each->State().number);
  for (const int number : numbers) Stop(number);
}

}  // namespace corvane::desktop
