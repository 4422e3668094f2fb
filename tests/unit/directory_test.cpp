#include "explorer/CDirectory.h"

#include "explorer/CExplorer.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

constexpr std::uint32_t kSideBarMask = 0xE0010004U;

struct Directory : ::testing::Test {
  FakeDesktop desktop;
  FakeTreeView tree{desktop, "TreeView1"};
  std::shared_ptr<FakeImageList> large = std::make_shared<FakeImageList>();
  std::shared_ptr<FakeImageList> small = std::make_shared<FakeImageList>();
  CExplorer explorer{desktop};
  FakeShell& shell = desktop.shell;

  void SetUp() override {
    tree.SetImageList(large.get());
    explorer.Init(tree, nullptr, 0, 0, 0);
  }
  std::shared_ptr<CDirectory> Root(const std::string& path, std::uint32_t mask1 = kSideBarMask,
                                   std::uint32_t mask2 = 0) {
    auto root = std::make_shared<CDirectory>(desktop);
    root->Initialize(large, small);
    root->SetPath(path);
    root->Filters(mask1, mask2);
    return root;
  }
  FakeTreeNode& Open(const std::shared_ptr<CDirectory>& root) {
    explorer.SetRoot(root);
    tree.Toggle(*tree.nodes[0]);
    return *tree.nodes[0];
  }
  static std::vector<std::string> Names(const CDirectory& directory) {
    std::vector<std::string> names;
    for (const auto& item : directory.Subdirs()) names.push_back(item->Text());
    return names;
  }
};

TEST_F(Directory, FavoritesAppearWithTheirFolders) {
  shell.Folder("/data/Favorites/News");
  shell.File("/data/Favorites/News/Daily.url").display = "Daily";
  shell.File("/data/Favorites/Weather.url").display = "Weather";
  FakeTreeNode& node = Open(Root("6"));
  EXPECT_EQ(node.text, "Favorites");
  EXPECT_THAT(node.Labels(), ElementsAre("News", "Weather"));
  EXPECT_EQ(node[1].tag, "/data/Favorites/Weather.url");
  tree.Toggle(node[0]);
  EXPECT_THAT(node[0].Labels(), ElementsAre("Daily"));
}

TEST_F(Directory, LabelOfARootEndsWithAZeroCharacter) {
  EXPECT_EQ(Root("6")->Text(), std::string("Favorites\0", 10));
  EXPECT_EQ(Open(Root("6")).text, "Favorites") << "which the tree does not show";
}

TEST_F(Directory, RootCanAlwaysBeOpened) {
  shell.Folder("/data/Favorites").attributes = kAttributeFolder;
  FakeTreeNode& node = Open(Root("/data/Favorites"));
  EXPECT_EQ(node.Children(), 0U);
  EXPECT_TRUE(Root("/data/Favorites")->HasChildren());
}

TEST_F(Directory, ChildCanBeOpenedWhenItsFolderHoldsSomething) {
  shell.Folder("/data/Favorites/full");
  shell.Folder("/data/Favorites/empty").attributes = kAttributeFolder;
  shell.File("/data/Favorites/file");
  const auto items = Root("6")->Subdirs();
  ASSERT_EQ(items.size(), 3U);
  EXPECT_FALSE(items[0]->HasChildren());
  EXPECT_FALSE(items[1]->HasChildren());
  EXPECT_TRUE(items[2]->HasChildren());
}

TEST_F(Directory, ItemsWithNoneOfTheMaskAreNotShown) {
  shell.File("/data/Favorites/plain").attributes = 0x00000001U;
  EXPECT_THAT(Open(Root("6")).Labels(), IsEmpty());
}

TEST_F(Directory, ItemsMustShareABitWithEachMask) {
  shell.File("/data/Favorites/file").attributes = kAttributeFileSystem;
  shell.File("/data/Favorites/link").attributes = kAttributeFileSystem | kAttributeLink;
  EXPECT_THAT(Names(*Root("6", kSideBarMask, kAttributeLink)), ElementsAre("link"));
  EXPECT_THAT(Names(*Root("6", kAttributeFileSystem, kAttributeLink)), IsEmpty())
      << "only what the first mask asks for is known";
}

TEST_F(Directory, SecondMaskOfZeroIsTheFirst) {
  shell.File("/data/Favorites/file").attributes = kAttributeFileSystem;
  EXPECT_THAT(Names(*Root("6", kAttributeFileSystem, 0)), ElementsAre("file"));
  EXPECT_THAT(Names(*Root("6", kAttributeLink, 0)), IsEmpty());
}

