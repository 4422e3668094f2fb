#include "web/PageClosing.h"

#include <utility>

namespace corvane {
namespace {

constexpr double kPatience = 2;  // seconds for a page that is asked whether it may close

}  // namespace

bool PageClosing::May() {
  if (!touched_) return true;
  if (std::exchange(asked_, true)) return true;
  asking_ = true;
  closing_ = later_(kPatience, [this] {
    if (asking_ && !host_.asks()) host_.close();
  });
  host_.ask();
  return false;
}

bool PageClosing::Stay() { return std::exchange(asking_, false); }

void PageClosing::Agreed(bool opened_by_page) {
  if (opened_by_page || asking_) closing_ = later_(0, [this] { host_.close(); });
}

}  // namespace corvane
