#include "platform/linux/gtk/dialogs/file_dialog.h"

#include <gdk/gdkkeysyms.h>
#include <glibmm/fileutils.h>
#include <sys/stat.h>

#include <filesystem>
#include <iostream>
#include <optional>

#include "tests/platform/gtk/desktop/desktop_test.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class FileDialogTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    std::filesystem::create_directories(folder_ + "/inner");
    for (const char* name : {"a.html", "b & c.html", "notes.txt"}) {
      Glib::file_set_contents(folder_ + "/" + name, "text");
    }
    record_.initial_dir = folder_;
    record_.flags = kExplorerStyle | kFileMustExist | kEnableHook;
    record_.filter = "Pages (*.htm)|*.htm*";
  }
  void TearDown() override {
    if (HasFailure()) {
      for (const auto& text : spoken_) std::cout << "spoken: " << text << '\n';
    }
    dialog_.reset();
    DesktopTest::TearDown();
  }
  void Show(FileDialog::Kind kind = FileDialog::Kind::Open) {
    dialog_ = std::make_unique<GtkFileDialog>(
        windows_, questions_,
        [this](const std::string& text, GtkWindow*) { spoken_.push_back(text); });
    dialog_->Show(
        kind, record_, [this](const DialogMessage& message) { messages_.push_back(message); },
        [this](const FileDialog::Result& result) { result_ = result; });
    WaitFor("the dialog to speak", [&] { return !spoken_.empty(); });
    Settle();
  }
  void Press(const std::vector<std::string>& keys) {
    std::vector<std::string> command = {"xdotool", "key"};
    command.insert(command.end(), keys.begin(), keys.end());
    Outside(command);
  }
  void TypePath(const std::string& path) {
    Outside({"xdotool", "type", "--delay", "20", path});
    Settle();
  }
  void WaitForSpeech(const std::string& part) {
    WaitFor("the words: " + part, [&] {
      return std::any_of(spoken_.begin(), spoken_.end(),
                         [&](const auto& text) { return text.find(part) != std::string::npos; });
    });
  }
  void WaitForResult() {
    WaitFor("the result", [&] { return result_.has_value(); });
  }
  static std::string UpToNul(const std::string& text) { return text.substr(0, text.find('\0')); }

  const test::TemporaryFolder root_;
  const std::string folder_ = root_ / "my pages";
  OpenFileName record_;
  std::vector<std::string> spoken_;
  std::vector<DialogMessage> messages_;
  std::optional<FileDialog::Result> result_;
  SpokenDialogs questions_{
      windows_, [this](const std::string& text, GtkWindow*) { spoken_.push_back(text); }};
  std::unique_ptr<GtkFileDialog> dialog_;
};

TEST_F(FileDialogTest, SpeaksTitleFolderAndWhereTheFocusIs) {
  Show();
  EXPECT_THAT(spoken_.front(), StartsWith("Open. Folder my pages. "));
  EXPECT_NE(windows_.FindWindow("Open"), 0U);
  EXPECT_EQ(messages_.front().message, kWmInitDialog);
  EXPECT_EQ(windows_.Text(dialog_->Parent(messages_.front().window)), "Open");
}

TEST_F(FileDialogTest, SpeaksTheFilesThatTheArrowsChoose) {
  Show();
  WaitForSpeech("a.html");
  Press({"Down"});
  WaitForSpeech("b & c.html");
  Press({"Down"});
  WaitForSpeech("inner, folder");
  spoken_.clear();
  Press({"Up"});
  WaitForSpeech("b & c.html");
  Press({"Return"});
  WaitForResult();
  EXPECT_TRUE(result_->chosen);
  EXPECT_EQ(UpToNul(result_->record.file), folder_ + "/b & c.html");
  EXPECT_EQ(UpToNul(result_->record.file_title), "b & c.html");
  EXPECT_EQ(result_->record.filter_index, 1);
}

