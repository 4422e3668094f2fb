// What the document holds of pages of many kinds, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class RecordTest : public PageTest {
 protected:
  HTMLDocument& Load(const std::string& content,
                     const std::string& type = "text/html; charset=utf-8",
                     const std::map<std::string, std::string>& headers = {}) {
    server_.Page("/page.html", content, type, headers);
    view_.Go(server_.Url("/page.html"));
    return *view_.Document();
  }
  const HTMLElement& Field(const std::string& content) {
    Load("<form>" + content + "</form>");
    return *view_.Document()->forms.at(0).elements.at(0);
  }
};

TEST_F(RecordTest, LinksInDocumentOrder) {
  const auto& document = Load(R"(<a href="/one">  First
      link </a><map><area href="two.html" name="place"></map><a>no link</a>
      <a href="http://example.org/" name="both">Third</a>)");
  ASSERT_THAT(document.links, SizeIs(3));
  EXPECT_EQ(document.links[0]->type_name, "HTMLAnchorElement");
  EXPECT_EQ(document.links[0]->innerText, "First link");
  EXPECT_EQ(document.links[0]->href, server_.Url("/one"));
  EXPECT_EQ(document.links[1]->type_name, "HTMLAreaElement");
  EXPECT_EQ(document.links[1]->href, server_.Url("/two.html"));
  EXPECT_EQ(document.links[1]->name, "place");
  EXPECT_EQ(document.links[2]->href, "http://example.org/");
}

TEST_F(RecordTest, AnImageLinkHasNoText) {
  const auto& document = Load(R"(<a href="/one"><img src="x.png"></a>)");
  ASSERT_THAT(document.links, SizeIs(1));
  EXPECT_EQ(document.links[0]->innerText, "");
}

TEST_F(RecordTest, ALinkInADrawing) {
  const auto& document =
      Load(R"(<svg><a href="/drawn"><text y="20">Drawn</text></a></svg><a href="/b">b</a>)");
  ASSERT_THAT(document.links, SizeIs(2));
  EXPECT_EQ(document.links[0]->href, server_.Url("/drawn"));
  EXPECT_EQ(document.links[0]->innerText, "Drawn");
}

TEST_F(RecordTest, AnchorsAreTheNamedOnes) {
  const auto& document =
      Load(R"(<a name="top">Top</a><a href="/x">x</a><a name="b" href="/b">b</a>)");
  ASSERT_THAT(document.anchors, SizeIs(2));
  EXPECT_EQ(document.anchors[0]->name, "top");
  EXPECT_EQ(document.anchors[0]->innerText, "Top");
  EXPECT_EQ(document.anchors[0]->href, "");
  EXPECT_EQ(document.anchors[1], document.links[1]);
}

TEST_F(RecordTest, FormsHoldTheirElementsInOrder) {
  const auto& document = Load(R"(<form><input name="a"><select name="b"></select>
      <textarea name="c">text</textarea><button name="d">Go</button></form>
      <form></form><input name="loose">)");
  ASSERT_THAT(document.forms, SizeIs(2));
  ASSERT_THAT(document.forms[0].elements, SizeIs(4));
  EXPECT_THAT(document.forms[1].elements, SizeIs(0));
  std::vector<std::string> types;
  for (const auto& element : document.forms[0].elements) {
    types.push_back(element->type_name + " " + element->type + " " + element->name);
  }
  EXPECT_THAT(types, ElementsAre("HTMLInputElement text a", "HTMLSelectElement select-one b",
                                 "HTMLTextAreaElement textarea c", "HTMLButtonElement submit d"));
  EXPECT_EQ(document.forms[0].elements[2]->value, "text");
  EXPECT_EQ(document.forms[0].elements[3]->innerText, "Go");
}

TEST_F(RecordTest, LaterInputTypesAreText) {
  for (const char* type : {"email", "search", "tel", "url", "number", "date", "range", "color"}) {
    EXPECT_EQ(Field(std::string("<input type=") + type + ">").type, "text") << type;
  }
}

