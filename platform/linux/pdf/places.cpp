#include "platform/linux/pdf/places.h"

#include <cmath>

namespace corvane::pdf {
namespace {

constexpr double kSlack = 4;  // points: authors aim a little above or below the line

bool IsBlock(const Node& node) {
  switch (node.kind) {
    case Node::Kind::Paragraph:
    case Node::Kind::Heading:
    case Node::Kind::Item:
    case Node::Kind::Cell:
    case Node::Kind::HeaderCell:
    case Node::Kind::Caption:
    case Node::Kind::Picture:
    case Node::Kind::Note:
      return true;
    default:
      return false;
  }
}

}  // namespace

std::string NameOfPage(int page) { return "page=" + std::to_string(page); }

std::string Places::AddressOf(const Target& target) {
  if (!target.IsPlace()) return target.address;
  std::string page = "#" + NameOfPage(target.page);
  const int top = static_cast<int>(std::lround(std::min(target.top, 1e6)));
  if (top <= 0) return page;
  const int number = static_cast<int>(numbers_.size()) + 1;
  const auto at = numbers_.try_emplace({target.page, top}, number).first;
  return page + "," + std::to_string(at->second);
}

void Places::Mark(std::vector<Node>& nodes) const {
  std::map<int, std::vector<Node*>> blocks;
  for (Node& each : nodes) {
    ForEach(each, [&](Node& node) {
      if (IsBlock(node) && node.page > 0) blocks[node.page].push_back(&node);
    });
  }
  for (const auto& [place, number] : numbers_) {
    const auto of_page = blocks.find(place.first);
    if (of_page == blocks.end()) continue;
    Node* nearest = nullptr;
    for (Node* block : of_page->second) {
      if (block->bottom < place.second + kSlack) continue;
      if (nearest == nullptr || block->top < nearest->top) nearest = block;
    }
    if (nearest == nullptr) nearest = of_page->second.back();
    nearest->places.push_back(NameOfPage(place.first) + "," + std::to_string(number));
  }
}

}  // namespace corvane::pdf
