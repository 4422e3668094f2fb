// Documents (PDF) as pages, against the real engine and the real program that reads them.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/web/files/downloads.h"
#include "tests/platform/web/asking.h"
#include "tests/platform/web/page_harness.h"
#include "tests/temporary_folder.h"
#include "web/address/OwnAddress.h"

namespace corvane::desktop {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kPdf = "application/pdf";

std::string DocumentOf(const std::string& name) {
  return test::ContentOf(std::string(CORVANE_DOCUMENTS) + "/" + name + ".pdf");
}

// Of this program alone: others come to documents at the same time.
const test::TemporaryFolder temporary;
[[maybe_unused]] const bool is_set = g_setenv("TMPDIR", temporary.Path().c_str(), TRUE);

/// The folders that documents come to.
std::vector<std::string> PrivateFolders() {
  std::vector<std::string> folders;
  for (const auto& entry : std::filesystem::directory_iterator(temporary.Path())) {
    const std::string name = entry.path().filename();
    if (name.starts_with("corvane-document-")) folders.push_back(name);
  }
  return folders;
}

class DocumentTest : public testing::Test {
 protected:
  EngineOptions Options() {
    EngineOptions options = TestOptions();
    options.questions = asking_;
    options.download_folder = root_ / "downloads";
    options.page_visited = [this](const std::string& address, const std::string& title) {
      visited_.push_back(address + " " + title);
    };
    return options;
  }
  DocumentTest() {
    server_.Page("/", "<title>A</title><a href=/tagged.pdf>Hours</a>");
    for (const char* name : {"tagged", "report", "locked", "scanned", "by_hand", "broken"}) {
      server_.Page(std::string("/") + name + ".pdf", DocumentOf(name), kPdf);
    }
  }
  std::string Title() { return view_.Document() ? view_.Document()->Title : ""; }
  std::string Address(const std::string& name) { return server_.Url("/" + name + ".pdf"); }

  /// Goes back or forward, or loads again, and waits for what comes.
  void Do(void (Browser::*what)()) {
    (*view_.operator->().*what)();
    view_.WaitIdle();
  }

  /// Goes there; whether the engine then waits for the page of that document.
  bool Awaits(const std::string& address) {
    view_->Navigate(address);
    return WaitUntil(
        [&] { return webkit_web_view_get_uri(view_.View()) == DocumentPage(address); });
  }

