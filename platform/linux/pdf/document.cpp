#include "platform/linux/pdf/document.h"

#include <Catalog.h>
#include <Error.h>
#include <ErrorCodes.h>
#include <GlobalParams.h>
#include <PDFDoc.h>
#include <Stream.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>

#include "platform/linux/pdf/html.h"
#include "platform/linux/pdf/layout.h"
#include "platform/linux/pdf/node.h"
#include "platform/linux/pdf/outline.h"
#include "platform/linux/pdf/page_words.h"
#include "platform/linux/pdf/places.h"
#include "platform/linux/pdf/tags.h"
#include "platform/linux/pdf/word_text.h"

namespace corvane::pdf {
namespace {

std::string TitleOf(PDFDoc& document) {
  const Object info = document.getDocInfo();
  if (!info.isDict()) return {};
  const Object title = info.dictLookup("Title");
  return title.isString() ? TextOf(title.getString()->toStr()) : "";
}

std::string LanguageOf(PDFDoc& document) {
  const Object catalog = document.getXRef()->getCatalog();
  if (!catalog.isDict()) return {};
  const Object language = catalog.dictLookup("Lang");
  return language.isString() ? TextOf(language.getString()->toStr()) : "";
}

/// What is printed on the page instead of its number; empty when that is the same.
std::string LabelOf(PDFDoc& document, int number) {
  GooString label;
  if (!document.getCatalog()->indexToLabel(number - 1, &label)) return {};
  const std::string text = TextOf(label.toStr());
  return text == std::to_string(number) ? "" : text;
}

std::vector<Page> ReadPages(PDFDoc& document, const std::string& base, const Limits& limits) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::duration<double>(limits.most_seconds);
  std::vector<Page> pages;
  std::size_t words = 0;
  const int count = document.getNumPages();
  for (int number = 1; number <= count; ++number) {
    if (words > limits.most_words || Clock::now() > end) break;
    pages.push_back(ReadPage(document, number, base));
    words += pages.back().words.size() + pages.back().links.size();
  }
  return pages;
}

std::vector<Node> NodesOf(PDFDoc& document, const std::vector<Page>& pages, Places& places) {
  if (auto tagged = TaggedNodes(document, pages, places)) return std::move(*tagged);
  std::vector<Node> nodes;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    for (Node& node : Paragraphs(pages[i], number, places, [](const Word&) { return true; })) {
      nodes.push_back(std::move(node));
    }
  }
  return nodes;
}

/// The first heading, or else the first words.
std::string TitleFrom(const std::vector<Node>& nodes) {
  constexpr std::size_t kLongest = 100;
  for (const Node& node : nodes) {
    if (node.kind != Node::Kind::Heading && node.kind != Node::Kind::Paragraph) continue;
    std::string words = WordsOf(node);
    if (words.size() > kLongest) {
      const auto blank = words.rfind(' ', kLongest);
      words = blank == std::string::npos ? "" : words.substr(0, blank) + " ...";
    }
    if (!words.empty()) return words;
  }
  return {};
}

}  // namespace

void Prepare() {
  globalParams = std::make_unique<GlobalParams>();
  globalParams->setErrQuiet(true);
  setErrorCallback([](ErrorCategory, Goffset, const char*) {});
}

Outcome Convert(std::string_view data, const Source& source, const Limits& limits,
                std::string& page) {
  std::optional<GooString> given;
  if (!source.password.empty()) given = GooString(source.password);
  auto* stream = new MemStream(data.data(), 0, static_cast<Goffset>(data.size()), Object(objNull));
  PDFDoc document(stream, given, given);  // owns the stream
  if (!document.isOk()) {
    return document.getErrorCode() == errEncrypted ? Outcome::Locked : Outcome::Broken;
  }
  Written written;
  written.pages = document.getNumPages();
  if (written.pages < 1) return Outcome::Broken;
  const std::vector<Page> pages = ReadPages(document, source.address, limits);
  written.read = static_cast<int>(pages.size());
  for (int number = 1; number <= written.read; ++number) {
    written.labels.push_back(LabelOf(document, number));
    written.pictures.push_back(pages[static_cast<std::size_t>(number) - 1].has_picture);
  }
  written.language = LanguageOf(document);
  Places places;
  written.nodes = NodesOf(document, pages, places);
  AddHeadings(document, written.read, written.nodes);
  places.Mark(written.nodes);
  written.title = TitleOf(document);
  if (written.title.empty()) written.title = TitleFrom(written.nodes);
  page = Html(written, limits.longest);
  return Outcome::Done;
}

}  // namespace corvane::pdf
