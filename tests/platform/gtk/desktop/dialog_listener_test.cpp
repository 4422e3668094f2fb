#include "platform/linux/gtk/dialogs/dialog_listener.h"

#include <atkmm/object.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>
#include <gtkmm/filechooserdialog.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/messagedialog.h>
#include <gtkmm/notebook.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>

#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class DialogListenerTest : public test::DesktopTest {
 protected:
  std::vector<std::string> Press(const std::string& key) {
    spoken_.clear();
    Outside({"xdotool", "key", key});
    WaitFor("words after " + key, [&] { return !spoken_.empty(); });
    Settle();
    return spoken_;
  }
  void Show(Gtk::Dialog& dialog) {
    dialog.show_all();
    dialog.present();
    WaitFor("the dialog to be active", [&] { return dialog.property_is_active().get_value(); });
    Settle();
  }

  std::vector<std::string> spoken_;
  DialogListener listener_{
      [this](const std::string& text, GtkWindow*) { spoken_.push_back(text); }};
};

TEST_F(DialogListenerTest, SpeaksForADialogOfTheToolkit) {
  Gtk::Dialog dialog("Print");
  Gtk::CheckButton box("_Reverse", true);
  Gtk::Entry pages;
  pages.get_accessible()->set_name("Pages");
  dialog.get_content_area()->add(pages);
  dialog.get_content_area()->add(box);
  dialog.add_button("_Cancel", 0);
  Show(dialog);
  EXPECT_THAT(spoken_, ElementsAre("Print. Pages, edit box, empty"));
  EXPECT_THAT(Press("Tab"), ElementsAre("Reverse, check box, not checked"));
  EXPECT_THAT(Press("space"), ElementsAre("Reverse, check box, checked"));
  EXPECT_THAT(Press("Tab"), ElementsAre("Cancel Button"));
}

TEST_F(DialogListenerTest, SaysTheGroupThatAChoiceOrAButtonBelongsTo) {
  Gtk::Dialog dialog("Print");
  Gtk::Label format("Output _format:", true);
  Gtk::Box formats;
  Gtk::RadioButton::Group group;
  Gtk::RadioButton pdf(group, "PDF");
  Gtk::RadioButton all(group, "Pages:");
  formats.add(pdf);
  formats.add(all);
  format.set_mnemonic_widget(formats);
  Gtk::Label file("_File:", true);
  Gtk::Box holder;
  Gtk::Button name("page.pdf");
  holder.add(name);
  file.set_mnemonic_widget(holder);
  for (Gtk::Widget* part : {static_cast<Gtk::Widget*>(&format), static_cast<Gtk::Widget*>(&formats),
                            static_cast<Gtk::Widget*>(&file), static_cast<Gtk::Widget*>(&holder)}) {
    dialog.get_content_area()->add(*part);
  }
  Show(dialog);
  EXPECT_THAT(spoken_, ElementsAre("Print. Output format, PDF, choice, chosen"));
  EXPECT_THAT(Press("Tab"), ElementsAre("File, page.pdf Button"));
}

TEST_F(DialogListenerTest, SaysTheHeadingOverAGroupOfChoices) {
  Gtk::Dialog dialog("Print");
  Gtk::Label heading("Range");
  Pango::AttrList bold;
  auto weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
  bold.insert(weight);
  heading.set_attributes(bold);
  Gtk::Grid choices;
  Gtk::RadioButton::Group group;
  Gtk::RadioButton all(group, "_All Pages", true);
  Gtk::RadioButton some(group, "Pa_ges:", true);
  choices.attach(all, 0, 0, 1, 1);
  choices.attach(some, 0, 1, 1, 1);
  Gtk::Label usual("Only words");
  Gtk::Button last("Last");
  for (Gtk::Widget* part :
       {static_cast<Gtk::Widget*>(&heading), static_cast<Gtk::Widget*>(&choices),
        static_cast<Gtk::Widget*>(&usual), static_cast<Gtk::Widget*>(&last)}) {
    dialog.get_content_area()->add(*part);
  }
  Show(dialog);
  EXPECT_THAT(spoken_, ElementsAre("Print. Range, All Pages, choice, chosen"));
  EXPECT_THAT(Press("Down"), ElementsAre("Range, Pages, choice, chosen")) << "once";
  EXPECT_THAT(Press("Tab"), ElementsAre("Last Button"));
}