TEST_F(RecordTest, KnownInputTypesStay) {
  for (const char* type :
       {"text", "password", "checkbox", "radio", "submit", "reset", "button", "file", "hidden"}) {
    EXPECT_EQ(Field(std::string("<input type=") + type + ">").type, type);
  }
}

TEST_F(RecordTest, CheckBoxAndRadioState) {
  EXPECT_TRUE(Field("<input type=checkbox checked>").status);
  EXPECT_FALSE(Field("<input type=checkbox>").status);
  EXPECT_EQ(Field("<input type=checkbox>").value, "on");
  EXPECT_TRUE(Field("<input type=radio checked value=x>").status);
}

TEST_F(RecordTest, SelectHasItsOptionsAndTheSelectedOne) {
  const auto& select =
      Field("<select name=s><option> One </option><option selected>Two</option></select>");
  EXPECT_THAT(select.options, ElementsAre("One", "Two"));
  EXPECT_EQ(select.selectedIndex, 1);
  EXPECT_EQ(select.value, "Two");
}

TEST_F(RecordTest, SelectOfManyAndSelectOfNone) {
  EXPECT_EQ(Field("<select multiple><option>One</select>").type, "select-multiple");
  EXPECT_EQ(Field("<select multiple><option>One</select>").selectedIndex, -1);
}

TEST_F(RecordTest, TextAroundAField) {
  const auto& field =
      Field("Your   name: <!-- note --><input name=n> (as in\n your passport)<b>!</b>");
  EXPECT_EQ(field.text_before_begin, "Your name:");
  EXPECT_EQ(field.text_after_end, "(as in your passport)");
}

TEST_F(RecordTest, NoTextAroundAField) {
  const auto& field = Field("<p>Far away</p> <input name=n> <p>Also far</p>");
  EXPECT_EQ(field.text_before_begin, "");
  EXPECT_EQ(field.text_after_end, "");
}

TEST_F(RecordTest, ALabelStandsInForTextBefore) {
  EXPECT_EQ(Field("<label for=n>Name</label><p><input id=n>").text_before_begin, "Name");
}

TEST_F(RecordTest, ALabelStandsInForTextAfterACheckBox) {
  const auto& box = Field("<input type=checkbox id=n><p><label for=n>I agree</label>");
  EXPECT_EQ(box.text_after_end, "I agree");
  EXPECT_EQ(box.text_before_begin, "");
}

TEST_F(RecordTest, NamePropWithoutTitleIsTheFileName) {
  const auto& document = Load("text");
  EXPECT_EQ(document.Title, "");
  EXPECT_EQ(document.nameProp, "page.html");
}

TEST_F(RecordTest, ElementsNamedLikePropertiesHideNothing) {
  const auto& document = Load(R"(<title>Title</title>
      <img name="body"><img name="forms"><img name="title"><img name="links">
      <img name="querySelectorAll"><img name="documentElement"><img name="URL"><img name="readyState">
      <form name="getElementById" id="corvane">
        <input name="elements"><input name="length"><input name="innerText" value="v">
        <input name="querySelectorAll"><input name="describe">
      </form><a href="/x" id="location" name="type">Link</a> Body text)");
  EXPECT_EQ(document.Title, "Title");
  EXPECT_EQ(document.location, server_.Url("/page.html"));
  EXPECT_THAT(document.body_innerText, HasSubstr("Body text"));
  ASSERT_THAT(document.forms, SizeIs(1));
  ASSERT_THAT(document.forms[0].elements, SizeIs(5));
  EXPECT_EQ(document.forms[0].elements[2]->value, "v");
  ASSERT_THAT(document.links, SizeIs(1));
  EXPECT_EQ(document.links[0]->innerText, "Link");
}

