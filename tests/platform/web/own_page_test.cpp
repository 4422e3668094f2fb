// The program's own pages and who may reach them, against the real engine.
#include <glib/gstdio.h>
#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/platform/web/page_harness.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

constexpr const char* kQuery = "corvane://search/cgi-bin/query?pg=q&text=yes&kl=XX&q=";

class OwnPageTest : public testing::Test {
 protected:
  EngineOptions Options() {
    EngineOptions options = TestOptions();
    options.search_service = [this] { return service_; };
    options.start_page = [this] { return start_page_; };
    options.find_matches = [this](const std::string& words) {
      searched_ = words;
      return matches_;
    };
    options.page_visited = [this](const std::string& address, const std::string& title) {
      visited_.push_back(address + " " + title);
    };
    return options;
  }
  std::string service_;
  std::string start_page_ = kHomePage;
  std::string searched_;
  std::vector<SearchMatch> matches_;
  std::vector<std::string> visited_;
  WebEngine engine_{Options()};
  TestServer server_;
  TestView view_{engine_};
};

TEST_F(OwnPageTest, GoHomeShowsTheHomePage) {
  view_->GoHome();
  view_.WaitIdle();
  EXPECT_EQ(view_->LocationURL(), kHomePage);
  EXPECT_EQ(view_.Document()->Title, "Corvane home page");
  EXPECT_THAT(view_.Body(), HasSubstr("Address box"));
}

TEST_F(OwnPageTest, GoHomeGoesToTheStartPageSet) {
  server_.Page("/start", "<title>Start</title>");
  start_page_ = server_.Url("/start");
  view_->GoHome();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "Start");
}

TEST_F(OwnPageTest, TheHomePageHasASearchFieldAndNoButtonElement) {
  view_.Go(kHomePage);
  ASSERT_THAT(view_.Document()->forms, SizeIs(1));
  bool found = false;
  for (const auto& element : view_.Document()->forms[0].elements) {
    EXPECT_EQ(element->type_name, "HTMLInputElement");
    found = found || (element->name == "q" && element->text_before_begin == "Words to search for");
  }
  EXPECT_TRUE(found);
}

TEST_F(OwnPageTest, ASearchIsAnsweredHereWithoutAService) {
  matches_ = {{"Cats & more", "http://cats.example/"}};
  view_.Go(std::string(kQuery) + "+cats+and+<dogs>");
  EXPECT_EQ(searched_, "cats and <dogs>");
  EXPECT_EQ(view_.Document()->Title, "Search for cats and <dogs>");
  EXPECT_THAT(view_.Body(), HasSubstr("No web search service is set"));
  EXPECT_THAT(view_.Body(), HasSubstr("Cats & more"));
  ASSERT_GE(view_.Document()->links.size(), 1u);
  EXPECT_EQ(view_.Document()->links[0]->href, "http://cats.example/");
}

TEST_F(OwnPageTest, ALinkToASavedPageLeadsThere) {
  const test::TemporaryFolder folder;
  const std::string uri = "file://" + folder.Write("saved.html", "<title>Saved</title>");
  matches_ = {{"A saved page", uri}};
  view_.Go(std::string(kQuery) + "saved");
  view_.EvaluateInPage("document.querySelector('li a').click()");
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == uri && !view_->Busy(); }));
  EXPECT_EQ(view_.Document()->Title, "Saved");
  view_.Go(std::string(kQuery) + "saved");
  view_.Go(view_.Document()->links.at(0)->href);
  EXPECT_EQ(view_->LocationURL(), uri) << "from the links list";
}

TEST_F(OwnPageTest, WordsKeepEveryCharacter) {
  view_.Go(std::string(kQuery) + "+C#+100%+caf\xC3\xA9+a&b");
  EXPECT_EQ(searched_, "C# 100% caf\xC3\xA9 a&b");
}

TEST_F(OwnPageTest, ASearchGoesToTheService) {
  server_.Page("/find", "<title>Found</title>");
  service_ = server_.Url("/find?q=%s");
  view_.Go(std::string(kQuery) + "+cats+and+dogs");
  EXPECT_EQ(view_.Document()->Title, "Found");
  EXPECT_EQ(server_.LastQuery(), "q=cats%20and%20dogs");
}

TEST_F(OwnPageTest, AServiceThatCannotBeReachedIsSaid) {
  service_ = "http://does-not-exist.invalid/?q=%s";
  view_.Go(std::string(kQuery) + "+<cats>");
  EXPECT_EQ(view_.Document()->Title, "Search for <cats>");
  EXPECT_THAT(view_.Body(), HasSubstr("could not be reached"));
  EXPECT_EQ(view_.Count("begin"), 1);
  EXPECT_EQ(view_.Count("complete"), 1);
}

TEST_F(OwnPageTest, TheSearchFieldOfThePageSearches) {
  server_.Page("/find", "<title>Found</title>");
  service_ = server_.Url("/find?q=%s");
  view_.Go(kHomePage);
  view_.Focus();
  view_.EvaluateInPage("document.forms[0].q.value = 'a+b \"c\"'; document.forms[0].q.focus(); 1");
  view_.Key(GDK_KEY_Return);
  ASSERT_TRUE(WaitUntil([&] { return !view_->Busy() && view_.Document()->Title == "Found"; }));
  EXPECT_EQ(server_.LastQuery(), "q=a%2Bb%20%22c%22");
}