TEST_F(Directory, ChildrenTakeOverTheMasks) {
  shell.Folder("/data/Favorites/f");
  shell.File("/data/Favorites/f/file").attributes = kAttributeFileSystem;
  shell.Folder("/data/Favorites/f/g");
  const auto items = Root("6", kAttributeFolder | kAttributeHasSubFolder)->Subdirs();
  ASSERT_EQ(items.size(), 1U);
  EXPECT_THAT(Names(*items[0]), ElementsAre("g"));
}

TEST_F(Directory, ItemsWhoseAttributesCannotBeReadAreSkipped) {
  shell.File("/data/Favorites/broken").attributes = std::nullopt;
  shell.File("/data/Favorites/good");
  EXPECT_THAT(Names(*Root("6")), ElementsAre("good"));
}

TEST_F(Directory, HiddenItemsAreShown) {
  shell.File("/data/Favorites/.hidden");
  EXPECT_THAT(Names(*Root("6")), ElementsAre(".hidden"));
}

TEST_F(Directory, WhatCannotBeFoundHasNoName) {
  for (const char* path : {"99", "/nowhere", "relative", "999999999999"}) {
    const auto root = Root(path);
    EXPECT_EQ(root->Text(), "") << path;
    EXPECT_EQ(root->IconIndex(), 0);
    EXPECT_THAT(root->Subdirs(), IsEmpty());
    EXPECT_TRUE(root->HasChildren());
    EXPECT_EQ(root->ItemData(), path);
  }
}

TEST_F(Directory, DesktopItselfIsARootToo) {
  const auto root = Root("0");
  EXPECT_EQ(root->Text(), std::string("Desktop\0", 8));
  EXPECT_THAT(Names(*root), ElementsAre("data"));
}

TEST_F(Directory, NameIsWhatFollowsTheLastSeparator) {
  EXPECT_EQ(Root("/data/Favorites")->name(), "Favorites");
  EXPECT_EQ(Root("34")->name(), "34");
  EXPECT_EQ(Root("/data/")->name(), "/data/");
  desktop.files.separator = '\\';
  EXPECT_EQ(Root("C:\\")->name(), "C:\\");
  EXPECT_EQ(Root("C:\\Users")->name(), "Users");
}

TEST_F(Directory, FilesAreThoseThatAreNoFolders) {
  shell.Folder("/data/Favorites/folder");
  shell.File("/data/Favorites/a.url");
  shell.File("/data/Favorites/b");
  shell.File("/data/Favorites/.hidden");
  EXPECT_THAT(Root("/data/Favorites")->Files(), ElementsAre("a.url", "b"));
  EXPECT_THAT(Root("/nowhere")->Files(), IsEmpty());
}

TEST_F(Directory, SystemTellsTypesAndIcons) {
  const auto root = Root("6");
  EXPECT_EQ(root->GetFileTypeName("/x.txt"), "type of /x.txt");
  root->GetIcon("/x.txt", kIconSmall);
  EXPECT_THAT(shell.icons_fetched, ElementsAre(std::make_pair("/x.txt", kIconSmall)));
}

TEST_F(Directory, UserChoosesAFolderInFrontOfItsOwner) {
  const auto root = Root("6");
  auto& dialog = desktop.file_dialogs;
  std::optional<std::string> chosen;
  const auto choose = [&] {
    root->GetFolder(77, "Where to?", [&](const std::string& path) { chosen = path; });
  };
  choose();
  EXPECT_EQ(dialog.kind, FileDialog::Kind::Folder);
  EXPECT_EQ(dialog.record.owner, 77U);
  EXPECT_EQ(dialog.record.title, "Where to?");
  EXPECT_EQ(chosen, std::nullopt) << "nobody waits for the user";
  dialog.Choose(std::string("/home/ann\0\0", 11));
  EXPECT_EQ(chosen, "/home/ann");
  choose();
  dialog.Cancel();
  EXPECT_EQ(chosen, "");
}

TEST_F(Directory, NothingCanBeRenamedOrDeleted) {
  const auto root = Root("6");
  try {
    root->Delete();
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 999);
    EXPECT_EQ(error.Source(), "CDirectory");
    EXPECT_EQ(error.Description(), "Unable to delete this object");
  }
  try {
    root->SetText("new");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 999);
    EXPECT_EQ(error.Description(), "Unable to delete this object") << "for all that is refused";
  }
  EXPECT_EQ(root->Text(), std::string("Favorites\0", 10));
}

