#include "explorer/LabelPieces.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kLongest = 125;   // characters of a piece
constexpr std::size_t kEarliest = 100;  // a blank before it is no place to break
constexpr std::size_t kLastShown = 12700;

// The label's characters by their positions, which count from 1.
class Characters {
 public:
  explicit Characters(const std::string& label) : label_(label) {
    for (std::size_t at = 0; at < label.size() && starts_.size() <= kLastShown + kLongest;
         at = text::offset_of(label, 1, at)) {
      starts_.push_back(at);
    }
    count_ = starts_.size();
    starts_.push_back(count_ > kLastShown ? starts_.back() : label.size());
  }

  std::size_t Count() const { return count_; }
  bool IsBlank(std::size_t position) const {
    return position <= count_ && label_[starts_[position - 1]] == ' ';
  }
  std::string Mid(std::size_t position, std::size_t count) const {
    const std::size_t end = std::min({position - 1 + count, count_, kLastShown});
    return label_.substr(starts_[position - 1], starts_[end] - starts_[position - 1]);
  }

 private:
  const std::string& label_;
  std::vector<std::size_t> starts_;  // byte offsets, that of the end included
  std::size_t count_ = 0;
};

// How many characters the piece after `position` has.
std::size_t BreakAfter(const Characters& label, std::size_t position) {
  for (std::size_t k = kLongest; k >= kEarliest; --k) {
    if (label.IsBlank(position + k)) return k;
  }
  return kLongest;
}

}  // namespace

std::vector<std::string> LabelPieces(const std::string& label) {
  const Characters characters(label);
  if (characters.Count() <= kLongest) return {label};
  std::size_t position = BreakAfter(characters, 0);
  std::vector<std::string> pieces = {characters.Mid(1, position)};
  while (position < characters.Count() && position < kLastShown) {
    const std::size_t length = BreakAfter(characters, position);
    pieces.push_back(characters.Mid(position, length));
    position += length;
  }
  return pieces;
}

}  // namespace corvane