TEST_F(RecordTest, ScriptsThatChangeBuiltinsChangeNothing) {
  const auto& document = Load(R"(<title>Title</title><script>
      JSON.stringify = () => 'fake'; Document.prototype.querySelectorAll = () => [];
      Array.prototype.push = () => 0; Object.defineProperty(document, 'title', {get: () => 'fake'});
      String.prototype.trim = () => 'fake'; window.corvane = 1;
      </script><a href="/x"> Link </a>)");
  EXPECT_EQ(document.Title, "Title");
  ASSERT_THAT(document.links, SizeIs(1));
  EXPECT_EQ(document.links[0]->innerText, "Link");
}

TEST_F(RecordTest, ThePageCannotSeeTheScript) {
  Load("<title>A</title>");
  EXPECT_EQ(view_.EvaluateInPage("typeof corvane + typeof window.webkit?.messageHandlers?.corvane"),
            "undefinedundefined");
}

TEST_F(RecordTest, FramesetHasNoBody) {
  server_.Page("/in.html", "<title>Inside</title>inner");
  const auto& document = Load("<title>Set</title><frameset><frame src=in.html></frameset>");
  EXPECT_FALSE(document.has_body);
  EXPECT_EQ(document.body_innerText, "");
  ASSERT_THAT(document.frames, SizeIs(1));
  EXPECT_EQ(document.frames[0]->Title, "Inside");
}

TEST_F(RecordTest, EmptyPage) {
  const auto& document = Load("");
  EXPECT_TRUE(document.has_body);
  EXPECT_EQ(document.body_innerText, "");
  EXPECT_EQ(document.Title, "");
}

TEST_F(RecordTest, PlainTextFile) {
  const auto& document = Load("line one\nline two", "text/plain");
  EXPECT_THAT(document.body_innerText, HasSubstr("line one\nline two"));
}

TEST_F(RecordTest, AFeedIsReadAsItsText) {
  const auto& document =
      Load("<?xml version='1.0'?><rss><item><t>News</t></item></rss>", "application/xml");
  EXPECT_TRUE(document.has_body);
  EXPECT_EQ(document.body_innerText, "News");
}

TEST_F(RecordTest, BrokenUtf8BecomesReplacementCharacters) {
  const auto& document = Load("<title>A\xFF\xFE</title>B\xC3(C", "text/html; charset=utf-8");
  EXPECT_TRUE(g_utf8_validate(document.Title.c_str(), -1, nullptr));
  EXPECT_THAT(document.body_innerText, HasSubstr("\xEF\xBF\xBD(C"));
}

TEST_F(RecordTest, HalfCharactersMadeByScripts) {
  const auto& document = Load(R"(<body><script>document.body.append('a\ud800b\u0000c');
      document.title = '\udc00t'</script>)");
  EXPECT_THAT(document.body_innerText, HasSubstr("a\xEF\xBF\xBD"
                                                 "b"));
  EXPECT_EQ(document.Title, "\xEF\xBF\xBDt");
}

TEST_F(RecordTest, RightToLeftTextStaysInReadingOrder) {
  const auto& document = Load("<html dir=rtl><title>עברית</title><body>שלום abc مرحبا");
  EXPECT_EQ(document.Title, "עברית");
  EXPECT_EQ(document.body_innerText, "שלום abc مرحبا");
}

TEST_F(RecordTest, CharactersBeyondTheBasicPlane) {
  EXPECT_EQ(Load("<title>𝄞😀</title>").Title, "𝄞😀");
}

TEST_F(RecordTest, DocumentThatForbidsScripts) {
  const auto& document = Load("<title>Locked</title><a href='/x'>Link</a> text", "text/html",
                              {{"Content-Security-Policy", "sandbox"}});
  EXPECT_EQ(document.Title, "Locked");
  EXPECT_THAT(document.body_innerText, HasSubstr("Link text"));
  ASSERT_THAT(document.links, SizeIs(1));
}

TEST_F(RecordTest, PolicyAgainstInlineScriptsIsNoHindrance) {
  const auto& document =
      Load("<title>Strict</title>text", "text/html",
           {{"Content-Security-Policy", "default-src 'none'; script-src 'none'"}});
  EXPECT_EQ(document.Title, "Strict");
  EXPECT_EQ(document.body_innerText, "text");
}

