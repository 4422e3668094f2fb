#include "platform/linux/web/page/page_record.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "base/language.h"
#include "platform/linux/web/page/facts_record.h"
#include "platform/linux/web/web_text.h"
#include "web/address/OwnAddress.h"

namespace corvane::desktop {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kMaxFrames = 500;
constexpr std::size_t kMaxDepth = 10;

const Json kNothing;

const Json& Member(const Json& object, const char* name) {
  if (!object.is_object()) return kNothing;
  const auto found = object.find(name);
  return found == object.end() ? kNothing : *found;
}

const Json& At(const Json& list, std::size_t index) {
  return list.is_array() && index < list.size() ? list[index] : kNothing;
}

std::string TextOf(const Json& json) {
  const auto* text = json.get_ptr<const Json::string_t*>();
  if (text == nullptr) return {};
  std::string clean = *text;
  for (auto nul = clean.find('\0'); nul != std::string::npos; nul = clean.find('\0', nul)) {
    clean.replace(nul, 1, "\xEF\xBF\xBD");
  }
  return clean;
}

/// A whole number of at least `least`; `least` for everything else.
int NumberOf(const Json& json, int least) {
  if (!json.is_number_integer()) return least;
  const auto number = json.get<std::int64_t>();
  if (number < least || number > std::numeric_limits<int>::max()) return least;
  return static_cast<int>(number);
}

FramePlace PlaceOf(const Json& json) {
  FramePlace place;
  if (!json.is_array() || json.size() > kMaxDepth) return place;
  for (const auto& index : json) place.push_back(NumberOf(index, 0));
  return place;
}

std::vector<std::string> TextsOf(const Json& json) {
  std::vector<std::string> texts;
  if (!json.is_array()) return texts;
  texts.reserve(json.size());
  for (const auto& text : json) texts.push_back(TextOf(text));
  return texts;
}

std::vector<int> NumbersOf(const Json& json) {
  std::vector<int> numbers;
  if (!json.is_array()) return numbers;
  for (const auto& number : json) {
    if (const int next = NumberOf(number, -1); next >= 0) numbers.push_back(next);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

// [selected, after, known], what the key did to the text, [how far it leads, whether
// it selects], the line
ElementCaret CaretOf(const Json& event) {
  const Json& caret = Member(event, "caret");
  const Json& step = Member(event, "step");
  ElementCaret result{NumberOf(At(caret, 0), 0), NumberOf(At(caret, 1), 0),
                      NumberOf(At(caret, 2), 0) == 1};
  const int edit = NumberOf(Member(event, "edit"), 0);
  if (edit == 1) result.edit = ElementCaret::Edit::Typed;
  if (edit == 2) result.edit = ElementCaret::Edit::Removed;
  const int far = NumberOf(At(step, 0), 0);
  if (far > 0 && far <= 3) result.step = static_cast<ElementCaret::Step>(far);
  result.extends = NumberOf(At(step, 1), 0) == 1;
  const Json& line = Member(event, "line");
  if (line.is_string()) result.line = TextOf(line);
  return result;
}

/// The elements of one record; an element that is both a link and an anchor is
/// one object.
class Elements {
 public:
  explicit Elements(std::unordered_map<int, HTMLElementPtr>& by_number) : by_number_(by_number) {}

  HTMLElementPtr Get(const Json& json) {
    const int number = NumberOf(json, 0);
    if (number == 0) return std::make_shared<HTMLElement>();
    auto& slot = by_number_[number];
    if (!slot) slot = std::make_shared<HTMLElement>();
    return slot;
  }

 private:
  std::unordered_map<int, HTMLElementPtr>& by_number_;
};

std::vector<HTMLElementPtr> LinksOf(const Json& json, Elements& elements) {
  std::vector<HTMLElementPtr> links;
  if (!json.is_array()) return links;
  constexpr std::size_t kFields = 6;
  links.reserve(json.size() / kFields);
  for (std::size_t i = 0; i + kFields <= json.size(); i += kFields) {
    auto link = elements.Get(json[i]);
    link->type_name = NumberOf(json[i + 1], 0) == 1 ? "HTMLAreaElement" : "HTMLAnchorElement";
    link->innerText = TextOf(json[i + 2]);
    link->href = ShownAddress(TextOf(json[i + 3]));
    link->name = TextOf(json[i + 4]);
    link->label = TextOf(json[i + 5]);
    links.push_back(std::move(link));
  }
  return links;
}

void GiveLanguages(const Json& json, const std::vector<HTMLElementPtr>& links) {
  if (!json.is_array()) return;
  for (std::size_t i = 0; i + 2 <= json.size(); i += 2) {
    const auto place = static_cast<std::size_t>(std::max(NumberOf(json[i], 0), 0));
    if (place < links.size()) links[place]->language = language::Tag(TextOf(json[i + 1]));
  }
}

HTMLElementPtr FieldOf(const Json& json, Elements& elements) {
  auto field = elements.Get(At(json, 0));
  field->type_name = TextOf(At(json, 1));
  field->type = TextOf(At(json, 2));
  field->name = TextOf(At(json, 3));
  field->innerText = TextOf(At(json, 4));
  field->text_before_begin = TextOf(At(json, 5));
  field->text_after_end = TextOf(At(json, 6));
  field->value = TextOf(At(json, 7));
  field->status = NumberOf(At(json, 8), 0) == 1;
  field->selectedIndex = NumberOf(At(json, 9), -1);
  field->options = TextsOf(At(json, 10));
  field->chosen = NumbersOf(At(json, 11));
  field->kind = TextOf(At(json, 12));
  field->label = TextOf(At(json, 13));
  return field;
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
    frames.push_back({TextOf(At(frame, 0)), TextOf(At(frame, 1)), NumberOf(At(frame, 2), 0) == 1});
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
  record.silent = NumberOf(Member(json, "silent"), 0) == 1;

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

Json Parse(std::string_view text) { return Json::parse(text, nullptr, /*allow_exceptions=*/false); }

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

std::optional<ElementEvent> ParseElementEvent(std::string_view text) {
  const Json json = Parse(text);
  ElementEvent event;
  const std::string kind = TextOf(Member(json, "kind"));
  if (kind == "focus") {
    event.kind = ElementEvent::Kind::Focus;
  } else if (kind == "keyup") {
    event.kind = ElementEvent::Kind::KeyUp;
  } else if (kind == "change") {
    event.kind = ElementEvent::Kind::Change;
  } else if (kind == "state") {
    event.kind = ElementEvent::Kind::State;
  } else if (kind == "leave") {
    event.kind = ElementEvent::Kind::Leave;
  } else {
    return std::nullopt;
  }
  event.document_id = TextOf(Member(json, "document"));
  event.number = NumberOf(Member(json, "number"), 0);
  event.href = ShownAddress(TextOf(Member(json, "href")));
  event.facts = FactsOf(Member(json, "facts"));
  event.with_focus = NumberOf(Member(json, "fresh"), 0) == 1;
  const Json& state = Member(json, "state");
  event.has_state = state.is_array();
  event.value = TextOf(At(state, 0));
  event.status = NumberOf(At(state, 1), 0) == 1;
  event.selectedIndex = NumberOf(At(state, 2), -1);
  event.options = TextsOf(At(state, 3));
  event.chosen = NumbersOf(At(state, 4));
  event.caret = CaretOf(json);
  event.unasked = NumberOf(Member(json, "unasked"), 0) == 1;
  event.again = NumberOf(Member(json, "again"), 0) == 1;
  const int look = NumberOf(Member(json, "look"), 0);
  event.look = look >= 1 && look <= 3;
  event.look_at_line = look == 2;
  event.look_at_control = look == 3;
  std::unordered_map<int, HTMLElementPtr> alone;
  Elements elements(alone);
  const Json& field = Member(json, "field");
  const Json& link = Member(json, "link");
  if (field.is_array()) event.described = FieldOf(field, elements);
  if (const auto links = LinksOf(link, elements); !links.empty()) event.described = links.front();
  return event;
}

void Apply(const ElementEvent& event, HTMLElement& element) {
  if (event.facts) {
    element.facts_before = std::exchange(element.facts, event.facts);
    element.changed_with_focus = event.with_focus;
  }
  if (event.look_at_control) {
    element.part = event.part;
    element.part_value = event.part_value;
  }
  if (!event.has_state) return;
  element.value = event.value;
  element.status = event.status;
  element.selectedIndex = event.selectedIndex;
  element.options = event.options;
  element.chosen = event.chosen;
  element.caret = event.caret;
  element.part = event.part;
  element.part_value = event.part_value;
}

}  // namespace corvane::desktop
