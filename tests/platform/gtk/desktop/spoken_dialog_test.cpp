#include "platform/linux/gtk/dialogs/spoken_dialog.h"

#include <gdk/gdkkeysyms.h>

#include <optional>

#include "base/language.h"
#include "platform/linux/gtk/dialogs/spoken_dialogs.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Kind = DialogField::Kind;

class SpokenDialogTest : public test::DesktopTest {
 protected:
  std::unique_ptr<SpokenDialog> Show(DialogQuestion question) {
    auto dialog = std::make_unique<SpokenDialog>(
        windows_, [this](const std::string& text, GtkWindow*) { spoken_.push_back(text); },
        std::move(question), [this](const DialogAnswer& answer) { answer_ = answer; });
    dialog->Show();
    WaitForSpeech(1);
    return dialog;
  }
  void WaitForSpeech(std::size_t count) {
    WaitFor("speech " + std::to_string(count), [&] { return spoken_.size() >= count; });
  }
  /// Presses keys as a user does and returns what was said.
  std::vector<std::string> Press(const std::vector<std::string>& keys, std::size_t texts) {
    spoken_.clear();
    std::vector<std::string> command = {"xdotool", "key"};
    command.insert(command.end(), keys.begin(), keys.end());
    Outside(command);
    WaitForSpeech(texts);
    Settle();
    return std::exchange(spoken_, {});
  }
  void WaitForAnswer() {
    WaitFor("the answer", [&] { return answer_.has_value(); });
  }

  std::vector<std::string> spoken_;
  std::optional<DialogAnswer> answer_;
};

DialogQuestion SignIn() {
  return {.title = "Sign in",
          .text = "The site wants a name",
          .fields = {{Kind::kText, "&User name", "ann"},
                     {Kind::kPassword, "&Password"},
                     {Kind::kCheckBox, "&Remember", "False"},
                     {Kind::kChoice, "&Where", "second", {"first", "second", "third"}}},
          .buttons = {"&Sign in", "Cancel"}};
}

TEST_F(SpokenDialogTest, AChoiceIsReachedByItsFirstLetterAndByTens) {
  std::vector<std::string> numbers;
  for (int i = 0; i < 25; ++i) numbers.push_back("b" + std::to_string(i));
  numbers.emplace_back("a");
  const auto dialog = Show({.title = "T", .fields = {{Kind::kChoice, "Where", "b3", numbers}}});
  EXPECT_THAT(Press({"b"}, 1), ElementsAre("b4, 5 of 26"));
  EXPECT_THAT(Press({"a"}, 1), ElementsAre("a, 26 of 26"));
  EXPECT_THAT(Press({"b"}, 1), ElementsAre("b0, 1 of 26"));
  EXPECT_THAT(Press({"Next"}, 1), ElementsAre("b10, 11 of 26"));
  EXPECT_THAT(Press({"End", "Prior"}, 2), ElementsAre("a, 26 of 26", "b15, 16 of 26"));
  EXPECT_THAT(Press({"Next"}, 1), ElementsAre("a, 26 of 26"));
}

TEST_F(SpokenDialogTest, AChangeIsToldBeforeItIsHeardAndOthersFollowInSilence) {
  std::vector<std::string> order;
  DialogQuestion question{.title = "T",
                          .fields = {{Kind::kChoice, "Which", "one", {"one", "two"}},
                                     {Kind::kChoice, "Whose", "Ann", {"Ann"}},
                                     {Kind::kCheckBox, "Loud", "False"}}};
  question.changed = [&](const DialogAnswer& now, std::size_t field) -> DialogChange {
    order.push_back(now.values.at(field));
    EXPECT_THAT(spoken_, IsEmpty());
    std::vector<DialogField> fields = question.fields;
    fields[0].value = now.values[0];
    fields[1] = {Kind::kChoice, "Whose", "Eve", {"Bob", "Eve"}};
    fields[2].value = "True";
    return {fields, "de", "For example this"};
  };
  const auto dialog = Show(question);
  const auto heard = Press({"Down"}, 1);
  EXPECT_THAT(order, ElementsAre("two"));
  EXPECT_THAT(heard, ElementsAre(language::Marked("two", "de") + ", 2 of 2. " +
                                 language::Marked("For example this", "de")));
  EXPECT_THAT(Press({"Tab"}, 1), ElementsAre("Whose, list, Eve, 2 of 2"));
  EXPECT_THAT(Press({"Tab"}, 1), ElementsAre("Loud, check box, checked"));
}

TEST_F(SpokenDialogTest, APagesWordsAreMarkedForTheEarAlone) {
  const auto dialog = Show({.title = "T",
                            .text = "It says: " + language::Marked("Yes", language::kOfAPage),
                            .fields = {{.label = "File", .value = "a.zip", .from_page = true}}});
  EXPECT_THAT(spoken_,
              ElementsAre("T. It says: " + language::Marked("Yes", language::kOfAPage) +
                          ". File, edit box, " + language::Marked("a.zip", language::kOfAPage)));
  EXPECT_EQ(windows_.Text(
                windows_.NextSibling(windows_.NextSibling(windows_.FirstChild(dialog->hwnd())))),
            "It says: Yes");
}

