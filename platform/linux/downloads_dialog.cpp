#include "platform/linux/downloads_dialog.h"

#include <algorithm>
#include <utility>
#include "base/count.h"

namespace corvane::desktop {
namespace {

enum Button : int { kStop, kOpenFolder, kClose };

using Phase = DownloadState::Phase;

std::string Files(std::size_t count) { return Counted(count, "file is", "files are"); }

}  // namespace

DownloadsDialog::DownloadsDialog(SpokenDialogs& dialogs, Source source)
    : dialogs_(dialogs), source_(std::move(source)) {}

void DownloadsDialog::Show() {
  if (std::exchange(shown_, true)) return;
  files_ = source_.list();
  dialogs_.Ask(Question(), [this](const DialogAnswer& answer) { Answered(answer); });
}

DialogQuestion DownloadsDialog::Question() const {
  if (files_.empty()) {
    return {.title = "Downloads",
            .text = "No file has come from the network since the program was started.",
            .buttons = {"&Close"}};
  }
  const auto coming = static_cast<std::size_t>(std::count_if(
      files_.begin(), files_.end(), [](const auto& file) { return file.phase == Phase::Coming; }));
  std::vector<std::string> words;
  for (const auto& file : files_) words.push_back(file.words);
  return {.title = "Downloads",
          .text = Files(coming) + " coming, " + Files(files_.size() - coming) + " over.",
          .fields = {{DialogField::Kind::kChoice, "&File", words.front(), words, true}},
          .buttons = {"&Stop", "&Open folder", "&Close"},
          .default_button = kClose,
          .check = [this](const DialogAnswer& answer) { return Check(answer); }};
}

const DownloadState* DownloadsDialog::Chosen(const DialogAnswer& answer) const {
  const auto at = std::find_if(files_.begin(), files_.end(),
                               [&](const auto& file) { return file.words == answer.values.at(0); });
  return at == files_.end() ? nullptr : &*at;
}

// The file may have come to its end since the dialog appeared.
std::string DownloadsDialog::Check(const DialogAnswer& answer) const {
  const DownloadState* file = Chosen(answer);
  if (answer.button != kStop || file == nullptr) return "";
  const auto now = source_.list();
  const bool coming = std::any_of(now.begin(), now.end(), [&](const auto& each) {
    return each.number == file->number && each.phase == Phase::Coming;
  });
  return coming ? "" : "This file is not coming any more.";
}

void DownloadsDialog::Answered(const DialogAnswer& answer) {
  shown_ = false;
  const DownloadState* file = files_.empty() ? nullptr : Chosen(answer);
  if (file == nullptr) return;
  if (answer.button == kStop) source_.stop(file->number);
  if (answer.button == kOpenFolder) source_.open_folder(file->path);
}

}  // namespace corvane::desktop
