#include "platform/linux/pdf/page_links.h"

#include <Annot.h>
#include <Catalog.h>
#include <Link.h>
#include <PDFDoc.h>
#include <Page.h>
#include <glib.h>

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/linux/glib/owner.h"
#include "platform/linux/pdf/word_text.h"

namespace corvane::pdf {
namespace {

constexpr std::size_t kMostLinks = 5000;  // of a page
constexpr std::size_t kLongestAddress = 4000;
constexpr double kPointsPerInch = 72;
constexpr const char* kBlanks = " \t\r\n";

using Transform = std::array<double, 6>;

Transform TransformOf(::Page& page) {
  Transform transform{};
  page.getDefaultCTM(transform.data(), kPointsPerInch, kPointsPerInch, 0, false, true);
  return transform;
}

Box BoxOf(const Transform& way, double x1, double y1, double x2, double y2) {
  const auto x = [&](double a, double b) { return way[0] * a + way[2] * b + way[4]; };
  const auto y = [&](double a, double b) { return way[1] * a + way[3] * b + way[5]; };
  Box box{x(x1, y1), y(x1, y1), x(x1, y1), y(x1, y1)};
  box.Add({x(x2, y2), y(x2, y2), x(x2, y2), y(x2, y2)});
  return box;
}

/// Only what a page of the network may lead to as well.
bool IsAllowed(const char* scheme) {
  for (const char* known : {"http", "https", "ftp", "mailto", "tel"}) {
    if (g_ascii_strcasecmp(scheme, known) == 0) return true;
  }
  return false;
}

/// The address whole; empty when there is none that leads anywhere.
std::string WholeAddress(std::string address, const std::string& base) {
  address.erase(0, address.find_first_not_of(kBlanks));
  address.erase(address.find_last_not_of(kBlanks) + 1);
  if (address.empty()) return {};
  if (address.size() > kLongestAddress || !g_utf8_validate(address.c_str(), -1, nullptr)) return {};
  if (const desktop::GText scheme{g_uri_parse_scheme(address.c_str())}) {
    return IsAllowed(scheme.get()) ? address : "";
  }
  if (g_ascii_strncasecmp(address.c_str(), "www.", 4) == 0) return "http://" + address;
  if (!base.starts_with("http")) return {};
  return desktop::Taken(
      g_uri_resolve_relative(base.c_str(), address.c_str(), G_URI_FLAGS_PARSE_RELAXED, nullptr));
}

Target PlaceOf(PDFDoc& document, const LinkDest& place) {
  Target target;
  target.page = place.isPageRef() ? document.findPage(place.getPageRef()) : place.getPageNum();
  if (target.page < 1 || target.page > document.getNumPages()) return {};
  ::Page* page = document.getPage(target.page);
  const bool has_top = place.getKind() == destXYZ || place.getKind() == destFitH ||
                       place.getKind() == destFitBH || place.getKind() == destFitR;
  if (page == nullptr || !has_top || !place.getChangeTop()) return target;
  const Box at =
      BoxOf(TransformOf(*page), place.getLeft(), place.getTop(), place.getLeft(), place.getTop());
  target.top = std::max(at.top, 0.0);
  return target;
}

// In a table of contents the page's number alone is often a link, which says nothing.
void WidenEntries(std::vector<Word>& words) {
  for (auto start = words.begin(); start != words.end();) {
    const auto end = std::find_if(start, words.end(),
                                  [&](const Word& word) { return word.line != start->line; });
    const int link = std::prev(end)->link;
    std::size_t dots = 0;
    bool alone = link >= 0;
    for (auto word = start; word != end; ++word) {
      dots += DotsOf(*word);
      alone = alone && (word->link < 0 || word->link == link);
    }
    if (alone && dots >= kFewestDots) {
      std::for_each(start, end, [link](Word& word) { word.link = link; });
    }
    start = end;
  }
}

}  // namespace

Target TargetOf(PDFDoc& document, const LinkAction* action, const std::string& base) {
  if (action == nullptr) return {};
  if (action->getKind() == actionURI) {
    return {WholeAddress(static_cast<const LinkURI*>(action)->getURI(), base)};
  }
  if (action->getKind() != actionGoTo) return {};
  const auto* way = static_cast<const LinkGoTo*>(action);
  if (const LinkDest* place = way->getDest()) {
    return place->isOk() ? PlaceOf(document, *place) : Target{};
  }
  if (way->getNamedDest() == nullptr) return {};
  const std::unique_ptr<LinkDest> place = document.findDest(way->getNamedDest());
  return place && place->isOk() ? PlaceOf(document, *place) : Target{};
}

void AddLinks(PDFDoc& document, ::Page& source, const std::string& base, Page& page) {
  const std::unique_ptr<Links> links = source.getLinks();
  if (!links) return;
  const Transform transform = TransformOf(source);
  for (const AnnotLink* link : links->getLinks()) {
    if (page.links.size() >= kMostLinks) break;
    Target target = TargetOf(document, link->getAction(), base);
    if (target.address.empty() && !target.IsPlace()) continue;
    const PDFRectangle& area = link->getRect();
    const Box box = BoxOf(transform, area.x1, area.y1, area.x2, area.y2);
    const int number = static_cast<int>(page.links.size());
    bool any = false;
    for (Word& word : page.words) {
      const double x = (word.box.left + word.box.right) / 2;
      const double y = (word.box.top + word.box.bottom) / 2;
      if (x < box.left || x > box.right || y < box.top || y > box.bottom) continue;
      word.link = number;
      any = true;
    }
    // A link is often cut in two at the end of a line.
    if (any) page.links.push_back(std::move(target));
  }
  WidenEntries(page.words);
}

}  // namespace corvane::pdf