TEST_F(SpokenDialogTest, SpeaksTitleTextAndTheFirstControlAtOnce) {
  const auto dialog = Show(SignIn());
  EXPECT_THAT(spoken_, ElementsAre("Sign in. The site wants a name. User name, edit box, ann"));
  EXPECT_NE(windows_.FindWindow("Sign in"), 0U);
  dialog->Close();
}

TEST_F(SpokenDialogTest, BelongsToItsWindowAndLeadsBackToWhereTheUserWas) {
  test::TestWindow other(windows_);
  test::TestWindow here(windows_);
  other.Show();
  here.Show();
  WaitFor("the window", [&] { return windows_.Active() == here.form.hwnd(); });
  std::vector<WindowHandle> spoken_for;
  SpokenDialog dialog(
      windows_,
      [&](const std::string&, GtkWindow* window) {
        spoken_for.push_back(windows_.WindowOf(window));
      },
      SignIn(), [](const DialogAnswer&) {});
  dialog.Show(&other.form.window());
  EXPECT_EQ(windows_.Owner(dialog.hwnd()), other.form.hwnd()) << "known before it is shown";
  WaitFor("its words", [&] { return !spoken_for.empty(); });
  EXPECT_THAT(spoken_for, ElementsAre(other.form.hwnd()));
  EXPECT_EQ(windows_.Active(), other.form.hwnd());
  dialog.Close();
  WaitFor("the way back", [&] { return windows_.Active() == here.form.hwnd(); });
}

TEST_F(SpokenDialogTest, SpeaksEachControlThatTabLeadsTo) {
  const auto dialog = Show(SignIn());
  EXPECT_THAT(Press({"Tab"}, 1), ElementsAre("Password, password box, empty"));
  EXPECT_THAT(Press({"Tab"}, 1), ElementsAre("Remember, check box, not checked"));
  EXPECT_THAT(Press({"Tab"}, 1), ElementsAre("Where, list, second, 2 of 3"));
  EXPECT_THAT(Press({"Tab"}, 1), ElementsAre("Sign in Button"));
  EXPECT_THAT(Press({"Right"}, 1), ElementsAre("Cancel Button"));
  EXPECT_THAT(Press({"Left"}, 1), ElementsAre("Sign in Button"));
  EXPECT_THAT(Press({"shift+Tab"}, 1), ElementsAre("Where, list, second, 2 of 3"));
  dialog->Close();
}

TEST_F(SpokenDialogTest, SpeaksEveryChangeOfAValue) {
  const auto dialog = Show(SignIn());
  Press({"alt+r"}, 1);  // the access key leads to the box and changes it
  EXPECT_THAT(Press({"space"}, 1), ElementsAre("not checked"));
  Press({"alt+w"}, 1);
  EXPECT_THAT(Press({"Down"}, 1), ElementsAre("third, 3 of 3"));
  EXPECT_THAT(Press({"Home"}, 1), ElementsAre("first, 1 of 3"));
  dialog->Close();
}

TEST_F(SpokenDialogTest, SpeaksWhatTheCaretPassesButNeverASecret) {
  const auto dialog = Show(SignIn());
  EXPECT_THAT(Press({"Home"}, 1), ElementsAre("ann"));
  EXPECT_THAT(Press({"Right"}, 1), ElementsAre("a"));
  Press({"alt+p"}, 1);
  Outside({"xdotool", "type", "top"});
  EXPECT_THAT(Press({"Home"}, 1), ElementsAre("3 characters"));
  EXPECT_THAT(Press({"F1"}, 1),
              ElementsAre("Sign in. The site wants a name. Password, password box, 3 characters"));
  dialog->Close();
}

TEST_F(SpokenDialogTest, EnterPressesTheDefaultButtonFromAnyField) {
  const auto dialog = Show(SignIn());
  Outside({"xdotool", "type", "bob"});
  Outside({"xdotool", "key", "Tab", "t", "Tab", "space", "Tab", "End", "Return"});
  WaitForAnswer();
  EXPECT_EQ(answer_->button, 0);
  EXPECT_THAT(answer_->values, ElementsAre("bob", "t", "True", "third"));
  EXPECT_TRUE(answer_->Checked(2));
  EXPECT_FALSE(dialog->OnScreen());
}

TEST_F(SpokenDialogTest, EscapeAndTheCloseButtonPressTheOneThatCancels) {
  const auto dialog = Show(SignIn());
  Outside({"xdotool", "key", "Tab", "Escape"});
  WaitForAnswer();
  EXPECT_EQ(answer_->button, 1);
  answer_.reset();
  spoken_.clear();
  const auto other = Show({.title = "Other", .buttons = {"No", "Yes"}, .cancel_button = 0});
  windows_.PostClose(windows_.FindWindow("Other"));
  WaitForAnswer();
  EXPECT_EQ(answer_->button, 0);
}

