#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

/// What happens while the character loads and greets.
struct Welcome : testing::Test {
  Program p;
  void Start(const char* manner) {
    p.desktop.settings.Main("Manner") = manner;
    p.desktop.settings.Main("Speech") = "True";
    p.Start();
    for (FakeTimer* timer : std::vector(p.desktop.timers)) {
      if (timer->interval == 1 && timer->enabled) timer->Fire();
    }
  }
  void Step() { p.desktop.speech.agent->CompleteLast(); }
  /// The welcome is being spoken.
  void Greet() {
    Step();
    Step();
  }
  /// The welcome ends, whatever waits behind it.
  void End(RequestEnd end = RequestEnd::Done) {
    std::erase(p.desktop.speech.speaking, greeting);
    p.desktop.speech.agent->RequestComplete.Raise(AgentRequest{greeting}, end);
  }
  void Say(const std::string& text, bool urgent = false) { p.Window(0)->Say(text, urgent); }
  static std::string Plain(const std::string& text) { return "speak \\Pit=90\\\\Spd=150\\" + text; }
  std::vector<std::string>& Calls() { return p.desktop.speech.calls; }
  bool Enabled() { return p.Inside().menu.mnuSpeech(0).Enabled(); }
  const int greeting = 3;  // load, show, welcome
};

TEST_F(Welcome, LetsTheLastSentenceFollow) {
  Start("1");
  Greet();
  Calls().clear();
  Say("Working...");
  Say("The title");
  EXPECT_THAT(Calls(),
              ElementsAre("stop but 3", Plain("Working..."), "stop but 3", Plain("The title")));
  Calls().clear();
  End();
  EXPECT_THAT(Calls(), IsEmpty()) << "and nothing is said twice";
  EXPECT_TRUE(Enabled());
}

TEST_F(Welcome, IsFollowedByWhatWasSaidBeforeIt) {
  Start("1");
  Say("Working...");
  Say("The title");
  EXPECT_THAT(p.Spoken(), IsEmpty());
  Greet();
  EXPECT_EQ(Calls().back(), Plain("The title"));
  EXPECT_EQ(std::count(Calls().begin(), Calls().end(), Plain("Working...")), 0);
}

TEST_F(Welcome, IsCutOffByControlAndSpeechIsReadyAtOnce) {
  Start("1");
  Greet();
  Say("The title");
  Calls().clear();
  p.desktop.PressKey(kKeyControl);
  EXPECT_THAT(Calls(), ElementsAre("stop"));
  Calls().clear();
  Say("Address Box");
  EXPECT_THAT(Calls(), ElementsAre("stop", Plain("Address Box")));
  Calls().clear();
  End(RequestEnd::Cut);
  EXPECT_TRUE(Enabled());
  EXPECT_THAT(Calls(), IsEmpty()) << "who wants silence is not told the title";
}

TEST_F(Welcome, IsHeardToItsEndAndDropsTheRestWhereThatIsEstablished) {
  Start("0");
  Greet();
  Calls().clear();
  Say("The title");
  EXPECT_THAT(Calls(), IsEmpty());
  p.desktop.PressKey(kKeyControl);
  EXPECT_THAT(Calls(), ElementsAre("stop but 3"));
  End();
  EXPECT_TRUE(Enabled());
}

TEST_F(Welcome, AnAlertMeanwhileIsSpoken) {
  Start("1");
  Greet();
  const auto alert = p.desktop.windows.Add("Microsoft Internet Explorer", "#32770");
  p.desktop.windows.Add("OK", "Button", alert);
  p.desktop.windows.Add("Hi", "Static", alert);
  p.desktop.windows.windows[alert].owner = p.Inside().form->hwnd();
  p.desktop.hook->Activated.Raise(alert);
  Calls().clear();
  for (FakeTimer* timer : std::vector(p.desktop.timers)) {
    if (timer->interval == 1000) timer->Fire();
  }
  EXPECT_THAT(Calls(), ElementsAre("stop but 3", Plain("Hi (urgent)"), Plain("OK button")));
}

struct ReadyToSpeak : testing::Test {
  Program p;
  void Load(std::size_t window) {
    const auto page = std::make_shared<HTMLDocument>();
    page->Title = "Page " + std::to_string(window);
    auto& pane = p.Inside(window).ctlWebBrowser1;
    auto& browser = static_cast<FakeWebBrowser&>(*pane.Inside().controls.brwWebBrowser);
    browser.Begin();
    browser.Finish(page);
    p.Reading(window).Fire();
  }
  void Ready() {
    for (FakeTimer* timer : std::vector(p.desktop.timers)) {
      if (timer->interval == 1 && timer->enabled) timer->Fire();
    }
    for (int i = 0; i < 3; ++i) p.desktop.speech.agent->CompleteLast();
  }
};

TEST_F(ReadyToSpeak, TheWindowThatSwitchedSpeechOnSaysWhereTheUserIs) {
  p.Start();
  p.Inside(0).menu.mnuFileItem(0).Click.Raise();
  Load(0);
  Load(1);
  p.Inside(1).menu.mnuSpeech(0).Click.Raise();
  Ready();
  EXPECT_THAT(p.Spoken(), ElementsAre("Hello, welcome to Corvane 2000", "Page 1"));
}

TEST_F(ReadyToSpeak, OfSeveralTheOneThatTheUserIsInSpeaks) {
  p.desktop.settings.Main("Speech") = "True";
  p.Start();
  p.Inside(0).menu.mnuFileItem(0).Click.Raise();
  Load(0);
  Load(1);
  p.desktop.windows.active = p.Inside(1).form->hwnd();
  Ready();
  EXPECT_THAT(p.Spoken(), ElementsAre("Hello, welcome to Corvane 2000", "Page 1"));
}

}  // namespace
}  // namespace corvane::tests