TEST_F(Directory, RefusedNameAndRefusedDeleteChangeNothingInTheTree) {
  FakeTreeNode& node = Open(Root("6"));
  explorer.AllowRename = explorer.AllowDelete = true;
  tree.selected = &node;
  tree.StartLabelEdit();
  tree.EditLabel("new");
  tree.Press(kKeyDelete);
  ASSERT_EQ(tree.nodes.size(), 1U);
  EXPECT_EQ(tree.nodes[0]->text, "Favorites");
}

// Icons -----------------------------------------------------------------------------

TEST_F(Directory, ItemsWithOneSystemImageShareOneEntry) {
  shell.File("/data/Favorites/a", 3);
  shell.File("/data/Favorites/b", 3);
  shell.File("/data/Favorites/c", 7);
  shell.File("/data/Favorites/d", 0);
  const auto items = Root("6")->Subdirs();
  EXPECT_EQ(items[0]->IconIndex(), 1);
  EXPECT_EQ(items[1]->IconIndex(), 1);
  EXPECT_EQ(items[2]->IconIndex(), 2);
  EXPECT_EQ(items[3]->IconIndex(), 0);
  ASSERT_EQ(large->Count(), 2);
  EXPECT_EQ(small->Count(), 2);
  EXPECT_EQ(large->Key(1), "3K");
  EXPECT_EQ(small->Key(2), "7K");
}

TEST_F(Directory, EachIconIsFetchedOnceInBothSizesWithAPauseAfterEach) {
  shell.File("/data/Favorites/a", 3);
  shell.File("/data/Favorites/b", 3);
  Root("6")->Subdirs();
  EXPECT_THAT(shell.icons_fetched, ElementsAre(std::make_pair("/data/Favorites/a", kIconLarge),
                                               std::make_pair("/data/Favorites/a", kIconSmall)));
  EXPECT_THAT(desktop.pauses, ElementsAre(25, 25));
}

TEST_F(Directory, LastOfSeveralImagesWithOneKeyWins) {
  large->Add("3K", nullptr);
  large->Add("3K", nullptr);
  shell.File("/data/Favorites/a", 3);
  EXPECT_EQ(Root("6")->Subdirs()[0]->IconIndex(), 2);
}

TEST_F(Directory, RootHasItsIcon) {
  shell.entries["/data/Favorites"].image = 5;
  EXPECT_EQ(Root("6")->IconIndex(), 1);
  EXPECT_EQ(Open(Root("6")).image, 1);
}

TEST_F(Directory, IconIsAskedForAgainWhileThereIsNone) {
  shell.File("/data/Favorites/a", 0);
  const auto items = Root("6")->Subdirs();
  EXPECT_EQ(items[0]->IconIndex(), 0);
  shell.entries["/data/Favorites/a"].image = 4;
  EXPECT_EQ(items[0]->IconIndex(), 1);
}

TEST_F(Directory, FilesOfOneExtensionShareAnImageButProgramsHaveTheirOwn) {
  IconCache cache(desktop, large, small);
  const int text = cache.IndexOfFile("/a/one.txt", false);
  EXPECT_EQ(cache.IndexOfFile("/b/two.TXT", false), text);
  EXPECT_EQ(large->Key(text), "TXTk");
  EXPECT_EQ(large->Tag(text), "type of /a/one.txt");
  EXPECT_EQ(small->Tag(1), "");
  const int one = cache.IndexOfFile("/a/one.exe", false);
  const int two = cache.IndexOfFile("/a/two.exe", false);
  EXPECT_NE(one, two);
  EXPECT_EQ(large->Key(one), "/A/ONE.EXEk");
  EXPECT_EQ(large->Key(cache.IndexOfFile("/a/one.dll", false)), "/A/ONE.DLLk");
  EXPECT_EQ(large->Key(cache.IndexOfFile("/a/one.ico", false)), "/A/ONE.ICOk");
  EXPECT_EQ(large->Key(cache.IndexOfFile("/a/one.ocx", false)), "/A/ONE.OCXk");
  EXPECT_EQ(large->Key(cache.IndexOfFile("/a/folder.txt", true)), "DIRk");
  EXPECT_EQ(large->Key(cache.IndexOfFile("/a.b/none", false)), "k");
}

TEST_F(Directory, EventsRunWhileAFolderIsRead) {
  for (int i = 0; i < 10; ++i) shell.File("/data/Favorites/" + std::to_string(i));
  const auto root = Root("6");
  const int before = desktop.yields;
  root->Subdirs();
  EXPECT_GE(desktop.yields - before, 10);
}

}  // namespace
}  // namespace corvane::tests
