#include "platform/linux/gtk/text_pane/text_printer.h"

#include <gtkmm/printoperation.h>

#include <vector>

#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

constexpr const char* kFont = "Sans 11";
constexpr double kMargin = 36;  // points; half an inch

class TextJob : public Gtk::PrintOperation {
 public:
  static Glib::RefPtr<TextJob> Create(const std::string& text) {
    return Glib::RefPtr<TextJob>(new TextJob(text));
  }

 protected:
  explicit TextJob(const std::string& text) : text_(Valid(text)) {
    set_unit(Gtk::UNIT_POINTS);
    set_allow_async(true);
  }

  void on_begin_print(const Glib::RefPtr<Gtk::PrintContext>& context) override {
    layout_ = context->create_pango_layout();
    layout_->set_font_description(Pango::FontDescription(kFont));
    layout_->set_width(static_cast<int>((context->get_width() - 2 * kMargin) * PANGO_SCALE));
    layout_->set_wrap(Pango::WRAP_WORD_CHAR);
    layout_->set_text(text_);
    // The first line of every page.
    const double room = context->get_height() - 2 * kMargin;
    double used = room;
    const int lines = layout_->get_line_count();
    for (int i = 0; i < lines; ++i) {
      const double height = HeightOf(i);
      if (used + height > room) {
        first_lines_.push_back(i);
        used = 0;
      }
      used += height;
    }
    set_n_pages(static_cast<int>(first_lines_.size()));
  }

  void on_draw_page(const Glib::RefPtr<Gtk::PrintContext>& context, int page) override {
    const auto cairo = context->get_cairo_context();
    const auto index = static_cast<std::size_t>(page);
    const int end =
        index + 1 < first_lines_.size() ? first_lines_[index + 1] : layout_->get_line_count();
    double y = kMargin;
    for (int i = first_lines_[index]; i < end; ++i) {
      y += HeightOf(i);
      cairo->move_to(kMargin, y);
      layout_->get_line(i)->show_in_cairo_context(cairo);
    }
  }

 private:
  double HeightOf(int line) const {
    Pango::Rectangle ink;
    Pango::Rectangle logical;
    layout_->get_line(line)->get_extents(ink, logical);
    return static_cast<double>(logical.get_height()) / PANGO_SCALE;
  }

  Glib::ustring text_;
  Glib::RefPtr<Pango::Layout> layout_;
  std::vector<int> first_lines_;
};

}  // namespace

void PrintText(const std::string& text, const std::string& pdf) {
  const auto job = TextJob::Create(text);
  if (pdf.empty()) {
    job->run(Gtk::PRINT_OPERATION_ACTION_PRINT);
    return;
  }
  job->set_export_filename(pdf);
  job->run(Gtk::PRINT_OPERATION_ACTION_EXPORT);
}

}  // namespace corvane::desktop
