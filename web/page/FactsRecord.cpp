#include "web/page/FactsRecord.h"

#include <string>

#include "base/language.h"
#include "web/page/RecordJson.h"

namespace corvane {
namespace {

using namespace record;

constexpr std::size_t kLongestText = 4000;  // bytes; the script allows 1,000 characters
constexpr std::size_t kMostGroups = 20;

std::string Text(const Json& json) { return TextOf(json, kLongestText); }
int Number(const Json& json) { return NumberOf(json, 0); }

Tri State(const Json& json) {
  const std::string word = Text(json);
  if (word == "true") return Tri::Yes;
  if (word == "false") return Tri::No;
  return word == "mixed" ? Tri::Mixed : Tri::None;
}

std::vector<ElementGroup> Groups(const Json& json) {
  std::vector<ElementGroup> groups;
  if (!json.is_array()) return groups;
  for (const Json& group : json) {
    if (groups.size() == kMostGroups) break;
    groups.push_back({Number(At(group, 0)), Text(At(group, 1)), Text(At(group, 2)),
                      Text(At(group, 3)), Number(At(group, 4)), Number(At(group, 5)),
                      Text(At(group, 6))});
  }
  return groups;
}

// The words that are the page's own.
void MarkLanguage(ElementFacts& facts, const std::string& tag) {
  facts.language = tag;
  if (tag.empty()) return;
  const auto mark = [&tag](std::string& words) { words = language::Marked(words, tag); };
  for (std::string* words : {&facts.role_description, &facts.name, &facts.value, &facts.suggestion,
                             &facts.error, &facts.description}) {
    mark(*words);
  }
  for (ElementGroup& group : facts.groups) {
    mark(group.name);
    mark(group.role_description);
    mark(group.description);
  }
}

}  // namespace

ElementFactsPtr FactsOf(const nlohmann::json& json) {
  if (!json.is_object()) return nullptr;
  const auto member = [&](const char* name) -> const Json& { return Member(json, name); };
  const auto flag = [&](const char* name) { return member(name) == true; };
  auto facts = std::make_shared<ElementFacts>();
  facts->number = Number(member("number"));
  facts->role = Text(member("role"));
  facts->role_description = Text(member("kind"));
  facts->name = Text(member("name"));
  facts->checked = State(member("checked"));
  facts->pressed = State(member("pressed"));
  facts->expanded = State(member("expanded"));
  facts->selected = State(member("selected"));
  facts->popup = Text(member("popup"));
  facts->current = Text(member("current"));
  facts->sort = Text(member("sort"));
  facts->required = flag("required");
  facts->invalid = flag("invalid");
  facts->disabled = flag("disabled");
  facts->read_only = flag("readonly");
  facts->multiple = flag("multiple");
  facts->lines = flag("lines");
  facts->vertical = flag("vertical");
  facts->level = Number(member("level"));
  facts->place = Number(member("place"));
  facts->size = Number(member("size"));
  facts->row = Number(member("row"));
  facts->column = Number(member("column"));
  facts->value = Text(member("value"));
  facts->suggestions = Number(member("suggestions")) - 1;
  facts->suggestion = Text(member("suggestion"));
  facts->position = Number(member("position")) - 1;
  facts->duration = Number(member("duration"));
  facts->volume = Number(member("volume")) - 1;
  facts->error = Text(member("error"));
  facts->description = Text(member("description"));
  facts->groups = Groups(member("groups"));
  MarkLanguage(*facts, language::Tag(Text(member("language"))));
  return facts;
}

}  // namespace corvane
