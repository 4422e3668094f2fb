#include "platform/linux/pdf/html.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "platform/linux/pdf/places.h"

namespace corvane::pdf {
namespace {

using Kind = Node::Kind;

void Escape(std::string_view text, std::string& out) {
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        if (static_cast<unsigned char>(c) >= ' ' || c == '\n') out += c;
    }
  }
}

bool IsLanguage(const std::string& language) {
  return !language.empty() && language.size() <= 35 &&
         std::all_of(language.begin(), language.end(),
                     [](unsigned char c) { return std::isalnum(c) != 0 || c == '-' || c == '_'; });
}

/// As pages name languages: "en-US" where documents may say "en_US".
std::string Language(std::string language) {
  std::replace(language.begin(), language.end(), '_', '-');
  return language;
}

bool IsInline(const Node& node) {
  return node.kind == Kind::Text || node.kind == Kind::Break || node.kind == Kind::Label ||
         node.kind == Kind::Picture;
}

bool IsSign(const std::string& label) {
  return std::none_of(label.begin(), label.end(),
                      [](unsigned char c) { return std::isalnum(c) != 0; });
}

class Writer {
 public:
  explicit Writer(const Written& written) : written_(written) {}

  std::string Write(std::size_t longest) {
    Head();
    for (const Node& node : written_.nodes) {
      const std::size_t before = out_.size();
      const bool was_open = is_open_;
      const std::size_t page_starts = page_starts_;
      GoToPage(node.page);
      Put(node, Kind::Group);
      if (out_.size() <= longest) continue;
      // Cut off in front of what has been too much.
      out_.resize(before);
      is_open_ = was_open;
      page_starts_ = page_starts;
      EndPage();
      Remark("The document goes on, but the rest is too long to be shown.");
      return Finish();
    }
    if (!spanned_.contains(written_.read)) GoToPage(written_.read);
    EndPage();
    if (written_.read < written_.pages) {
      Remark("The document has " + std::to_string(written_.pages) + " pages, of which only " +
             std::to_string(written_.read) + " could be read.");
    }
    return Finish();
  }

 private:
  void Head() {
    out_ += "<!DOCTYPE html>\n<html";
    Attributes("lang", IsLanguage(written_.language) ? Language(written_.language) : "");
    out_ +=
        "><head><meta charset=\"utf-8\"><meta http-equiv=\"Content-Security-Policy\" "
        "content=\"default-src 'none'\"><title>";
    Escape(written_.title, out_);
    out_ += "</title></head>\n<body>\n";
  }
  std::string Finish() {
    out_ += "</body></html>\n";
    return std::move(out_);
  }
  void Remark(const std::string& sentence) {
    out_ += "<p>";
    Escape(sentence, out_);
    out_ += "</p>\n";
  }

  void Attributes(const char* name, const std::string& value) {
    if (value.empty()) return;
    out_ += ' ';
    out_ += name;
    out_ += "=\"";
    Escape(value, out_);
    out_ += '"';
  }

  // --- pages ---

  void GoToPage(int page) {
    if (page <= page_) return;
    while (page_ < std::min(page, written_.pages)) {
      EndPage();
      ++page_;
      // One that begins within what is written already is a page only if more follows.
      if (!spanned_.contains(page_) || page_ == page) BeginPage();
    }
  }
  void BeginPage() {
    out_ += "<section";
    if (!spanned_.contains(page_)) Attributes("id", NameOfPage(page_));
    const std::string number = std::to_string(page_);
    const std::string label = LabelOf(page_);
    Attributes("aria-label", "Page " + (label.empty() ? number : label));
    out_ += ">\n";
    page_starts_ = out_.size();
    is_open_ = true;
  }
  std::string LabelOf(int page) const {
    const auto at = static_cast<std::size_t>(page) - 1;
    return at < written_.labels.size() ? written_.labels[at] : "";
  }
  void EndPage() {
    if (!is_open_) return;
    if (out_.size() == page_starts_) {
      const auto at = static_cast<std::size_t>(page_) - 1;
      const std::string label = LabelOf(page_);
      const std::string name = "Page " + (label.empty() ? std::to_string(page_) : label);
      const bool picture = at < written_.pictures.size() && written_.pictures[at];
      Remark(name + (picture ? " is a picture without text." : " has no text."));
    }
    out_ += "</section>\n";
    is_open_ = false;
  }

  // --- nodes ---

  void Begin(const char* tag, const Node& node) {
    out_ += '<';
    out_ += tag;
    if (!node.places.empty()) Attributes("id", node.places.front());
    if (IsLanguage(node.language)) Attributes("lang", Language(node.language));
  }
  /// Where links lead that lead to nothing that is written.
  void PlacesAlone(const Node& node) { PlacesFrom(node, 0); }
  void MorePlaces(const Node& node) { PlacesFrom(node, 1); }
  void PlacesFrom(const Node& node, std::size_t first) {
    for (std::size_t i = first; i < node.places.size(); ++i) {
      out_ += "<a";
      Attributes("id", node.places[i]);
      out_ += "></a>";
    }
  }
  void End(const char* tag) {
    out_ += "</";
    out_ += tag;
    out_ += ">";
  }

