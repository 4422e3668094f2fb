#include "platform/linux/pdf/outline.h"

#include <Outline.h>
#include <PDFDoc.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>

#include "platform/linux/pdf/page_links.h"
#include "platform/linux/pdf/word_text.h"

namespace corvane::pdf {
namespace {

constexpr int kDeepest = 6;
constexpr std::size_t kMostEntries = 20000;
constexpr double kSlack = 4;             // points
constexpr std::size_t kMostPrefix = 12;  // letters of a number before the title's words
constexpr std::size_t kLongestTitle = 300;

struct Entry {
  std::string title;
  int level = 1;
  Target place;
};

void AddEntries(PDFDoc& document, const std::vector<OutlineItem*>* items, int level,
                std::vector<Entry>& entries) {
  if (items == nullptr || level > kDeepest) return;
  for (OutlineItem* item : *items) {
    if (entries.size() >= kMostEntries) return;
    const Unicode* letters = item->getTitle();
    const std::vector<char32_t> title(letters, letters + std::max(item->getTitleLength(), 0));
    Entry entry{TextOf(title.data(), static_cast<int>(title.size())), level,
                TargetOf(document, item->getAction(), {})};
    if (entry.place.IsPlace() && !entry.title.empty()) entries.push_back(std::move(entry));
    item->open();
    AddEntries(document, item->getKids(), level + 1, entries);
  }
}

/// Whether a paragraph with these words is the heading of that title: numbers before it
/// may stand in one of them only.
bool IsSame(const std::string& words, const std::string& title) {
  const std::string& shorter = words.size() < title.size() ? words : title;
  const std::string& longer = words.size() < title.size() ? title : words;
  return !shorter.empty() && longer.size() - shorter.size() <= kMostPrefix &&
         longer.ends_with(shorter);
}

class Headings {
 public:
  explicit Headings(std::vector<Node>& nodes) : nodes_(nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) by_page_[nodes[i].page].push_back(i);
  }

  void Take(const Entry& entry) {
    const std::string title = Essence(entry.title);
    const auto of_page = by_page_.find(entry.place.page);
    if (of_page != by_page_.end()) {
      std::size_t best = nodes_.size();
      double nearest = 0;
      for (const std::size_t at : of_page->second) {
        Node& node = nodes_[at];
        if (node.kind != Node::Kind::Paragraph) continue;
        const std::string words = WordsOf(node);
        if (words.size() > kLongestTitle || !IsSame(Essence(words), title)) continue;
        const double distance = std::abs(node.top - entry.place.top);
        if (best != nodes_.size() && distance >= nearest) continue;
        best = at;
        nearest = distance;
      }
      if (best != nodes_.size()) {
        nodes_[best].kind = Node::Kind::Heading;
        nodes_[best].level = entry.level;
        return;
      }
    }
    Node heading;
    heading.kind = Node::Kind::Heading;
    heading.level = entry.level;
    heading.page = entry.place.page;
    heading.top = entry.place.top;
    heading.bottom = entry.place.top;
    Node& text = heading.nodes.emplace_back();
    text.kind = Node::Kind::Text;
    text.text = entry.title;
    added_[Before(entry.place)].push_back(std::move(heading));
  }

  void Insert() {
    if (added_.empty()) return;
    std::vector<Node> all;
    for (std::size_t i = 0; i <= nodes_.size(); ++i) {
      for (Node& heading : added_[i]) all.push_back(std::move(heading));
      if (i < nodes_.size()) all.push_back(std::move(nodes_[i]));
    }
    nodes_ = std::move(all);
  }

 private:
  std::size_t Before(const Target& place) const {
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
      const Node& node = nodes_[i];
      if (node.page > place.page) return i;
      if (node.page == place.page && node.bottom >= place.top + kSlack) return i;
    }
    return nodes_.size();
  }

  std::vector<Node>& nodes_;
  std::map<int, std::vector<std::size_t>> by_page_;
  std::map<std::size_t, std::vector<Node>> added_;  // before the node with that number
};

}  // namespace

void AddHeadings(PDFDoc& document, int pages, std::vector<Node>& nodes) {
  bool any = false;
  for (const Node& each : nodes) {
    ForEach(each, [&](const Node& node) { any = any || node.kind == Node::Kind::Heading; });
  }
  Outline* outline = any ? nullptr : document.getOutline();
  if (outline == nullptr) return;
  std::vector<Entry> entries;
  AddEntries(document, outline->getItems(), 1, entries);
  Headings headings(nodes);
  for (const Entry& entry : entries) {
    if (entry.place.page <= pages) headings.Take(entry);
  }
  headings.Insert();
}

}  // namespace corvane::pdf
