#pragma once

#include <glib-object.h>

#include <memory>
#include <string>

namespace corvane::desktop {

/// Gives back, by the function named, what a C library has handed over.
template <auto give_back>
struct GiveBack {
  template <class T>
  void operator()(T* owned) const {
    give_back(owned);
  }
};

template <class T, auto give_back>
using Owned = std::unique_ptr<T, GiveBack<give_back>>;

/// One reference to a GObject.
template <class T>
using ObjectPtr = Owned<T, g_object_unref>;
using BytesPtr = Owned<GBytes, g_bytes_unref>;
using VariantPtr = Owned<GVariant, g_variant_unref>;
using ErrorPtr = Owned<GError, g_error_free>;
/// A list, but not what is in it.
using ListPtr = Owned<GList, g_list_free>;
using GText = Owned<char, g_free>;

/// Another reference to an object.
template <class T>
ObjectPtr<T> Held(T* object) {
  return ObjectPtr<T>(static_cast<T*>(g_object_ref(object)));
}

/// The text, or an empty one for a null pointer.
inline std::string Text(const char* text) { return text == nullptr ? std::string() : text; }

/// The same of a text that is to be freed.
inline std::string Taken(char* text) { return Text(GText(text).get()); }

}  // namespace corvane::desktop
