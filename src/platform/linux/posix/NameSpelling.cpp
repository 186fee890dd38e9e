#include "platform/linux/posix/NameSpelling.h"

#include <glib.h>

#include <memory>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {
namespace {

struct FreeText {
  void operator()(gchar* text) const { g_free(text); }
};
using GText = std::unique_ptr<gchar, FreeText>;

bool IsUtf8(const std::string& name) {
  return g_utf8_validate(name.data(), static_cast<gssize>(name.size()), nullptr) != FALSE;
}

// What is no UTF-8 is left as it is but for its ASCII letters.
std::string Folded(const std::string& name) {
  const auto size = static_cast<gssize>(name.size());
  if (!IsUtf8(name)) return GText(g_ascii_strdown(name.data(), size)).get();
  const GText whole(g_utf8_normalize(name.data(), size, G_NORMALIZE_DEFAULT_COMPOSE));
  return GText(g_utf8_casefold(whole.get(), -1)).get();
}

// The name in other letters; the same where it has none that have a case.
std::string InOtherCase(const std::string& name) {
  const auto size = static_cast<gssize>(name.size());
  if (!IsUtf8(name)) {
    const GText upper(g_ascii_strup(name.data(), size));
    return name != upper.get() ? upper.get() : GText(g_ascii_strdown(name.data(), size)).get();
  }
  const GText upper(g_utf8_strup(name.data(), size));
  return name != upper.get() ? upper.get() : GText(g_utf8_strdown(name.data(), size)).get();
}

// Calls `take` with each name until it gives false. False if the folder cannot be read.
template <typename Take>
bool ForEachName(int folder, Take take) {
  const Descriptor fresh(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!fresh) return false;
  const auto takeName = [&](const dirent64& item) { return take(item.d_name); };
  return FolderBuffer().Read(fresh.Get(), takeName) == NoError;
}

}  // namespace

bool IsSameButForCase(const std::string& one, const std::string& other) {
  return Folded(one) == Folded(other);
}

std::string SpellingThere(int folder, const std::string& name) {
  const std::string other = InOtherCase(name);
  struct statx found;
  if (other == name || LookAt(folder, other.c_str(), found) != NoError) return name;
  std::string spelled;
  const std::string folded = Folded(name);
  ForEachName(folder, [&](const char* each) {
    if (each == name) spelled = name;
    if (spelled.empty() && Folded(each) == folded) spelled = each;
    return spelled != name;
  });
  return spelled.empty() ? name : spelled;
}

bool HasExactName(int folder, const std::string& name) {
  bool has = false;
  const bool isRead = ForEachName(folder, [&](const char* each) {
    has = each == name;
    return !has;
  });
  return has || !isRead;
}

}  // namespace tarnwell::platform