  const test::TemporaryFolder root_;
  std::vector<std::string> visited_;
  std::shared_ptr<Asking> asking_ = std::make_shared<Asking>();
  WebEngine engine_{Options()};
  TestServer server_;
  TestView view_{engine_};
};

TEST_F(DocumentTest, ADocumentOpensAsAPageUnderItsOwnAddress) {
  view_.Go(server_.Url());
  view_.log.clear();
  view_.Go(Address("tagged"));
  EXPECT_EQ(Title(), "Opening hours & more");
  EXPECT_EQ(view_->LocationURL(), Address("tagged"));
  EXPECT_EQ(view_.Document()->location, Address("tagged"));
  EXPECT_THAT(view_.Body(), HasSubstr("not on Sundays and holidays."));
  EXPECT_THAT(asking_->asked, IsEmpty());
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
  EXPECT_EQ(server_.Requests("/tagged.pdf"), 1);
  EXPECT_THAT(visited_, Contains(Address("tagged") + " Opening hours & more"));
}

TEST_F(DocumentTest, ALinkLeadsToADocument) {
  view_.Go(server_.Url());
  view_.RunInPage("document.links[0].click()");
  ASSERT_TRUE(WaitUntil([&] { return Title() == "Opening hours & more"; }));
  view_.WaitIdle();
  EXPECT_EQ(view_->LocationURL(), Address("tagged"));
}

TEST_F(DocumentTest, APageThatAsksBeforeItIsLeftForADocumentAsksOnce) {
  server_.Page("/",
               "<title>A</title><input autofocus><a href=/tagged.pdf>Hours</a>"
               "<script>onbeforeunload = event => event.preventDefault()</script>");
  view_.Go(server_.Url());
  view_.Focus();
  view_.Key(GDK_KEY_Tab);
  view_.Key(GDK_KEY_a);
  asking_->replies = {{0, {}}};
  view_->Navigate(Address("tagged"));
  ASSERT_TRUE(WaitUntil([&] { return Title() == "Opening hours & more"; }));
  EXPECT_EQ(asking_->asked.size(), 1U);
}

TEST_F(DocumentTest, ADocumentWithAVeryLongAddressOpens) {
  view_.Go(server_.Url());
  view_.RunInPage("location = '/tagged.pdf?' + 'a'.repeat(30000)");
  ASSERT_TRUE(WaitUntil([&] { return Title() == "Opening hours & more"; }));
}

TEST_F(DocumentTest, BackAndForwardFindTheDocumentInTheHistory) {
  server_.Page("/c", "<title>C</title>");
  view_.Go(server_.Url());
  view_.Go(Address("tagged"));
  view_.Go(server_.Url("/c"));
  Do(&Browser::GoBack);
  EXPECT_EQ(Title(), "Opening hours & more");
  EXPECT_EQ(view_->LocationURL(), Address("tagged"));
  Do(&Browser::GoBack);
  EXPECT_EQ(Title(), "A");
  EXPECT_FALSE(webkit_web_view_can_go_back(view_.View()));
  Do(&Browser::GoForward);
  EXPECT_EQ(Title(), "Opening hours & more");
  Do(&Browser::GoForward);
  EXPECT_EQ(Title(), "C");
  EXPECT_FALSE(webkit_web_view_can_go_forward(view_.View()));
}

TEST_F(DocumentTest, RefreshFetchesItAgain) {
  view_.Go(server_.Url());
  view_.Go(Address("tagged"));
  server_.Page("/tagged.pdf", DocumentOf("by_hand"), kPdf);
  Do(&Browser::Refresh);
  EXPECT_EQ(Title(), "Bericht");
  EXPECT_EQ(view_->LocationURL(), Address("tagged"));
  Do(&Browser::GoBack);
  EXPECT_EQ(Title(), "A");
}

TEST_F(DocumentTest, WhatHasBecomeAnOrdinaryPageIsShownAsOne) {
  view_.Go(Address("tagged"));
  server_.Page("/tagged.pdf", "<title>Moved</title>");
  Do(&Browser::Refresh);
  EXPECT_EQ(Title(), "Moved");
  EXPECT_EQ(view_->LocationURL(), Address("tagged"));
}

TEST_F(DocumentTest, LinksWithinTheDocumentLeadToTheirPlace) {
  view_.Go(Address("report"));
  ASSERT_EQ(view_.Document()->links.size(), 3U);
  const std::string place = view_.Document()->links[0]->href;
  EXPECT_EQ(place, Address("report") + "#page=3,1");
  EXPECT_EQ(view_.Document()->links[2]->href, "https://example.org/");
  ASSERT_TRUE(view_->GoToPlace(place));
  ASSERT_TRUE(WaitUntil([&] { return !view_.places.empty(); }));
  EXPECT_EQ(view_.places[0].words, "Second part");
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == place; }));
  EXPECT_EQ(server_.Requests("/report.pdf"), 1);
  view_->GoBack();
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == Address("report"); }));
  view_.WaitIdle();
  EXPECT_EQ(server_.Requests("/report.pdf"), 1);
}

TEST_F(DocumentTest, AnAddressMayNameThePage) {
  view_.Go(Address("report") + "#page=3");
  EXPECT_EQ(Title(), "Yearly report");
  EXPECT_EQ(view_->LocationURL(), Address("report") + "#page=3");
}

TEST_F(DocumentTest, AnAttachmentIsAskedForAsAnyOtherFile) {
  asking_->replies = {{1, {"x.pdf"}}};
  server_.Page("/x.pdf", DocumentOf("tagged"), kPdf,
               {{"Content-Disposition", "attachment; filename=x.pdf"}});
  view_.Go(server_.Url());
  view_.Go(server_.Url("/x.pdf"));
  ASSERT_TRUE(WaitUntil([&] { return !asking_->asked.empty(); }));
  EXPECT_EQ(asking_->asked[0].title, "Download");
  EXPECT_EQ(Title(), "A");
}

