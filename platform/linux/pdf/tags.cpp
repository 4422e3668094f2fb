#include "platform/linux/pdf/tags.h"

#include <Catalog.h>
#include <PDFDoc.h>
#include <StructElement.h>
#include <StructTreeRoot.h>

#include <algorithm>
#include <map>
#include <utility>

#include "platform/linux/pdf/layout.h"
#include "platform/linux/pdf/text_maker.h"
#include "platform/linux/pdf/word_text.h"

namespace corvane::pdf {
namespace {

constexpr int kDeepest = 100;
constexpr int kMostSpan = 1000;  // rows or columns

Node::Kind KindOf(StructElement::Type type) {
  switch (type) {
    case StructElement::P:
      return Node::Kind::Paragraph;
    case StructElement::H:
    case StructElement::H1:
    case StructElement::H2:
    case StructElement::H3:
    case StructElement::H4:
    case StructElement::H5:
    case StructElement::H6:
      return Node::Kind::Heading;
    case StructElement::L:
    case StructElement::TOC:
      return Node::Kind::List;
    case StructElement::LI:
    case StructElement::TOCI:
      return Node::Kind::Item;
    case StructElement::Lbl:
      return Node::Kind::Label;
    case StructElement::Table:
      return Node::Kind::Table;
    case StructElement::TR:
      return Node::Kind::Row;
    case StructElement::TH:
      return Node::Kind::HeaderCell;
    case StructElement::TD:
      return Node::Kind::Cell;
    case StructElement::Caption:
      return Node::Kind::Caption;
    case StructElement::Figure:
    case StructElement::Formula:
      return Node::Kind::Picture;
    case StructElement::BlockQuote:
      return Node::Kind::Quotation;
    case StructElement::Note:
      return Node::Kind::Note;
    default:
      return Node::Kind::Group;
  }
}

int LevelOf(StructElement::Type type, int depth) {
  if (type >= StructElement::H1 && type <= StructElement::H6) {
    return static_cast<int>(type) - static_cast<int>(StructElement::H1) + 1;
  }
  return std::clamp(depth, 1, 6);
}

int SpanOf(const StructElement& element, Attribute::Type type) {
  const Attribute* span = element.findAttribute(type);
  if (span == nullptr || !span->getValue()->isInt()) return 1;
  return std::clamp(span->getValue()->getInt(), 1, kMostSpan);
}

std::string ScopeOf(const StructElement& element) {
  const Attribute* scope = element.findAttribute(Attribute::Scope);
  if (scope == nullptr) return {};
  if (scope->getValue()->isName("Row")) return "row";
  return scope->getValue()->isName("Column") ? "col" : "";
}

std::string Said(const GooString* text) { return text == nullptr ? "" : TextOf(text->toStr()); }

class TagReader {
 public:
  TagReader(PDFDoc& document, const std::vector<Page>& pages, Places& places)
      : document_(document), pages_(pages), places_(places), maker_(places) {
    for (std::size_t i = 0; i < pages.size(); ++i) {
      for (const Word& word : pages[i].words) {
        if (word.tag >= 0) words_[{static_cast<int>(i) + 1, word.tag}].push_back(&word);
      }
    }
    for (auto& [tag, words] : words_) {
      std::stable_sort(words.begin(), words.end(),
                       [](const Word* a, const Word* b) { return a->order < b->order; });
    }
  }

  std::vector<Node> Read(const StructTreeRoot& root) {
    Node all;
    for (unsigned i = 0; i < root.getNumChildren(); ++i) {
      Add(*root.getChild(static_cast<int>(i)), all, {0, 0, ""});
    }
    return std::move(all.nodes);
  }

  /// Whether the tags hold most of the words that are no ornament.
  bool HoldsMost() const {
    std::size_t held = 0;
    std::size_t all = 0;
    for (const Page& page : pages_) {
      for (const Word& word : page.words) {
        if (word.tag == kArtifact) continue;
        ++all;
        held += IsHeld(page, word) ? 1 : 0;
      }
    }
    return held > 0 && held * 2 >= all;
  }

  std::vector<Node> Rest(int number) {
    const Page& page = pages_[static_cast<std::size_t>(number) - 1];
    return Paragraphs(page, number, places_, [&](const Word& word) {
      return word.tag != kArtifact && !IsHeld(page, word);
    });
  }

 private:
  struct Place {
    int depth;
    int sections;          // that it lies in
    std::string language;  // of what is around it
  };

  bool IsHeld(const Page& page, const Word& word) const {
    const int number = static_cast<int>(&page - pages_.data()) + 1;
    return word.tag >= 0 && !words_.contains({number, word.tag});
  }

  int PageOf(const StructElement& element) const {
    Ref page = Ref::INVALID();
    if (!element.getPageRef(page)) return 0;
    return document_.findPage(page);
  }