  void Put(const Node& node, Kind around) {
    switch (node.kind) {
      case Kind::Text:
        return Text(node);
      case Kind::Break:
        return Break(node.page);
      case Kind::Picture:
        return Picture(node);
      case Kind::Paragraph:
        return Block(OnlyInline(node) ? "p" : "div", node);
      case Kind::Heading:
        return OnlyInline(node) ? Block(HeadingTag(node.level), node) : HeadingOfBlocks(node);
      case Kind::List:
        return List(node);
      case Kind::Item:
        return around == Kind::List ? Item(node) : Block("div", node);
      case Kind::Label:
        return Label(node);
      case Kind::Table:
        return Table(node);
      case Kind::Row:
        return Block(around == Kind::Table ? "tr" : "div", node);
      case Kind::Cell:
      case Kind::HeaderCell:
        return around == Kind::Row ? Cell(node) : Block("div", node);
      case Kind::Caption:
        return Block(around == Kind::Table ? "caption" : "p", node);
      case Kind::Quotation:
        return Block("blockquote", node);
      case Kind::Note:
        return Block("div", node);
      case Kind::Group:
      case Kind::Remark:
        return Below(node);
    }
  }
  static bool OnlyInline(const Node& node) {
    return std::all_of(node.nodes.begin(), node.nodes.end(),
                       [](const Node& each) { return IsInline(each); });
  }
  static const char* HeadingTag(int level) {
    static constexpr const char* kTags[] = {"h1", "h2", "h3", "h4", "h5", "h6"};
    return kTags[std::clamp(level, 1, 6) - 1];
  }
  void HeadingOfBlocks(const Node& node) {
    Node heading = node;
    heading.nodes.assign(1, {});
    heading.nodes.front().kind = Kind::Text;
    heading.nodes.front().text = WordsOf(node);
    Block(HeadingTag(node.level), heading);
  }
  void Block(const char* tag, const Node& node) {
    if (node.nodes.empty()) return PlacesAlone(node);
    Begin(tag, node);
    out_ += '>';
    MorePlaces(node);
    Below(node);
    End(tag);
    out_ += '\n';
  }
  void Below(const Node& node) {
    for (const Node& each : node.nodes) Put(each, node.kind);
  }
  void Text(const Node& node) {
    const bool leads = !node.address.empty();
    const bool speaks = IsLanguage(node.language);
    if (leads) {
      out_ += "<a";
      Attributes("href", node.address);
    } else if (speaks) {
      out_ += "<span";
    }
    if (speaks) Attributes("lang", Language(node.language));
    if (leads || speaks) out_ += '>';
    Escape(node.text, out_);
    if (leads || speaks) End(leads ? "a" : "span");
  }
  void Break(int page) {
    if (page <= page_ || !spanned_.insert(page).second) return;
    out_ += "<a";
    Attributes("id", NameOfPage(page));
    out_ += "></a>";
  }
  void Picture(const Node& node) {
    if (!node.text.empty()) {
      Begin("span", node);
      Attributes("role", "img");
      Attributes("aria-label", node.text);
      out_ += "></span>\n";
      MorePlaces(node);
      return;
    }
    // A picture that has text in it, and no words of its own, is read as text.
    if (OnlyInline(node)) return Block("p", node);
    Below(node);
  }

  void List(const Node& node) {
    for (const Node& each : node.nodes) {
      if (each.kind == Kind::Caption) Put(each, Kind::Group);
    }
    Begin("ul", node);
    out_ += ">\n";
    for (const Node& each : node.nodes) {
      if (each.kind != Kind::Caption) Put(each, Kind::List);
    }
    out_ += "</ul>\n";
  }
  void Item(const Node& node) {
    if (node.nodes.empty()) return;
    Begin("li", node);
    // The sign of most lists stands in the document itself.
    const bool signed_by_list =
        node.nodes.front().kind == Kind::Label && IsSign(WordsOf(node.nodes.front()));
    out_ += signed_by_list ? ">" : " type=\"none\">";
    MorePlaces(node);
    for (const Node& each : node.nodes) {
      if (&each != &node.nodes.front() || !signed_by_list) Put(each, Kind::Item);
    }
    out_ += "</li>\n";
  }
  void Label(const Node& node) {
    Below(node);
    out_ += ' ';
  }
  void Table(const Node& node) {
    Begin("table", node);
    out_ += ">\n";
    for (const Node& each : node.nodes) {
      if (each.kind == Kind::Caption) Put(each, Kind::Table);
    }
    for (const Node& each : node.nodes) {
      if (each.kind == Kind::Row) Put(each, Kind::Table);
    }
    out_ += "</table>\n";
    for (const Node& each : node.nodes) {
      if (each.kind != Kind::Caption && each.kind != Kind::Row) Put(each, Kind::Group);
    }
  }
  void Cell(const Node& node) {
    const char* tag = node.kind == Kind::HeaderCell ? "th" : "td";
    Begin(tag, node);
    Attributes("scope", node.scope);
    if (node.columns > 1) Attributes("colspan", std::to_string(node.columns));
    if (node.rows > 1) Attributes("rowspan", std::to_string(node.rows));
    out_ += '>';
    MorePlaces(node);
    Below(node);
    End(tag);
  }

  const Written& written_;
  std::string out_;
  int page_ = 0;
  bool is_open_ = false;
  std::size_t page_starts_ = 0;
  std::set<int> spanned_;  // pages that begin within something
};

}  // namespace

std::string Html(const Written& written, std::size_t longest) {
  return Writer(written).Write(longest);
}

}  // namespace corvane::pdf
