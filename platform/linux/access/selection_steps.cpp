#include "platform/linux/access/selection_steps.h"

#include <algorithm>
#include <cstdint>

#include "platform/accessible.h"

namespace corvane::desktop {
namespace {

constexpr int kMost = 10'000;  // children of one change

}  // namespace

bool ChangesSelection(int flags) {
  return (flags & (kSelectTakeSelection | kSelectExtendSelection | kSelectAddSelection |
                   kSelectRemoveSelection)) != 0;
}

SelectionSteps StepsFor(int flags, int child, const std::vector<int>& selected) {
  const bool extends = (flags & kSelectExtendSelection) != 0 && !selected.empty();
  const int anchor = extends ? selected.front() : child;
  // Wider than an index, which may be the largest that there is.
  const std::int64_t at = child;
  const std::int64_t from = std::max<std::int64_t>(std::min(anchor, child), at - kMost);
  const std::int64_t to = std::min<std::int64_t>(std::max(anchor, child), at + kMost);
  SelectionSteps steps;
  if ((flags & kSelectRemoveSelection) != 0) {
    std::copy_if(selected.begin(), selected.end(), std::back_inserter(steps.select),
                 [&](int each) { return each < from || each > to; });
    steps.clear = steps.select.size() != selected.size();
    if (!steps.clear) steps.select.clear();
    return steps;
  }
  steps.clear = (flags & kSelectTakeSelection) != 0;
  for (std::int64_t each = from; each <= to; ++each) {
    const bool already = std::binary_search(selected.begin(), selected.end(), each);
    if (steps.clear || !already) steps.select.push_back(static_cast<int>(each));
  }
  return steps;
}

}  // namespace corvane::desktop