TEST_F(SpokenDialogTest, EnterOnAButtonPressesThatButton) {
  const auto dialog = Show({.title = "Leave?", .text = "Text.", .buttons = {"Yes", "No"}});
  EXPECT_THAT(spoken_, ElementsAre("Leave? Text. Yes Button"));
  Press({"Tab"}, 1);
  Outside({"xdotool", "key", "Return"});
  WaitForAnswer();
  EXPECT_EQ(answer_->button, 1);
}

TEST_F(SpokenDialogTest, AnswersThatDoNotPassTheCheckKeepItOpen) {
  auto question = SignIn();
  question.check = [](const DialogAnswer& answer) {
    return answer.values[0] == "ann" ? "This name is taken" : std::string();
  };
  const auto dialog = Show(question);
  EXPECT_THAT(Press({"Return"}, 1), ElementsAre("This name is taken"));
  EXPECT_TRUE(dialog->OnScreen());
  Outside({"xdotool", "key", "Escape"});
  WaitForAnswer();
  EXPECT_EQ(answer_->button, 1);
}

TEST_F(SpokenDialogTest, TheLabelsAreAccessible) {
  const auto dialog = Show(SignIn());
  auto* window = ActiveWindow();
  ASSERT_NE(window, nullptr);
  auto* focus = gtk_widget_get_accessible(window->get_focus()->gobj());
  EXPECT_STREQ(atk_object_get_name(focus), "User name");
  auto* accessible = gtk_widget_get_accessible(GTK_WIDGET(window->gobj()));
  EXPECT_STREQ(atk_object_get_name(accessible), "Sign in");
  EXPECT_STREQ(atk_object_get_description(accessible), "The site wants a name");
  dialog->Close();
}

TEST_F(SpokenDialogTest, MarkupInATextIsText) {
  const auto dialog = Show({.title = "<b>", .text = "a <i>b</i> & \xff", .buttons = {"OK"}});
  EXPECT_THAT(spoken_, ElementsAre("<b>. a <i>b</i> & \xff. OK Button"));
  dialog->Close();
}

class SpokenDialogsTest : public SpokenDialogTest {
 protected:
  SpokenDialogs dialogs_{windows_,
                         [this](const std::string& text, GtkWindow*) { spoken_.push_back(text); }};
};

TEST_F(SpokenDialogsTest, QuestionsFollowOneAnother) {
  std::vector<std::string> answers;
  for (const char* title : {"one", "two"}) {
    dialogs_.Ask({.title = title, .buttons = {"Yes", "No"}}, [&, title](const DialogAnswer& a) {
      answers.push_back(title + std::to_string(a.button));
    });
  }
  WaitForSpeech(1);
  EXPECT_THAT(spoken_, ElementsAre("one. Yes Button"));
  Outside({"xdotool", "key", "Return"});
  WaitForSpeech(2);
  EXPECT_THAT(spoken_, ElementsAre("one. Yes Button", "two. Yes Button"));
  Outside({"xdotool", "key", "Escape"});
  WaitFor("both answers", [&] { return answers.size() == 2; });
  EXPECT_THAT(answers, ElementsAre("one0", "two1"));
}

TEST_F(SpokenDialogsTest, AnAnswerMayAskTheNextQuestion) {
  bool second = false;
  dialogs_.Ask({.title = "first", .buttons = {"OK"}}, [&](const DialogAnswer&) {
    dialogs_.Ask({.title = "second", .buttons = {"OK"}},
                 [&](const DialogAnswer&) { second = true; });
  });
  WaitForSpeech(1);
  Outside({"xdotool", "key", "Return"});
  WaitForSpeech(2);
  Outside({"xdotool", "key", "Return"});
  WaitFor("the second answer", [&] { return second; });
}

TEST_F(SpokenDialogsTest, AQuestionCanBeTakenBack) {
  bool answered = false;
  const auto never = [&](const DialogAnswer&) { answered = true; };
  const int first = dialogs_.Ask({.title = "first", .buttons = {"OK"}}, never);
  const int second = dialogs_.Ask({.title = "second", .buttons = {"OK"}}, never);
  dialogs_.Ask({.title = "third", .buttons = {"OK"}}, nullptr);
  WaitForSpeech(1);
  dialogs_.Withdraw(second);
  dialogs_.Withdraw(first);
  WaitForSpeech(2);
  EXPECT_THAT(spoken_, ElementsAre("first. OK Button", "third. OK Button"));
  EXPECT_EQ(windows_.FindWindow("first"), 0U);
  EXPECT_FALSE(answered);
}

}  // namespace
}  // namespace corvane::desktop
