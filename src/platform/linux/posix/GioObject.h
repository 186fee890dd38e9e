// Objects and errors of GLib that free themselves.
#pragma once

#include <gio/gio.h>

#include <cerrno>
#include <memory>
#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

struct GioUnref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
struct GioFree {
  void operator()(gpointer memory) const { g_free(memory); }
};

// One reference, or nothing.
template <typename Object>
using GioObject = std::unique_ptr<Object, GioUnref>;

using GioText = std::unique_ptr<char, GioFree>;

// Empty for null.
inline std::string TextOf(const char* text) {
  return text != nullptr ? text : "";
}

// Where a call of GLib puts its error.
class GioError {
 public:
  GioError() = default;
  GioError(const GioError&) = delete;
  GioError& operator=(const GioError&) = delete;
  ~GioError() { g_clear_error(&error_); }

  GError** Place() { return &error_; }
  // Of a call that failed. GLib keeps the system's number to itself.
  base::Status Status() const {
    return {EIO, error_ != nullptr ? error_->message : g_strerror(EIO)};
  }

 private:
  GError* error_ = nullptr;
};

}  // namespace tarnwell::platform
