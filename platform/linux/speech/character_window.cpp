#include "platform/linux/speech/character_window.h"

#include <gdkmm/monitor.h>
#include <gtkmm/box.h>
#include <gtkmm/cssprovider.h>
#include <gtkmm/image.h>
#include <gtkmm/label.h>
#include <gtkmm/window.h>

#include "platform/linux/speech/character_shape.h"
#include "platform/linux/speech/speech_text.h"

namespace corvane::desktop {
namespace {

constexpr int kPicturePixels = 72;
constexpr int kBalloonPixels = 240;
constexpr int kBorderPixels = 8;
constexpr int kBalloonLines = 3;
/// More would not fit into three lines, and a page's text may be very long.
constexpr std::size_t kBalloonCharacters = 120;

Glib::RefPtr<Gdk::Pixbuf> LoadPicture(const std::string& file) {
  if (file.empty()) return {};
  // The plain function: a broken picture is no reason for a warning in the log.
  GdkPixbuf* picture =
      gdk_pixbuf_new_from_file_at_size(file.c_str(), kPicturePixels, kPicturePixels, nullptr);
  return Glib::wrap(picture);  // a character without a picture still speaks
}

std::string BalloonText(const std::string& text) {
  TextPieces pieces(text, kBalloonCharacters);
  std::string shown;
  std::string more;
  pieces.Next(shown);
  if (pieces.Next(more)) shown += "\xE2\x80\xA6";
  return shown;
}

}  // namespace

class CharacterWindow::Widgets {
 public:
  explicit Widgets(const CharacterFile& character)
      : box_(Gtk::ORIENTATION_HORIZONTAL, kBorderPixels),
        idle_(LoadPicture(character.idle)),
        speaking_(LoadPicture(character.speaking)) {
    window_.set_title(character.name);
    window_.set_name("Character");
    window_.set_decorated(false);
    window_.set_resizable(false);
    window_.set_keep_above(true);
    window_.set_accept_focus(false);
    window_.set_focus_on_map(false);
    window_.set_skip_taskbar_hint(true);
    window_.set_skip_pager_hint(true);
    window_.set_type_hint(Gdk::WINDOW_TYPE_HINT_NOTIFICATION);
    window_.set_gravity(Gdk::GRAVITY_SOUTH_EAST);
    window_.set_border_width(kBorderPixels);
    balloon_.set_line_wrap(true);
    balloon_.set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
    balloon_.set_lines(kBalloonLines);
    balloon_.set_ellipsize(Pango::ELLIPSIZE_END);
    balloon_.set_max_width_chars(1);  // the request below decides
    balloon_.set_size_request(kBalloonPixels, kPicturePixels);
    balloon_.set_xalign(0);
    balloon_.set_name("Balloon");
    OutlineBalloon();
    picture_.set_size_request(kPicturePixels, kPicturePixels);
    picture_.set_name("Picture");
    if (const auto accessible = picture_.get_accessible()) accessible->set_name(character.name);
    box_.pack_start(balloon_, Gtk::PACK_EXPAND_WIDGET);
    box_.pack_start(picture_, Gtk::PACK_SHRINK);
    window_.add(box_);
    box_.show_all();
    window_.signal_size_allocate().connect([this](Gtk::Allocation&) {
      MoveToCorner();
      Shape();
    });
    window_.signal_realize().connect([this] { LetClicksThrough(); });
  }

  void Show() {
    ShowIdle();
    window_.show();
  }

  void ShowSpeaking(const std::string& text) {
    balloon_.set_text(BalloonText(text));
    SetPicture(speaking_ ? speaking_ : idle_);
    Shape();
  }

  void ShowIdle() {
    balloon_.set_text("");
    SetPicture(idle_);
    Shape();
  }

 private:
  void SetPicture(const Glib::RefPtr<Gdk::Pixbuf>& picture) {
    if (!picture) return;
    shown_ = picture;
    picture_.set(picture);
  }

  void OutlineBalloon() {
    const auto style = Gtk::CssProvider::create();
    const std::string radius = std::to_string(kBalloonRounding);
    style->load_from_data("label { padding: 6px; border: 1px solid; border-radius: " + radius +
                          "px; }");
    balloon_.get_style_context()->add_provider(style, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  }

  // The window is what the eye is to see of it: the character, and the balloon
  // while there is something in it.
  void Shape() {
    if (!window_.get_realized()) return;
    const auto place = picture_.get_allocation();
    Gdk::Point corner(place.get_x(), place.get_y());
    if (shown_) {
      corner = Gdk::Point(place.get_x() + (place.get_width() - shown_->get_width()) / 2,
                          place.get_y() + (place.get_height() - shown_->get_height()) / 2);
    }
    const auto balloon =
        balloon_.get_text().empty() ? Gdk::Rectangle() : Gdk::Rectangle(balloon_.get_allocation());
    window_.get_window()->shape_combine_region(CharacterShape(shown_, corner, balloon), 0, 0);
  }

  void MoveToCorner() {
    const auto display = window_.get_display();
    auto monitor = display->get_primary_monitor();
    if (!monitor) monitor = display->get_monitor(0);
    if (!monitor) return;
    Gdk::Rectangle area;
    monitor->get_workarea(area);
    int width = 0;
    int height = 0;
    window_.get_size(width, height);
    window_.move(area.get_x() + area.get_width() - width,
                 area.get_y() + area.get_height() - height);
  }

  void LetClicksThrough() {
    window_.get_window()->input_shape_combine_region(Cairo::Region::create(), 0, 0);
  }

  Gtk::Window window_;
  Gtk::Box box_;
  Gtk::Label balloon_;
  Gtk::Image picture_;
  Glib::RefPtr<Gdk::Pixbuf> idle_;
  Glib::RefPtr<Gdk::Pixbuf> speaking_;
  Glib::RefPtr<Gdk::Pixbuf> shown_;
};

CharacterWindow::CharacterWindow(const CharacterFile& character) {
  if (Gdk::Display::get_default()) widgets_ = std::make_unique<Widgets>(character);
}

CharacterWindow::~CharacterWindow() = default;

void CharacterWindow::Show() {
  if (widgets_) widgets_->Show();
}

void CharacterWindow::ShowSpeaking(const std::string& text) {
  if (widgets_) widgets_->ShowSpeaking(text);
}

void CharacterWindow::ShowIdle() {
  if (widgets_) widgets_->ShowIdle();
}

}  // namespace corvane::desktop