TEST_F(DocumentTest, TheDocumentItselfIsSaved) {
  view_.Go(Address("tagged"));
  asking_->replies = {{0, {"hours.pdf"}}};
  view_->Save();
  ASSERT_TRUE(WaitUntil([&] { return !view_.Said().empty(); }));
  ASSERT_TRUE(WaitUntil([&] { return !engine_.GetDownloads().Any(); }));
  EXPECT_EQ(test::ContentOf(root_ / "downloads/hours.pdf"), DocumentOf("tagged"));
  EXPECT_EQ(Title(), "Opening hours & more");
}

TEST_F(DocumentTest, ADocumentOfTheDiskOpensToo) {
  view_.Go("file://" + std::string(CORVANE_DOCUMENTS) + "/scanned.pdf");
  EXPECT_THAT(view_.Body(), HasSubstr("Page 1 is a picture without text."));
  EXPECT_THAT(view_.Body(), HasSubstr("Words after all."));
  EXPECT_EQ(view_->LocationURL(), "file://" + std::string(CORVANE_DOCUMENTS) + "/scanned.pdf");
  Do(&Browser::Refresh);
  EXPECT_THAT(view_.Body(), HasSubstr("Words after all."));
}

TEST_F(DocumentTest, APasswordIsAskedForUntilItIsRight) {
  asking_->replies = {{0, {"wrong"}}, {0, {"open sesame"}}};
  view_.Go(Address("locked"));
  EXPECT_EQ(Title(), "Yearly report");
  ASSERT_EQ(asking_->asked.size(), 2U);
  EXPECT_EQ(asking_->asked[0].text, "The document locked.pdf asks for a password.");
  EXPECT_EQ(asking_->asked[0].fields.at(0).kind, DialogField::Kind::kPassword);
  EXPECT_EQ(asking_->asked[1].text,
            "The password was not right. The document locked.pdf asks for a password.");
}

TEST_F(DocumentTest, WithoutThePasswordAPageSaysSo) {
  asking_->replies = {{1, {""}}};
  view_.Go(server_.Url());
  view_.Go(Address("locked"));
  EXPECT_EQ(Title(), "The document is locked: locked.pdf");
  EXPECT_EQ(view_->LocationURL(), Address("locked"));
  Do(&Browser::GoBack);
  EXPECT_EQ(Title(), "A");
  asking_->replies = {{0, {"open sesame"}}};
  Do(&Browser::GoForward);
  EXPECT_EQ(Title(), "Yearly report");
}

TEST_F(DocumentTest, ABrokenDocumentIsAProblemPage) {
  view_.Go(server_.Url());
  view_.Go(Address("broken"));
  EXPECT_EQ(Title(), "The document cannot be read: broken.pdf");
  EXPECT_THAT(view_.Body(), HasSubstr("is damaged, or it is no PDF document."));
  server_.Page("/broken.pdf", DocumentOf("tagged"), kPdf);
  Do(&Browser::Refresh);
  EXPECT_EQ(Title(), "Opening hours & more");
  Do(&Browser::GoBack);
  EXPECT_EQ(Title(), "A");
}

TEST_F(DocumentTest, StopEndsTheWaitForADocument) {
  server_.StallAfter("/slow.pdf", DocumentOf("tagged").substr(0, 5000), kPdf);
  view_.Go(server_.Url());
  ASSERT_TRUE(Awaits(server_.Url("/slow.pdf")));
  EXPECT_TRUE(view_->Busy());
  ASSERT_TRUE(WaitUntil([] { return !PrivateFolders().empty(); }));
  Do(&Browser::Stop);
  EXPECT_EQ(Title(), "A");
  EXPECT_EQ(view_->LocationURL(), server_.Url());
  EXPECT_TRUE(WaitUntil([] { return PrivateFolders().empty(); }));
  view_.Go(Address("tagged"));
  EXPECT_EQ(Title(), "Opening hours & more");
}

TEST_F(DocumentTest, AnotherPageEndsTheWaitForADocument) {
  server_.StallAfter("/slow.pdf", DocumentOf("tagged").substr(0, 5000), kPdf);
  server_.Page("/c", "<title>C</title>");
  ASSERT_TRUE(Awaits(server_.Url("/slow.pdf")));
  view_.Go(server_.Url("/c"));
  EXPECT_EQ(Title(), "C");
}