TEST_F(RecordTest, PageScriptsSwitchedOff) {
  EnginePreferences preferences;
  preferences.scripts = false;
  SharedEngine().SetPreferences(preferences);
  const auto& document = Load("<title>Off</title>text<script>document.title = 'On'</script>");
  SharedEngine().SetPreferences({});
  EXPECT_EQ(document.Title, "Off");
  EXPECT_EQ(document.body_innerText, "text");
}

TEST_F(RecordTest, AnOverlongLineIsBroken) {
  std::string line;
  for (int i = 0; i < 2000; ++i) line += "word ";
  const auto& document = Load("<p>" + line);
  std::size_t longest = 0;
  std::size_t start = 0;
  for (auto end = document.body_innerText.find('\n'); start != std::string::npos;
       end = document.body_innerText.find('\n', start)) {
    longest = std::max(longest, std::min(end, document.body_innerText.size()) - start);
    start = end == std::string::npos ? end : end + 1;
  }
  EXPECT_GT(longest, 3900u);
  EXPECT_LE(longest, 4000u);
}

std::string PageOfLinks(int count) {
  std::string page = "<title>Links</title>";
  for (int i = 0; i < count; ++i) {
    page += "<p><a href=/l" + std::to_string(i) + ">Link number " + std::to_string(i) + "</a>";
  }
  return page;
}

TEST_F(RecordTest, TenThousandLinks) {
  const auto& document = Load(PageOfLinks(10'000));
  ASSERT_THAT(document.links, SizeIs(10'000));
  EXPECT_EQ(document.links.front()->innerText, "Link number 0");
  EXPECT_EQ(document.links.back()->innerText, "Link number 9999");
  EXPECT_EQ(document.links.back()->href, server_.Url("/l9999"));
}

TEST_F(RecordTest, FiftyThousandLinks) {
  EXPECT_THAT(Load(PageOfLinks(50'000)).links, SizeIs(50'000));
}

TEST_F(RecordTest, TenMegabytesOfText) {
  std::string text;
  while (text.size() < 10'000'000)
    text += "<p>All work and no play makes a dull page, line after line.";
  const auto& document = Load(text + "<p>The end");
  EXPECT_GT(document.body_innerText.size(), 9'000'000u);
  EXPECT_TRUE(document.body_innerText.ends_with("The end"));
}

TEST_F(RecordTest, DeeplyNestedElements) {
  std::string page;
  for (int i = 0; i < 5000; ++i) page += "<div>";
  EXPECT_EQ(Load(page + "deep").body_innerText, "deep");
}

TEST_F(RecordTest, ALinkHasTheLanguageOfThePartThatItLiesIn) {
  const auto& document = Load(
      "<html lang=en><title>A</title><a href=/a>One</a><ul lang=de><li><a href=/b>Zwei</a>"
      "<li><a href=/c lang=fr-CA>Trois</a></ul>");
  std::vector<std::string> languages;
  for (const auto& link : document.links) languages.push_back(link->language);
  EXPECT_THAT(languages, ElementsAre("", "de", "fr-ca"));
}

TEST_F(RecordTest, ThePagesLanguageIsWhatItsAuthorSays) {
  const auto language_of = [this](const std::string& page) {
    server_.Page("/", page);
    view_.Go(server_.Url());
    return view_.Document()->language;
  };
  EXPECT_EQ(language_of("<!doctype html><html lang=de-AT><title>A</title>"), "de-at");
  EXPECT_EQ(
      language_of("<!doctype html><meta http-equiv=Content-Language content=fr><title>A</title>"),
      "fr");
  EXPECT_EQ(language_of("<!doctype html><title>A</title>"), "");
  EXPECT_EQ(language_of("<!doctype html><html lang='what, ever'><title>A</title>"), "");
}

}  // namespace
}  // namespace corvane::desktop
