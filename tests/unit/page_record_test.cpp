// Reading records and events, also those that nobody in his right mind sends.
#include "web/page/PageRecord.h"

#include <gtest/gtest.h>

#include "web/page/ElementEvent.h"

namespace corvane {
namespace {

TEST(ParseRecord, ReadsAWholeRecord) {
  const auto record = ParseRecord(R"({"id":"d","place":[1,0],"origin":"o","top":"t","title":"T",
      "name":"N","url":"u","body":"B","links":[1,0,"L","h","n","",2,1,"","i","","P"],
      "anchors":[1,0,"L","h","n",""],
      "forms":[[[3,"HTMLInputElement","text","q","","before","after","v",1,-1,[],[2,1],"date",
      "Day"]],[]],
      "frames":[["F","fa",1]]})");
  ASSERT_TRUE(record);
  EXPECT_EQ(record->place, (FramePlace{1, 0}));
  EXPECT_EQ(record->top_origin, "t");
  const auto& document = *record->document;
  EXPECT_EQ(document.Title, "T");
  EXPECT_EQ(document.nameProp, "N");
  EXPECT_EQ(document.location, "u");
  EXPECT_TRUE(document.has_body);
  ASSERT_EQ(document.links.size(), 2u);
  EXPECT_EQ(document.links[1]->type_name, "HTMLAreaElement");
  EXPECT_EQ(document.links[1]->label, "P");
  ASSERT_EQ(document.anchors.size(), 1u);
  EXPECT_EQ(document.anchors[0], document.links[0]);
  ASSERT_EQ(document.forms.size(), 2u);
  const auto& field = *document.forms[0].elements.at(0);
  EXPECT_EQ(field.text_before_begin, "before");
  EXPECT_EQ(field.text_after_end, "after");
  EXPECT_EQ(field.value, "v");
  EXPECT_TRUE(field.status);
  EXPECT_EQ(field.selectedIndex, -1);
  EXPECT_EQ(field.chosen, (std::vector<int>{1, 2}));
  EXPECT_EQ(field.kind, "date");
  EXPECT_EQ(field.label, "Day");
  EXPECT_EQ(record->elements.at(3), document.forms[0].elements[0]);
  ASSERT_EQ(record->frames.size(), 1u);
  EXPECT_TRUE(record->frames[0].silent);
}

TEST(ParseRecord, NoBody) {
  EXPECT_FALSE(ParseRecord(R"({"id":"d","body":null})")->document->has_body);
}

class Malformed : public testing::TestWithParam<const char*> {};

TEST_P(Malformed, IsNoRecord) {
  EXPECT_FALSE(ParseRecord(GetParam()));
  EXPECT_TRUE(ParseRecords(GetParam()).empty());
  EXPECT_FALSE(ParseElementEvent(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Texts, Malformed,
                         testing::Values("", "{", "null", "[]", "1", "\"x\"", "{}", "[[[[[[[[",
                                         "{\"id\":1}", "{\"records\":1}", "{\"records\":[1,null]}",
                                         "{\"kind\":\"other\"}", "\xFF\xFE"));

TEST(ParseRecord, PartsOfAnotherKindAreLeftOut) {
  const auto record = ParseRecord(R"({"id":"d","place":"x","title":1,"links":{"a":1},
      "anchors":[1,2],"forms":[1,[2,[]],null],"frames":[1,[]],"body":["x"]})");
  ASSERT_TRUE(record);
  EXPECT_TRUE(record->place.empty());
  EXPECT_EQ(record->document->Title, "");
  EXPECT_TRUE(record->document->links.empty());
  EXPECT_TRUE(record->document->anchors.empty());
  EXPECT_EQ(record->document->forms.size(), 3u);
  EXPECT_EQ(record->document->forms[1].elements.size(), 2u);
  EXPECT_FALSE(record->document->has_body);
}

TEST(ParseRecord, NumbersOutOfRange) {
  const auto record = ParseRecord(R"({"id":"d","place":[-1,1e99,99999999999],
      "links":[-5,7,"a","","","",99999999999999,0,"b","","",""]})");
  ASSERT_TRUE(record);
  EXPECT_EQ(record->place, (FramePlace{0, 0, 0}));
  ASSERT_EQ(record->document->links.size(), 2u);
  EXPECT_TRUE(record->elements.empty());
}

TEST(ParseRecord, NulCharactersAreReplaced) {
  EXPECT_EQ(ParseRecord(R"({"id":"d","title":"a\u0000b"})")->document->Title,
            "a\xEF\xBF\xBD"
            "b");
}

TEST(ParseRecord, DeepNestingIsNoTrouble) {
  EXPECT_FALSE(ParseRecord(std::string(100'000, '[')));
  EXPECT_FALSE(ParseRecord(std::string(100'000, '[') + std::string(100'000, ']')));
}

TEST(ParseRecords, AtMostSoManyFrames) {
  std::string json = "{\"records\":[";
  for (int i = 0; i < 2000; ++i) json += std::string(i > 0 ? "," : "") + "{\"id\":\"d\"}";
  EXPECT_LE(ParseRecords(json + "]}").size(), 501u);
}

TEST(ParseElementEvent, ReadsAWholeEvent) {
  const auto event = ParseElementEvent(R"({"kind":"keyup","document":"d","number":3,"href":"",
      "state":["value",1,2,["a","b","c"]],"caret":[4,5]})");
  ASSERT_TRUE(event);
  EXPECT_EQ(event->kind, ElementEvent::Kind::KeyUp);
  HTMLElement element;
  Apply(*event, element);
  EXPECT_EQ(element.value, "value");
  EXPECT_TRUE(element.status);
  EXPECT_EQ(element.selectedIndex, 2);
  EXPECT_EQ(element.options.size(), 3u);
  EXPECT_EQ(element.caret.selection_length, 4);
  EXPECT_EQ(element.caret.text_after, 5);
}

TEST(ParseElementEvent, ALinksEventChangesNothing) {
  const auto event = ParseElementEvent(R"({"kind":"focus","document":"d","number":3,"href":"h"})");
  ASSERT_TRUE(event);
  HTMLElement element;
  element.value = "kept";
  Apply(*event, element);
  EXPECT_EQ(element.value, "kept");
}

TEST(ParseElementEvent, BrokenElementsAreLeftOut) {
  EXPECT_FALSE(ParseElementEvent(R"({"kind":"focus","field":)"));
  const auto event =
      ParseElementEvent(R"({"kind":"focus","document":"d","number":1,"field":{},"link":[1]})");
  ASSERT_TRUE(event);
  EXPECT_EQ(event->described, nullptr);
}

}  // namespace
}  // namespace corvane