TEST_F(OwnPageTest, AnUnknownOwnPageIsAProblem) {
  view_.Go("corvane://nowhere/");
  EXPECT_THAT(view_.Document()->Title, HasSubstr("not found"));
}

TEST_F(OwnPageTest, PagesOfTheNetworkCannotGoToOwnPages) {
  server_.Page("/",
               "<title>A</title><script>setTimeout(() => { location = 'corvane://home/cv/'; "
               "setTimeout(() => document.title = 'stayed', 100) })</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "stayed"; }));
  EXPECT_EQ(view_->LocationURL(), server_.Url());
}

TEST_F(OwnPageTest, PagesOfTheNetworkCannotFrameOwnPages) {
  server_.Page("/", "<title>A</title><iframe src='corvane://home/cv/'></iframe>");
  view_.Go(server_.Url());
  for (const auto& frame : view_.Document()->frames)
    EXPECT_THAT(frame->Title, Not(HasSubstr("Corvane")));
}

TEST_F(OwnPageTest, PagesOfTheNetworkCannotFetchOwnPages) {
  server_.Page("/",
               "<title>A</title><script>fetch('corvane://home/cv/').then("
               "() => document.title = 'read', () => document.title = 'refused')</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") != "A"; }));
  EXPECT_EQ(view_.EvaluateInPage("document.title"), "refused");
}

TEST_F(OwnPageTest, ARedirectCannotLeadToOwnPages) {
  server_.Redirect("/", "corvane://home/cv/");
  view_.Go(server_.Url());
  EXPECT_NE(view_->LocationURL(), kHomePage);
  EXPECT_NE(view_.Document()->Title, "Corvane home page");
}

TEST_F(OwnPageTest, PagesOfTheNetworkCannotReachFiles) {
  const test::TemporaryFolder folder;
  const std::string uri = "file://" + folder.Write("secret.html", "<title>Secret</title>secret");
  server_.Page("/", "<title>A</title><iframe src='" + uri + "'></iframe><script>fetch('" + uri +
                        "').then(() => document.title = 'read', () => { document.title = 'refused';"
                        " location = '" +
                        uri + "'; })</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") != "A"; }));
  EXPECT_EQ(view_.EvaluateInPage("document.title"), "refused");
  EXPECT_EQ(view_->LocationURL(), server_.Url());
  for (const auto& frame : view_.Document()->frames) EXPECT_NE(frame->Title, "Secret");
}

TEST_F(OwnPageTest, OnlyRealPagesEnterTheHistory) {
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  view_.Go(kHomePage);
  view_.Go("about:blank");
  view_.Go("http://does-not-exist.invalid/");
  EXPECT_THAT(visited_, testing::ElementsAre(server_.Url() + " A"));
}

TEST_F(OwnPageTest, CookiesOutliveTheEngine) {
  const test::TemporaryFolder folder;
  EngineOptions options = Options();
  options.ephemeral = false;
  options.data_directory = folder / "data";
  options.cache_directory = folder / "cache";
  server_.Page("/set", "<title>Set</title>", "text/html",
               {{"Set-Cookie", "kept=yes; Max-Age=9999"}});
  server_.Page("/get", "<script>document.title = document.cookie</script>");
  {
    WebEngine engine(options);
    TestView view(engine);
    view.Go(server_.Url("/set"));
    EXPECT_EQ(view.Document()->Title, "Set");
  }
  {
    WebEngine engine(options);
    TestView view(engine);
    view.Go(server_.Url("/get"));
    EXPECT_EQ(view.Document()->Title, "kept=yes");
    engine.ClearSiteData();
    EXPECT_TRUE(WaitUntil([&] { return view.EvaluateInPage("document.cookie").empty(); }));
  }
}

TEST_F(OwnPageTest, SavingWritesTheWholePage) {
  const test::TemporaryFolder folder;
  const std::string path = folder / "saved.mhtml";
  std::string proposed;
  WebEngine engine(Options());
  TestView view(engine);
  view.files = [&](const FileRequest& request) {
    EXPECT_EQ(request.kind, FileRequest::Kind::Save);
    proposed = request.name;
    request.chosen({path});
  };
  server_.Page("/", "<title>My page</title>kept");
  view.Go(server_.Url());
  view->Save();
  ASSERT_TRUE(WaitUntil([&] { return view.HasStatus("Saved as " + path); }));
  EXPECT_THAT(proposed, HasSubstr("/My page.mhtml"));
  EXPECT_THAT(test::ContentOf(path), HasSubstr("kept"));
}

TEST_F(OwnPageTest, ASaveThatFailsIsSaid) {
  WebEngine engine(Options());
  TestView view(engine);
  view.files = [](const FileRequest& request) { request.chosen({"/proc/no/such.mhtml"}); };
  server_.Page("/", "<title>A</title>");
  view.Go(server_.Url());
  view->Save();
  EXPECT_TRUE(WaitUntil([&] { return view.HasStatus("could not be saved"); }));
}

}  // namespace
}  // namespace corvane::desktop