TEST_F(DocumentTest, APageOfTheNetworkLeadsToNoDocumentOfTheDisk) {
  const std::string disk = "file://" + std::string(CORVANE_DOCUMENTS) + "/tagged.pdf";
  server_.Page("/bad", "<title>Bad</title>");
  view_.Go(server_.Url("/bad"));
  view_.RunInPage("location = '" + DocumentPage(disk) + "'");
  view_.RunInPage("location = '" + disk + "'");
  view_.RunInPage("const f = document.createElement('iframe'); f.src = '" + DocumentPage(disk) +
                  "'; document.body.append(f)");
  server_.Page("/c", "<title>C</title>");
  view_.Go(server_.Url("/c"));
  EXPECT_THAT(visited_, ElementsAre(server_.Url("/bad") + " Bad", server_.Url("/c") + " C"));
}

/// As if the program that reads documents had fallen to a hostile one.
class FallenDocumentTest : public testing::Test {
 protected:
  EngineOptions OptionsWith(const std::string& script) {
    const std::string program = root_ / "reader";
    std::ofstream(program) << "#!/bin/sh\n" << script << "\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EngineOptions options = TestOptions();
    options.document_program = program;
    return options;
  }
  void Show(const std::string& script) {
    engine_ = std::make_unique<WebEngine>(OptionsWith(script));
    view_ = std::make_unique<TestView>(*engine_);
    server_.Page("/a.pdf", "%PDF-1.7", kPdf);
    view_->Go(server_.Url("/a.pdf"));
  }
  std::string Title() { return view_->Document()->Title; }

  const test::TemporaryFolder root_;
  TestServer server_;
  std::unique_ptr<WebEngine> engine_;
  std::unique_ptr<TestView> view_;
};

TEST_F(FallenDocumentTest, NothingInItsPageRunsOrLoads) {
  server_.Page("/seen", "", "image/png");
  Show("echo '<title>A</title><script>document.title = \"B\"</script><img src=" +
       server_.Url("/seen") + "><body onload=\"document.title = 1\">Text'");
  EXPECT_EQ(Title(), "A");
  EXPECT_THAT(view_->Body(), HasSubstr("Text"));
  EXPECT_EQ(server_.Requests("/seen"), 0);
}

TEST_F(FallenDocumentTest, ItsEndIsToldInWords) {
  Show("kill -SEGV $$");
  EXPECT_EQ(Title(), "The document cannot be read: a.pdf");
  Show("exit 3");
  EXPECT_EQ(Title(), "The document is not read: a.pdf");
  Show("exit 6");
  EXPECT_EQ(Title(), "The document is too big: a.pdf");
  Show("kill -XCPU $$");
  EXPECT_EQ(Title(), "The document takes too long: a.pdf");
}

TEST_F(FallenDocumentTest, APageWithoutEndIsGivenUp) {
  Show("yes");
  EXPECT_EQ(Title(), "The document is too big: a.pdf");
}

TEST_F(FallenDocumentTest, NoProcessOutlivesItsPage) {
  engine_ = std::make_unique<WebEngine>(
      OptionsWith("echo $$ > '" + (root_ / "process") + "'; exec sleep 1000"));
  view_ = std::make_unique<TestView>(*engine_);
  server_.Page("/a.pdf", "%PDF-1.7", kPdf);
  server_.Page("/", "<title>A</title>");
  (*view_)->Navigate(server_.Url("/a.pdf"));
  const auto process = [this] { return test::ContentOf(root_ / "process"); };
  ASSERT_TRUE(WaitUntil([&] { return process().ends_with('\n'); }));
  const pid_t number = std::stoi(process());
  ASSERT_EQ(kill(number, 0), 0);
  view_->Go(server_.Url());
  EXPECT_EQ(Title(), "A");
  EXPECT_TRUE(WaitUntil([&] { return kill(number, 0) != 0; }));
}

TEST_F(FallenDocumentTest, WithoutTheProgramThePageSaysSo) {
  EngineOptions options = TestOptions();
  options.document_program = root_ / "nothing";
  engine_ = std::make_unique<WebEngine>(options);
  view_ = std::make_unique<TestView>(*engine_);
  server_.Page("/a.pdf", "%PDF-1.7", kPdf);
  view_->Go(server_.Url("/a.pdf"));
  EXPECT_EQ(Title(), "The document is not read: a.pdf");
}

}  // namespace
}  // namespace corvane::desktop
