#pragma once

#include <gdkmm/pixbuf.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/image_list.h"

namespace corvane::desktop {

/// A Picture that is a pixbuf.
class PixbufPicture : public Picture {
 public:
  explicit PixbufPicture(Glib::RefPtr<Gdk::Pixbuf> pixbuf) : pixbuf_(std::move(pixbuf)) {}
  const Glib::RefPtr<Gdk::Pixbuf>& Pixbuf() const { return pixbuf_; }

 private:
  Glib::RefPtr<Gdk::Pixbuf> pixbuf_;
};

/// The first of the names that the icon theme has, in that size; null for none.
Glib::RefPtr<Gdk::Pixbuf> ThemeIcon(const std::vector<Glib::ustring>& names, int pixels);

/// An ImageList of pixbufs.
class PixbufList : public ImageList {
 public:
  int Count() const override { return static_cast<int>(images_.size()); }
  std::string Key(int index) const override { return At(index).key; }
  std::string Tag(int index) const override { return At(index).tag; }
  void SetTag(int index, const std::string& tag) override {
    images_.at(static_cast<std::size_t>(index) - 1).tag = tag;
  }
  int Add(const std::string& key, std::shared_ptr<Picture> picture) override;
  int Add(const std::string& key, StockImage image) override;

  /// The picture at `index`; null for 0 and for a blank one.
  Glib::RefPtr<Gdk::Pixbuf> Pixbuf(int index) const;

 private:
  struct Image {
    std::string key;
    std::string tag;
    Glib::RefPtr<Gdk::Pixbuf> pixbuf;
  };
  const Image& At(int index) const { return images_.at(static_cast<std::size_t>(index) - 1); }

  std::vector<Image> images_;
};

}  // namespace corvane::desktop