TEST_F(FileDialogTest, AFilterMayNameTypesOfContent) {
  record_.filter = "For the page|text/plain;image/*|All files|*";
  Show();
  const auto filters = dialog_->Chooser()->list_filters();
  ASSERT_EQ(filters.size(), 2U);
  const auto takes = [&](const char* type) {
    GtkFileFilterInfo info = {};
    info.contains = GTK_FILE_FILTER_MIME_TYPE;
    info.mime_type = type;
    return gtk_file_filter_filter(filters[0]->gobj(), &info) != FALSE;
  };
  EXPECT_TRUE(takes("text/plain"));
  EXPECT_TRUE(takes("image/png"));
  EXPECT_FALSE(takes("application/pdf"));
}

TEST_F(FileDialogTest, TheFilterThatIsAskedForIsChosenAndTold) {
  record_.filter = "Pages (*.htm)|*.htm*|Texts (*.txt)|*.txt";
  record_.filter_index = 2;
  Show();
  EXPECT_EQ(dialog_->Chooser()->get_filter()->get_name(), "Texts (*.txt)");
  WaitForSpeech("inner, folder");
  Press({"Down"});
  WaitForSpeech("notes.txt");
  Press({"Return"});
  WaitForResult();
  EXPECT_EQ(UpToNul(result_->record.file), folder_ + "/notes.txt");
  EXPECT_EQ(result_->record.filter_index, 2);
}

TEST_F(FileDialogTest, APathThatIsTooLongForItsBufferIsAFailure) {
  record_.max_file = 10;
  Show();
  WaitForSpeech("a.html");
  Press({"Return"});
  WaitForResult();
  EXPECT_FALSE(result_->chosen);
  EXPECT_EQ(result_->extended_error, 12291);
}

TEST_F(FileDialogTest, TheHelpButtonAndF1AskTheHookForHelp) {
  record_.flags |= kShowHelp;
  Show();
  for (const char* key : {"alt+h", "F1"}) {
    messages_.clear();
    Press({key});
    WaitFor("the question for help", [&] { return !messages_.empty(); });
    EXPECT_EQ(messages_.back().message, kWmNotify) << key;
    EXPECT_EQ(messages_.back().code, kNotifyHelp) << key;
  }
  EXPECT_FALSE(result_.has_value());
}

TEST_F(FileDialogTest, TheOldStyleAsksForHelpWithACommand) {
  record_.flags = kShowHelp | kEnableHook;
  Show();
  EXPECT_EQ(messages_.front().message, kWmInitDialog);
  EXPECT_EQ(dialog_->Parent(messages_.front().window), 0U) << "the hook's window is the dialog";
  Press({"F1"});
  WaitFor("the question for help", [&] { return messages_.size() > 1; });
  EXPECT_EQ(messages_.back().message, kWmCommand);
  EXPECT_EQ(messages_.back().control, kDialogHelp);
}

TEST_F(FileDialogTest, F1SaysWhereTheUserIsWhereThereIsNoHelp) {
  Show();
  spoken_.clear();
  messages_.clear();
  Press({"F1"});
  WaitForSpeech("Open. Folder my pages. ");
  EXPECT_TRUE(messages_.empty());
}

TEST_F(FileDialogTest, AHelpFileThatCannotBeShownIsTold) {
  Show();
  spoken_.clear();
  dialog_->OpenHelp("/nowhere/help.txt", 3, "0");
  WaitForSpeech("The help file /nowhere/help.txt cannot be shown");
}

TEST_F(FileDialogTest, AFolderIsOpenedAndSaid) {
  Show();
  WaitForSpeech("a.html");
  Press({"End"});
  WaitForSpeech("inner, folder");
  Press({"Return"});
  WaitForSpeech("Folder inner");
  spoken_.clear();
  Press({"alt+Up"});
  WaitForSpeech("Folder my pages");
}

