#include "explorer/CExplorer.h"
#include "explorer/CHTMLStructure.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

HTMLElementPtr Element(const std::string& text, const std::string& href = "",
                       const std::string& name = "") {
  auto element = std::make_shared<HTMLElement>();
  element->innerText = text;
  element->href = href;
  element->name = name;
  return element;
}

struct PageStructure : ::testing::Test {
  FakeDesktop desktop;
  FakeTreeView tree{desktop, "TreeView1"};
  FakeImageList images;
  CExplorer explorer{desktop};
  HTMLDocumentPtr page = std::make_shared<HTMLDocument>();

  void SetUp() override {
    for (int i = 1; i <= 10; ++i) images.Add("", nullptr);
    tree.SetImageList(&images);
    explorer.Init(tree, nullptr, 0, 0, 0);
    page->nameProp = "name";
    page->Title = "title";
    page->location = "http://a/";
  }
  FakeTreeNode& Open() {
    auto root = std::make_shared<CHTMLStructure>(desktop);
    root->setChild({page, {}, 0}, CHTMLStructure::kDocument);
    explorer.SetRoot(root);
    tree.Toggle(*tree.nodes[0]);
    return *tree.nodes[0];
  }
  FakeTreeNode& OpenCollection(std::size_t index) {
    FakeTreeNode& node = Open()[index];
    tree.Toggle(node);
    return node;
  }
  std::shared_ptr<CHTMLStructure> Item(CHTMLStructure::PageObject object,
                                       CHTMLStructure::Kind kind) {
    auto item = std::make_shared<CHTMLStructure>(desktop);
    item->setChild(std::move(object), kind);
    return item;
  }
};

TEST_F(PageStructure, FrameThatReportsItselfWhileTheFramesAreAddedIsSurvived) {
  const auto frame = std::make_shared<HTMLDocument>();
  frame->nameProp = "frame";
  page->frames = {frame, frame};
  FakeTreeNode& frames = Open()[1];
  desktop.on_yield = [&, late = 0]() mutable {
    if (++late <= 20) page->frames.push_back(frame);
  };
  tree.Toggle(frames);
  EXPECT_THAT(frames.Labels(), ElementsAre("frame", "frame")) << "as they were when it was opened";
}

TEST_F(PageStructure, DocumentHasItsFourCollections) {
  page->links = {Element("a", "http://b/"), Element("c", "http://d/")};
  FakeTreeNode& node = Open();
  EXPECT_EQ(node.text, "name");
  EXPECT_THAT(node.Labels(), ElementsAre("Links 2", "Frames 0", "Anchors 0", "Forms 0"));
  EXPECT_EQ(node.image, 1);
  EXPECT_EQ(node[0].image, 2);
  EXPECT_EQ(node[1].image, 4);
  EXPECT_EQ(node[2].image, 6);
  EXPECT_EQ(node[3].image, 8);
}

TEST_F(PageStructure, DocumentWithoutANamePropertyHasItsTitle) {
  page->nameProp = "";
  EXPECT_EQ(Open().text, "title");
}

TEST_F(PageStructure, PageWithoutLinksShowsAZeroThatCannotBeOpened) {
  FakeTreeNode& links = Open()[0];
  EXPECT_EQ(links.text, "Links 0");
  EXPECT_EQ(links.Children(), 0U);
}

TEST_F(PageStructure, LinkWithoutTextIsLabelledWithItsAddress) {
  page->links = {Element("text", "http://b/"), Element("", "http://c/")};
  FakeTreeNode& links = OpenCollection(0);
  EXPECT_THAT(links.Labels(), ElementsAre("text", "http://c/"));
  EXPECT_EQ(links[0].tag, "http://b/");
  EXPECT_EQ(links[0].image, 3);
  EXPECT_EQ(links[0].Children(), 0U);
}

TEST_F(PageStructure, AnchorFallsBackToItsAddressAndItsName) {
  page->anchors = {Element("text", "http://b/", "n"), Element("", "http://c/", "n"),
                   Element("", "", "n"), Element("", "", "")};
  FakeTreeNode& anchors = OpenCollection(2);
  EXPECT_THAT(anchors.Labels(), ElementsAre("text", "http://c/", "n", ""));
  EXPECT_EQ(anchors[3].image, 7);
}

