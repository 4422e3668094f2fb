#include "web/page/PageRecord.h"

#include <utility>

#include "base/language.h"
#include "web/address/OwnAddress.h"
#include "web/page/ElementRecord.h"
#include "web/page/LongLines.h"

namespace corvane {
namespace {

using namespace record;

constexpr std::size_t kMaxFrames = 500;
constexpr std::size_t kMaxDepth = 10;

FramePlace PlaceOf(const Json& json) {
  FramePlace place;
  if (!json.is_array() || json.size() > kMaxDepth) return place;
  for (const auto& index : json) place.push_back(NumberOf(index, 0));
  return place;
}

// A place and a language for each link that has one of its own.
void GiveLanguages(const Json& json, const std::vector<HTMLElementPtr>& links) {
  if (!json.is_array()) return;
  for (std::size_t i = 0; i + 2 <= json.size(); i += 2) {
    const int place = NumberOf(json[i], -1);
    if (place < 0 || static_cast<std::size_t>(place) >= links.size()) continue;
    links[static_cast<std::size_t>(place)]->language = language::Tag(TextOf(json[i + 1]));
  }
}

std::vector<HTMLForm> FormsOf(const Json& json, Elements& elements) {
  std::vector<HTMLForm> forms;
  if (!json.is_array()) return forms;
  for (const auto& fields : json) {
    HTMLForm form;
    if (fields.is_array()) {
      for (const auto& field : fields) form.elements.push_back(FieldOf(field, elements));
    }
    forms.push_back(std::move(form));
  }
  return forms;
}

std::vector<FrameHint> FramesOf(const Json& json) {
  std::vector<FrameHint> frames;
  if (!json.is_array()) return frames;
  for (const auto& frame : json) {
    if (frames.size() == kMaxFrames) break;
    frames.push_back({TextOf(At(frame, 0)), TextOf(At(frame, 1)), IsSet(At(frame, 2))});
  }
  return frames;
}

std::optional<PageRecord> RecordOf(const Json& json) {
  if (!json.is_object()) return std::nullopt;
  PageRecord record;
  record.document_id = TextOf(Member(json, "id"));
  if (record.document_id.empty()) return std::nullopt;
  record.place = PlaceOf(Member(json, "place"));
  record.origin = TextOf(Member(json, "origin"));
  record.top_origin = TextOf(Member(json, "top"));
  record.silent = IsSet(Member(json, "silent"));

  auto document = std::make_shared<HTMLDocument>();
  document->Title = TextOf(Member(json, "title"));
  document->language = language::Tag(TextOf(Member(json, "language")));
  document->nameProp = TextOf(Member(json, "name"));
  document->location = ShownAddress(TextOf(Member(json, "url")));
  const auto& body = Member(json, "body");
  document->has_body = body.is_string();
  document->body_innerText = BreakLongLines(TextOf(body));
  Elements elements(record.elements);
  document->links = LinksOf(Member(json, "links"), elements);
  GiveLanguages(Member(json, "languages"), document->links);
  document->anchors = LinksOf(Member(json, "anchors"), elements);
  document->forms = FormsOf(Member(json, "forms"), elements);
  record.frames = FramesOf(Member(json, "frames"));
  record.document = std::move(document);
  return record;
}

}  // namespace

std::vector<PageRecord> ParseRecords(std::string_view text) {
  std::vector<PageRecord> records;
  const Json json = Parse(text);
  const Json& list = Member(json, "records");
  if (!list.is_array()) return records;
  for (const auto& item : list) {
    if (records.size() > kMaxFrames) break;
    if (auto record = RecordOf(item)) records.push_back(std::move(*record));
  }
  return records;
}

std::optional<PageRecord> ParseRecord(std::string_view text) { return RecordOf(Parse(text)); }

}  // namespace corvane