TEST_F(FileDialogTest, EveryControlThatTabReachesHasWords) {
  Show();
  for (int i = 0; i < 12; ++i) {
    spoken_.clear();
    Press({"Tab"});
    WaitFor("words for the control " + std::to_string(i), [&] { return !spoken_.empty(); });
    EXPECT_NE(spoken_.front(), "");
  }
}

TEST_F(FileDialogTest, TabLeavesTheNameAndComesBackToIt) {
  Show(FileDialog::Kind::Save);
  EXPECT_THAT(spoken_.back(), HasSubstr("Name, edit box"));
  for (int i = 0; i == 0 || spoken_.back().find("Name, edit box") == std::string::npos; ++i) {
    ASSERT_LT(i, 20);
    spoken_.clear();
    Press({"Tab"});
    WaitFor("words for the control " + std::to_string(i), [&] { return !spoken_.empty(); });
  }
}

TEST_F(FileDialogTest, AFolderIsChosen) {
  Show(FileDialog::Kind::Folder);
  EXPECT_THAT(spoken_.front(), StartsWith("Choose a folder. Folder my pages. "));
  Press({"Left"});
  TypePath(folder_ + "/inner");
  Press({"Return"});
  WaitForResult();
  EXPECT_TRUE(result_->chosen);
  EXPECT_EQ(UpToNul(result_->record.file), folder_ + "/inner");
}

// The toolkit asks for the name of a new folder in a bubble of the dialog.
class NewFolderTest : public FileDialogTest, public testing::WithParamInterface<FileDialog::Kind> {
 protected:
  void GoToName() {
    Show(GetParam());
    for (int i = 0; spoken_.back() != "Create Folder Button"; ++i) {
      ASSERT_LT(i, 20);
      spoken_.clear();
      Press({"Tab"});
      WaitFor("words for the control " + std::to_string(i), [&] { return !spoken_.empty(); });
    }
    Press({"space"});
    WaitForSpeech("Folder Name, edit box, empty");
    spoken_.clear();
  }
};

TEST_P(NewFolderTest, IsMadeAndOpened) {
  GoToName();
  Press({"n", "e", "w", "Return"});
  WaitForSpeech("Folder new");
  EXPECT_TRUE(std::filesystem::is_directory(folder_ + "/new"));
}

TEST_P(NewFolderTest, IsMadeByItsButton) {
  GoToName();
  Press({"n", "e", "w", "Tab"});
  WaitForSpeech("Create Button");
  Press({"space"});
  WaitForSpeech("Folder new");
  EXPECT_TRUE(std::filesystem::is_directory(folder_ + "/new"));
}

TEST_P(NewFolderTest, IsGivenUpWithEscapeAndTheDialogStays) {
  GoToName();
  Press({"n", "Escape"});
  WaitForSpeech("Create Folder Button");
  EXPECT_FALSE(result_);
  Press({"Escape"});
  WaitForResult();
  EXPECT_FALSE(std::filesystem::exists(folder_ + "/n"));
}

TEST_P(NewFolderTest, SaysWhyANameCannotBeTaken) {
  GoToName();
  Press({"i", "n", "n", "e", "r"});
  WaitForSpeech("A folder with that name already exists");
  EXPECT_EQ(spoken_.size(), 1U);
  Press({"s", "Return"});
  WaitForSpeech("Folder inners");
}

INSTANTIATE_TEST_SUITE_P(Kinds, NewFolderTest,
                         testing::Values(FileDialog::Kind::Save, FileDialog::Kind::Folder),
                         [](const auto& kind) {
                           return kind.param == FileDialog::Kind::Save ? "Save" : "Folder";
                         });

TEST_F(FileDialogTest, ATypedPathIsTaken) {
  Show();
  TypePath(folder_ + "/a.html");
  Press({"Return"});
  WaitForResult();
  EXPECT_TRUE(result_->chosen);
  EXPECT_EQ(UpToNul(result_->record.file), folder_ + "/a.html");
}