TEST_F(PageStructure, FormWithoutElementsCannotBeOpened) {
  page->forms.resize(1);
  FakeTreeNode& forms = OpenCollection(3);
  EXPECT_EQ(forms.text, "Forms 1");
  EXPECT_THAT(forms.Labels(), ElementsAre("Contents"));
  EXPECT_EQ(forms[0].Children(), 0U);
  EXPECT_EQ(forms[0].image, 9);
}

TEST_F(PageStructure, FieldIsLabelledWithItsNameAndText) {
  page->forms.resize(2);
  page->forms[1].elements = {Element("Name", "", "user"), Element("", "", "q"),
                             Element("Go", "", ""), Element("", "", "")};
  FakeTreeNode& forms = OpenCollection(3);
  tree.Toggle(forms[1]);
  EXPECT_THAT(forms[1].Labels(), ElementsAre(" - user - Name", " - q", " - Go", ""));
  EXPECT_EQ(forms[1][0].image, 10);
}

TEST_F(PageStructure, FrameShowsTheCollectionsOfItsDocument) {
  auto frame = std::make_shared<HTMLDocument>();
  frame->Title = "inner";
  frame->location = "http://other/";
  frame->links = {Element("deep", "http://deep/")};
  page->frames = {frame};
  FakeTreeNode& frames = OpenCollection(1);
  EXPECT_EQ(frames.text, "Frames 1");
  EXPECT_THAT(frames.Labels(), ElementsAre("inner"));
  EXPECT_EQ(frames[0].image, 5);
  tree.Toggle(frames[0]);
  EXPECT_THAT(frames[0].Labels(), ElementsAre("Links 1", "Frames 0", "Anchors 0", "Forms 0"));
  tree.Toggle(frames[0][0]);
  EXPECT_EQ(frames[0][0][0].tag, "http://deep/");
  const auto item =
      std::dynamic_pointer_cast<CHTMLStructure>(explorer.GetItemObject(frames[0][0][0]));
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->Location(), "http://other/") << "the document that the link stands in";
}

TEST_F(PageStructure, EventsRunBeforeEachItemIsMade) {
  page->links = {Element("a"), Element("b"), Element("c")};
  const auto links = Item({page, {}, 0}, CHTMLStructure::kLinks);
  const int before = desktop.yields;
  TreeNode& any = tree.Add(nullptr, "any");
  EXPECT_EQ(links->GetChildren(explorer, any).size(), 3U);
  EXPECT_EQ(desktop.yields - before, 3);
}

TEST_F(PageStructure, NamesCannotBeChangedAndNothingCanBeDeleted) {
  const auto item = Item({page, {}, 0}, CHTMLStructure::kDocument);
  try {
    item->Delete();
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 999);
    EXPECT_EQ(error.Source(), "IExplorerItem");
    EXPECT_EQ(error.Description(), "Unable to delete this object");
  }
  try {
    item->SetText("new");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 999);
    EXPECT_EQ(error.Description(), "Unable to delete this object") << "for all that is refused";
  }
  EXPECT_EQ(item->Text(), "name");
  item->SetIconIndex(9);
  EXPECT_EQ(item->IconIndex(), 1);
  item->SetItemData("x");
  EXPECT_EQ(item->ItemData(), "");
}

TEST_F(PageStructure, TreeStaysAsItWasWhenThePageIsGone) {
  page->links = {Element("kept", "http://b/")};
  FakeTreeNode& node = Open();
  page.reset();
  tree.Toggle(node[0]);
  EXPECT_THAT(node[0].Labels(), ElementsAre("kept"));
}

TEST_F(PageStructure, ObjectThatIsNotThereHasAnEmptyLabel) {
  const auto item = Item({}, CHTMLStructure::kLink);
  EXPECT_EQ(item->Text(), "");
  TreeNode& any = tree.Add(nullptr, "any");
  EXPECT_TRUE(Item({}, CHTMLStructure::kForms)->GetChildren(explorer, any).empty());
}

}  // namespace
}  // namespace corvane::tests