  void AddWords(const StructElement& content, Node& into, const Place& place) {
    const int number = PageOf(content);
    const auto found = words_.find({number, content.getMCID()});
    if (found == words_.end()) return;
    const std::vector<const Word*> words = std::move(found->second);
    words_.erase(found);
    const Page& page = pages_[static_cast<std::size_t>(number) - 1];
    Node& node = HolderIn(into);
    if (node.page != 0 && number > std::max(last_page_, node.page)) {
      Node& border = node.nodes.emplace_back();
      border.kind = Node::Kind::Break;
      border.page = number;
    }
    last_page_ = std::max(last_page_, number);
    for (const Word* word : words) maker_.Add(page, number, *word, node, place.language);
  }

  /// Where the words go that lie in `node`: what stands by itself is a paragraph.
  Node& HolderIn(Node& node) {
    if (node.kind != Node::Kind::Group) return node;
    if (std::exchange(apart_, false)) node.nodes.emplace_back().kind = Node::Kind::Paragraph;
    return node.nodes.back();
  }
  void SetApart() {
    maker_.Reset();
    apart_ = true;
  }

  void Add(const StructElement& element, Node& into, Place place) {
    if (++place.depth > kDeepest) return;
    if (element.isContent()) {
      if (!element.isObjectRef()) AddWords(element, into, place);
      return;
    }
    const StructElement::Type type = element.getType();
    const Node::Kind kind = KindOf(type);
    if (type == StructElement::Sect || type == StructElement::Art) ++place.sections;
    const std::string language = Said(element.getLanguage());
    if (kind == Node::Kind::Group) {
      if (element.isBlock()) SetApart();
      place.language = language;
      for (unsigned i = 0; i < element.getNumChildren(); ++i) {
        Add(*element.getChild(static_cast<int>(i)), into, place);
      }
      return;
    }
    SetApart();
    Node node;
    node.kind = kind;
    if (language != place.language) node.language = language;
    place.language = "";
    node.level = kind == Node::Kind::Heading ? LevelOf(type, place.sections) : 0;
    if (kind == Node::Kind::HeaderCell || kind == Node::Kind::Cell) {
      node.columns = SpanOf(element, Attribute::ColSpan);
      node.rows = SpanOf(element, Attribute::RowSpan);
      node.scope = ScopeOf(element);
    }
    for (unsigned i = 0; i < element.getNumChildren(); ++i) {
      Add(*element.getChild(static_cast<int>(i)), node, place);
    }
    Finish(element, node);
    SetApart();
    into.nodes.push_back(std::move(node));
  }

  // Where a node begins that only holds others, and the words given in place of those
  // that are drawn.
  void Finish(const StructElement& element, Node& node) {
    if (node.page == 0) {
      for (const Node& each : node.nodes) {
        if (each.page == 0) continue;
        node.page = each.page;
        node.top = each.top;
        node.bottom = each.bottom;
        break;
      }
    }
    if (node.page == 0) node.page = PageOf(element);
    if (node.kind == Node::Kind::Picture) node.text = Said(element.getAltText());
    const std::string instead = Said(element.getActualText());
    if (instead.empty()) return;
    if (node.kind == Node::Kind::Picture) {
      node.text = instead;
      return;
    }
    node.nodes.clear();
    Node& text = node.nodes.emplace_back();
    text.kind = Node::Kind::Text;
    text.text = instead;
  }

  PDFDoc& document_;
  const std::vector<Page>& pages_;
  Places& places_;
  TextMaker maker_;
  std::map<std::pair<int, int>, std::vector<const Word*>> words_;  // not taken yet
  int last_page_ = 0;
  bool apart_ = true;  // what comes next has nothing to do with what came last
};

}  // namespace

std::optional<std::vector<Node>> TaggedNodes(PDFDoc& document, const std::vector<Page>& pages,
                                             Places& places) {
  const StructTreeRoot* root = document.getStructTreeRoot();
  if (root == nullptr) return std::nullopt;
  TagReader reader(document, pages, places);
  std::vector<Node> nodes = reader.Read(*root);
  if (!reader.HoldsMost()) return std::nullopt;
  std::vector<Node> all;
  auto next = std::make_move_iterator(nodes.begin());
  const auto end = std::make_move_iterator(nodes.end());
  for (int page = 1; page <= static_cast<int>(pages.size()); ++page) {
    // What begins on an earlier page, or nowhere, stays where its author has put it.
    while (next != end && next.base()->page <= page) all.push_back(*next++);
    for (Node& each : reader.Rest(page)) all.push_back(std::move(each));
  }
  while (next != end) all.push_back(*next++);
  return all;
}

}  // namespace corvane::pdf
