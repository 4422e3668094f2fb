#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

/// A page with one field that has the focus and changes under the user's keys.
class StateChange : public testing::Test {
 protected:
  void SetUp() override { Start("1"); }
  void Start(const std::string& manner) {
    p.desktop.settings.Main("Manner") = manner;
    p.StartTalking();
    field_->type_name = "HTMLInputElement";
    field_->type = "text";
    auto page = MakePage("http://a/", "A", "");
    page->forms.push_back({{field_}});
    p.Read(page);
    p.desktop.speech.agent->CompleteLast();
    p.Spoken();
  }

  static ElementFactsPtr Facts(Tri expanded, const std::string& value) {
    auto facts = std::make_shared<ElementFacts>();
    facts->role = "combobox";
    facts->name = "Town";
    facts->expanded = expanded;
    facts->value = value;
    return facts;
  }
  void Changes(const ElementFactsPtr& before, const ElementFactsPtr& now) {
    field_->facts_before = before;
    field_->facts = now;
    field_->onstate.Raise();
  }

  Program p;
  HTMLElementPtr field_ = std::make_shared<HTMLElement>();
};

TEST_F(StateChange, IsSaidAsTheNewStateAlone) {
  Changes(Facts(Tri::No, ""), Facts(Tri::Yes, ""));
  EXPECT_THAT(p.Spoken(), ElementsAre("expanded"));
  Changes(Facts(Tri::Yes, ""), Facts(Tri::No, "Bilbao"));
  EXPECT_THAT(p.Spoken(), ElementsAre("collapsed, Bilbao"));
}

TEST_F(StateChange, ThatChangesNothingHeardIsSilent) {
  Changes(Facts(Tri::No, "x"), Facts(Tri::No, "x"));
  Changes(nullptr, Facts(Tri::Yes, "x"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(StateChange, DoesNotSayAgainWhatIsTyped) {
  field_->caret.edit = ElementCaret::Edit::Typed;
  Changes(Facts(Tri::No, ""), Facts(Tri::Yes, "b"));
  EXPECT_THAT(p.Spoken(), ElementsAre("expanded"));
}

TEST_F(StateChange, ThatComesWithTheFocusIsSaidBehindItsWords) {
  field_->facts = Facts(Tri::No, "");
  field_->onfocus.Raise();
  EXPECT_THAT(p.Spoken(), ElementsAre("combo box, Town, collapsed"));
  field_->changed_with_focus = true;
  p.desktop.speech.calls.clear();
  Changes(Facts(Tri::No, ""), Facts(Tri::Yes, ""));
  EXPECT_THAT(p.Spoken(), ElementsAre("expanded"));
  EXPECT_THAT(p.desktop.speech.calls, testing::Not(testing::Contains("stop")));
}

class EstablishedStateChange : public StateChange {
 protected:
  void SetUp() override { Start("0"); }
};

TEST_F(EstablishedStateChange, SaysTheStateAloneAndNoValuesOrSuggestions) {
  Changes(Facts(Tri::No, ""), Facts(Tri::Yes, "Bilbao"));
  EXPECT_THAT(p.Spoken(), ElementsAre("expanded"));
  auto suggesting = std::make_shared<ElementFacts>(*Facts(Tri::Yes, "Bern"));
  suggesting->suggestions = 2;
  suggesting->suggestion = "Berlin";
  suggesting->invalid = suggesting->required = true;
  Changes(Facts(Tri::Yes, "Bilbao"), suggesting);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  auto pressed = std::make_shared<ElementFacts>();
  pressed->pressed = Tri::Yes;
  Changes(std::make_shared<ElementFacts>(), pressed);
  EXPECT_THAT(p.Spoken(), ElementsAre("pressed"));
}

}  // namespace
}  // namespace corvane::tests