TEST_F(FileDialogTest, EscapeCancelsAndTellsTheHook) {
  Show();
  Press({"Escape"});
  WaitForResult();
  EXPECT_FALSE(result_->chosen);
  EXPECT_EQ(result_->extended_error, 0);
  EXPECT_EQ(messages_.back().message, kWmCommand);
  EXPECT_EQ(messages_.back().control, kDialogCancel);
  EXPECT_EQ(windows_.FindWindow("Open"), 0U);
}

TEST_F(FileDialogTest, TheHookMovesItAndChangesItsButtons) {
  dialog_ = std::make_unique<GtkFileDialog>(windows_, questions_, nullptr);
  dialog_->Show(
      FileDialog::Kind::Open, record_,
      [this](const DialogMessage& message) {
        if (message.message != kWmInitDialog) return;
        const auto window = dialog_->Parent(message.window);
        auto place = dialog_->WindowRect(window);
        place.left = 120;
        place.top = 30;
        dialog_->MoveWindow(window, place);
        dialog_->HideControl(window, kDialogCancel);
        dialog_->SetControlText(window, kDialogOk, "Select");
      },
      [this](const FileDialog::Result& result) { result_ = result; });
  WaitFor("the dialog", [&] {
    return dialog_->Chooser() && dialog_->Chooser()->property_is_active().get_value();
  });
  Settle();
  auto* chooser = dialog_->Chooser();
  auto* ok = dynamic_cast<Gtk::Button*>(chooser->get_widget_for_response(Gtk::RESPONSE_OK));
  EXPECT_EQ(ok->get_label(), "Select");
  EXPECT_FALSE(chooser->get_widget_for_response(Gtk::RESPONSE_CANCEL)->get_visible());
  int left = 0;
  int top = 0;
  chooser->get_position(left, top);
  EXPECT_EQ(left, 120);
  EXPECT_EQ(top, 30);
  Press({"Escape"});  // leaves it all the same
  WaitForResult();
  EXPECT_FALSE(result_->chosen);
}

TEST_F(FileDialogTest, AFileThatHasVanishedIsSaidAndTheDialogStays) {
  Show();
  std::filesystem::remove(folder_ + "/a.html");
  TypePath(folder_ + "/a.html");
  Press({"Return"});
  WaitForSpeech("a.html was not found");
  EXPECT_FALSE(result_.has_value());
  EXPECT_NE(dialog_->Chooser(), nullptr);
}

TEST_F(FileDialogTest, SavingOverAFileIsAskedFirst) {
  record_.flags = kExplorerStyle | kOverwritePrompt;
  record_.file = "a.html";
  Show(FileDialog::Kind::Save);
  Press({"Return"});
  WaitForSpeech("a.html is there already. Replace it? No Button");
  Press({"Return"});
  WaitForSpeech("Save As. Folder my pages");
  EXPECT_FALSE(result_.has_value());
  WaitFor("the dialog again", [&] {
    return dialog_->Chooser() && dialog_->Chooser()->property_is_active().get_value();
  });
  spoken_.clear();
  Press({"Return"});
  WaitForSpeech("Replace it?");
  Press({"alt+y"});
  WaitForResult();
  EXPECT_TRUE(result_->chosen);
  EXPECT_EQ(UpToNul(result_->record.file), folder_ + "/a.html");
}

TEST_F(FileDialogTest, ANewNameGetsTheDefaultExtension) {
  record_.flags = kExplorerStyle | kOverwritePrompt;
  record_.file = "new";
  record_.default_extension = "html";
  Show(FileDialog::Kind::Save);
  Press({"Return"});
  WaitForResult();
  EXPECT_EQ(UpToNul(result_->record.file), folder_ + "/new.html");
}

TEST_F(FileDialogTest, ItGoesWithItsOwner) {
  Show();
  dialog_.reset();
  Settle();
  EXPECT_FALSE(result_.has_value());
  EXPECT_EQ(windows_.FirstThreadWindow(), 0U);
}

}  // namespace
}  // namespace corvane::desktop
