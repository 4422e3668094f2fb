#pragma once

#include <memory>
#include <string>

namespace corvane {

/// A picture that a desktop made; the product only hands it on.
class Picture {
 public:
  virtual ~Picture() = default;
};

/// Pictures that every desktop has in stock.
enum class StockImage {
  Document,
  Links,
  Link,
  Frames,
  Frame,
  Anchors,
  Anchor,
  Forms,
  Form,
  FormElement,
};

/// The pictures of a tree's nodes, numbered from 1. A picture may have a key
/// and a tag; keys need not differ.
class ImageList {
 public:
  ImageList() = default;
  ImageList(const ImageList&) = delete;
  ImageList& operator=(const ImageList&) = delete;
  virtual ~ImageList() = default;

  virtual int Count() const = 0;
  /// The key of the picture at `index`, which must be in the list.
  virtual std::string Key(int index) const = 0;
  virtual std::string Tag(int index) const = 0;
  virtual void SetTag(int index, const std::string& tag) = 0;
  /// Appends a picture, which may be null and is then blank; returns its index.
  virtual int Add(const std::string& key, std::shared_ptr<Picture> picture) = 0;
  virtual int Add(const std::string& key, StockImage image) = 0;
};

}  // namespace corvane