TEST_F(DialogListenerTest, TabLeavesAFileChoosersEntry) {
  Gtk::FileChooserDialog dialog("Print into", Gtk::FILE_CHOOSER_ACTION_SAVE);
  dialog.add_button("_Cancel", 0);
  Show(dialog);
  EXPECT_THAT(spoken_.back(), testing::HasSubstr("Name, edit box"));
  EXPECT_THAT(Press("Tab").back(), testing::Not(testing::HasSubstr("edit box")));
}

TEST_F(DialogListenerTest, SpeaksTabsAsTheyAreWalked) {
  Gtk::Dialog dialog("Print");
  Gtk::Notebook tabs;
  Gtk::Label first("one");
  Gtk::Label second("two");
  tabs.append_page(first, "General");
  tabs.append_page(second, "Page Setup");
  dialog.get_content_area()->add(tabs);
  Show(dialog);
  EXPECT_THAT(spoken_, ElementsAre("Print. General tab"));
  EXPECT_THAT(Press("Right"), ElementsAre("Page Setup tab"));
}

TEST_F(DialogListenerTest, SpeaksWhatAListShowsAndWhatTheArrowsChooseInIt) {
  Gtk::Dialog dialog("Print");
  Gtk::ComboBoxText sides;
  sides.append("One Sided");
  sides.append("Long Edge");
  sides.set_active(0);
  sides.get_accessible()->set_name("Sides");
  dialog.get_content_area()->add(sides);
  Show(dialog);
  EXPECT_THAT(spoken_, ElementsAre("Print. Sides, list, One Sided"));
  spoken_.clear();
  sides.set_active(1);
  EXPECT_THAT(Press("Shift_L"), ElementsAre("Sides, list, Long Edge"));
}

TEST_F(DialogListenerTest, SpeaksWhatAMessageOfTheToolkitSays) {
  Gtk::MessageDialog dialog("The file vanished", false, Gtk::MESSAGE_ERROR, Gtk::BUTTONS_NONE);
  dialog.set_secondary_text("Try another one");
  dialog.add_button("_OK", 0);
  Show(dialog);
  EXPECT_THAT(spoken_, ElementsAre("The file vanished. Try another one. OK Button"));
}

TEST_F(DialogListenerTest, NamesThePartsThatTheToolkitLeavesNameless) {
  Gtk::Dialog dialog("Print");
  Gtk::Notebook tabs;
  Gtk::ScrolledWindow scroll;
  Gtk::TreeView list;
  list.append_column(*Gtk::make_managed<Gtk::TreeViewColumn>("Printer"));
  scroll.add(list);
  tabs.append_page(scroll, "General");
  Gtk::Entry named;
  named.get_accessible()->set_name("Pages");
  dialog.get_content_area()->add(tabs);
  dialog.get_content_area()->add(named);
  Show(dialog);
  EXPECT_EQ(tabs.get_accessible()->get_name(), "Tabs");
  EXPECT_EQ(scroll.get_accessible()->get_name(), "Scrolling area");
  EXPECT_EQ(list.get_accessible()->get_name(), "Printer");
  EXPECT_EQ(named.get_accessible()->get_name(), "Pages");
}

TEST_F(DialogListenerTest, LeavesThoseAloneThatSpeakThemselves) {
  Gtk::Dialog dialog("Own");
  dialog.add_button("OK", 0);
  MarkAsSpeaking(GTK_WIDGET(dialog.gobj()));
  Show(dialog);
  EXPECT_THAT(spoken_, ElementsAre());
}

}  // namespace
}  // namespace corvane::desktop
