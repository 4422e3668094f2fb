#include "tests/platform/access/access_fixture.h"

namespace corvane::desktop {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class PageElements : public AccessTest {
 protected:
  AccessiblePtr Show(const std::string& body) {
    server_.Page("/page.html", "<!doctype html><title>Elements</title><body>" + body);
    server_.Page("/next.html", "<title>Next</title><p>You followed it.");
    Go(server_.Url("/page.html"));
    return FetchPage();
  }
  /// Lets the page change itself after its tree has been fetched.
  void Run(const std::string& script) {
    bool over = false;
    webkit_web_view_evaluate_javascript(
        WEBKIT_WEB_VIEW(browser_->widget().gobj()), script.c_str(), -1, nullptr, nullptr, nullptr,
        +[](GObject*, GAsyncResult*, gpointer flag) { *static_cast<bool*>(flag) = true; }, &over);
    ASSERT_TRUE(WaitUntil([&] { return over; }));
  }
};

TEST_F(PageElements, HeadingsLinksFieldsAndPicturesOfThePageAreThere) {
  const auto page = Show(R"(<h1>The news</h1><p>Some <b>bold</b> words.</p>
      <a href="/next.html">Read on</a>
      <form><label for=n>Your name</label> <input id=n value="Ada">
      <input type=password aria-label=Secret value=hidden>
      <input type=checkbox checked aria-label="Agree"><button>Send</button></form>
      <img alt="A flower" src="data:image/gif;base64,R0lGODlhAQABAAAAACw=" width=20 height=20>)");
  EXPECT_EQ(page->Role({}), 15);
  EXPECT_EQ(page->Text(AccessibleText::Name, {}), "Elements");
  const auto all = Listed(page);
  EXPECT_THAT(all, Contains("heading: The news"));
  EXPECT_THAT(all, Contains("text: Some bold words."));
  EXPECT_THAT(all, Contains("link: Read on = " + server_.Url("/next.html")));
  EXPECT_THAT(all, Contains("editable text: Your name = Ada"));
  EXPECT_THAT(all, Contains("editable text: Secret"));  // a password is nobody's to hear
  EXPECT_THAT(all, Contains("check box: Agree"));
  EXPECT_THAT(all, Contains("push button: Send"));
  EXPECT_THAT(all, Contains("graphic: A flower"));
  EXPECT_THAT(said_, IsEmpty());
}

TEST_F(PageElements, StatesAreTheProducts) {
  const auto page = Show(R"(<input type=checkbox checked aria-label="On">
      <input type=checkbox aria-label="Off"><button disabled>Dead</button>)");
  constexpr std::uint32_t kChecked = 0x10;
  constexpr std::uint32_t kUnavailable = 0x1;
  EXPECT_EQ(Named(page, "On")->State({}) & kChecked, kChecked);
  EXPECT_EQ(Named(page, "Off")->State({}) & kChecked, 0U);
  EXPECT_EQ(Named(page, "Dead")->State({}) & kUnavailable, kUnavailable);
  EXPECT_EQ(Named(page, "On")->State({}) & kStateInvisible, 0U);
}

TEST_F(PageElements, LinkIsFollowedByItsDefaultAction) {
  const auto page = Show(R"(<a href="/next.html">Read on</a>)");
  const auto link = Named(page, "Read on");
  ASSERT_TRUE(link);
  link->Select(kSelectTakeFocus, {});
  link->DoDefaultAction({});
  EXPECT_TRUE(WaitUntil(
      [&] { return browser_->LocationURL() == server_.Url("/next.html") && !browser_->Busy(); }));
  EXPECT_EQ(Listed(FetchPage()).at(0), "text: You followed it.");
}

TEST_F(PageElements, ElementsSayWhereTheyAre) {
  const auto page = Show(R"(<button style="width:200px;height:50px">Big</button>)");
  const auto place = Named(page, "Big")->Location({});
  EXPECT_EQ(place.width, 200);
  EXPECT_EQ(place.height, 50);
}

TEST_F(PageElements, ParentsLeadThroughTheWindowToTheDesktop) {
  const auto page = Show(R"(<p><a href="/next.html">Read on</a></p>)");
  const auto link = Named(page, "Read on");
  AccessiblePtr top;
  access_().FindTopParent(link, 0, top);
  ASSERT_TRUE(top);
  EXPECT_EQ(top->Role({}), 9);
  EXPECT_EQ(top->Text(AccessibleText::Name, {}), "Elements");
  EXPECT_EQ(access_().hWndFromAccessibleObject(link), browser_->hwnd());
  EXPECT_EQ(access_().hWndFromAccessibleObject(top), top_);
  AccessiblePtr dialog;
  access_().FindParentDialog(link, 0, dialog);
  EXPECT_EQ(dialog, nullptr);
}

TEST_F(PageElements, OwnWindowsAreFoundFromTheDesktopDownToThePage) {
  Show(R"(<h1>The news</h1>)");
  const auto desktop = accessibility_->ObjectFromWindow(0, kObjectClient);
  EXPECT_EQ(desktop->Text(AccessibleText::Name, {}), "Desktop");
  const auto window = Named(desktop, "Elements");
  ASSERT_TRUE(window);
  EXPECT_TRUE(Named(window, "The news"));
  EXPECT_EQ(accessibility_->ObjectFromWindow(987654, kObjectClient), nullptr);
}

TEST_F(PageElements, TextOfThePageIsItsLeaves) {
  const auto page = Show(R"(<h1>The news</h1><p>Nothing happened.</p>
                            <input aria-label="Name" value="Ada">)");
  std::string text;
  access_().GetBottomChildrenInfo(page, {}, false, 0, text);
  EXPECT_EQ(text, "The news.\r\nNothing happened..\r\nAda.\r\n");
}

TEST_F(PageElements, APageThatIsNotOpenedIsNotAskedAnything) {
  server_.Page("/page.html", "<!doctype html><title>Elements</title><p>One<p>Two<p>Three");
  Go(server_.Url("/page.html"));
  AccessiblePtr page;
  ASSERT_TRUE(WaitUntil([&] {
    bool done = false;
    const auto fetching =
        accessibility_->Fetch({browser_->hwnd()}, Accessibility::Depth::Top, [&] { done = true; });
    EXPECT_TRUE(WaitUntil([&] { return done; }));
    page = accessibility_->ObjectFromWindow(browser_->hwnd(), kObjectClient);
    return page != nullptr;
  }));
  EXPECT_EQ(page->Role({}), kRoleDocument);
  EXPECT_EQ(page->Text(AccessibleText::Name, {}), "") << "its title was not asked for";
  EXPECT_GT(page->ChildCount(), 0);
  std::vector<std::string> names;
  const auto read = [&](int from, int most) {
    bool done = false;
    names.clear();
    const auto fetching = accessibility_->FetchChildren(page, from, most, [&](const auto& some) {
      for (const auto& each : some) names.push_back(each.object->Text(AccessibleText::Name, {}));
      done = true;
    });
    EXPECT_TRUE(WaitUntil([&] { return done; }));
  };
  read(0, 2);
  EXPECT_THAT(names, ::testing::ElementsAre("One", "Two"));
  read(2, 2);
  EXPECT_THAT(names, ::testing::ElementsAre("Three"));
  read(3, 2);
  EXPECT_THAT(names, IsEmpty());
  read(0, 2);
  bool given_up = true;
  {
    const auto fetching =
        accessibility_->FetchChildren(page, 0, 2, [&](const auto&) { given_up = false; });
  }
  read(0, 2);
  EXPECT_TRUE(given_up);
}

TEST_F(PageElements, ChildrenAreThoseOfTheMomentWhenTheyAreAskedFor) {
  const auto page = Show(R"(<div role=list id=l aria-label=Fruit><p>Apple</p><p>Pear</p></div>)");
  const auto list = Named(page, "Fruit");
  ASSERT_TRUE(list);
  Run("document.querySelector('p').remove(); document.querySelector('p').textContent = 'Plum'");
  EXPECT_TRUE(WaitUntil([&] {
    const auto all = Listed(list);
    return all == std::vector<std::string>{"text: Plum"};
  })) << ::testing::PrintToString(Listed(list));
}

TEST_F(PageElements, ChildrenThatCameSinceTheTreeWasFetchedAreAmongThem) {
  const auto page = Show(R"(<div role=list id=l aria-label=Fruit><p>Apple</p><p>Pear</p></div>)");
  const auto list = Named(page, "Fruit");
  ASSERT_TRUE(list);
  Run("for (const name of ['Plum', 'Fig'])"
      " l.appendChild(document.createElement('p')).textContent = name");
  EXPECT_TRUE(WaitUntil([&] {
    const auto all = Listed(list);
    return all == std::vector<std::string>{"text: Apple", "text: Pear", "text: Plum", "text: Fig"};
  })) << ::testing::PrintToString(Listed(list));
}

TEST_F(PageElements, ProcessThatDiesLeavesWhatWasFetched) {
  const auto page = Show(R"(<h1>The news</h1><a href="/next.html">Read on</a>)");
  const auto link = Named(page, "Read on");
  TestView::KillPageProcesses();
  ASSERT_TRUE(
      WaitUntil([&] { return !browser_->Busy() && browser_->LocationName() != "Elements"; }));
  link->DoDefaultAction({});
  link->Select(kSelectTakeFocus, {});
  EXPECT_EQ(link->Text(AccessibleText::Name, {}), "Read on");
  link->Text(AccessibleText::DefaultAction, {});
  link->Location({});
  EXPECT_THAT(Listed(page), Contains("heading: The news"));
  EXPECT_THAT(Listed(FetchPage()), Not(Contains("heading: The news")));
}

TEST_F(PageElements, TenThousandElementsAreFetchedWhole) {
  std::string body;
  for (int i = 1; i <= 5000; ++i) {
    body += "<p><a href='/n/" + std::to_string(i) + "'>Link " + std::to_string(i) + "</a></p>";
  }
  const auto page = Show(body);
  EXPECT_EQ(page->ChildCount(), 5000);
  const auto children = page->Children(5000);
  ASSERT_EQ(children.size(), 5000U);
  const auto last = children.back().object->Children(1).at(0).object;
  EXPECT_EQ(last->Text(AccessibleText::Name, {}), "Link 5000");
  EXPECT_EQ(last->Text(AccessibleText::Value, {}), server_.Url("/n/5000"));
}

TEST_F(PageElements, RequestThatIsGivenUpIsNeverDone) {
  Show("<p>Some text</p>");
  bool done = false;
  {
    const auto fetching =
        accessibility_->Fetch({browser_->hwnd()}, Accessibility::Depth::All, [&] { done = true; });
  }
  FetchOnce();
  EXPECT_FALSE(done);
}

}  // namespace
}  // namespace corvane::desktop
