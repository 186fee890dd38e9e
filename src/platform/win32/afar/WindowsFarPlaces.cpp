#include "platform/win32/afar/WindowsFarPlaces.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/api/Windows.h"
#include "platform/win32/files/FarPath.h"
#include "platform/win32/files/LinkTarget.h"

namespace tarnwell::platform {
namespace {

constexpr int mostFarLinks = 63;  // as the system has it

// Whether the folder is the item, or lies below it.
bool LeadsTo(std::string_view item, std::string_view folder) {
  return folder.starts_with(item) && (folder.size() == item.size() ||
                                      folder[item.size()] == base::PathSyntax::Windows().Separator);
}

}  // namespace

std::string LinkHere(const std::string& path) {
  const std::wstring wide = LongPath(path);
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return {};
  }
  std::string target = ReadLinkTarget(wide);
  return IsVolumeTarget(target) ? std::string() : target;
}

std::optional<FarPlace> FindFarPlace(const std::string& path, LastLink last, std::string& plain,
                                     const ReadLinkHere& readLink) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  plain = path;
  std::string rest = path;
  for (int links = 0; links <= mostFarLinks; ++links) {
    if (const auto share = NetworkShareOf(rest)) return FarPlace{share->Path, share->Server};
    if (!syntax.IsWhole(rest)) return {};
    constexpr std::size_t root = 3;  // "C:\"
    plain = rest.substr(0, root);
    std::string target;
    for (std::size_t start = root; start < rest.size() && target.empty();) {
      const std::size_t end = std::min(rest.find(syntax.Separator, start), rest.size());
      const std::string name = rest.substr(start, end - start);
      start = end + 1;
      if (name.empty() || name == ".") continue;
      if (name == "..") {
        plain = syntax.ParentOf(plain);
        continue;
      }
      plain = syntax.Join(plain, name);
      if (last == LastLink::Itself && start >= rest.size()) continue;
      target = readLink(plain);
      if (target.empty()) continue;
      target = LinkedPath(plain, target);
      if (start < rest.size()) target = syntax.Join(target, rest.substr(start));
    }
    if (target.empty()) return {};
    rest = std::move(target);
  }
  return {};
}

std::optional<FarPlace> WindowsFarPlaces::Find(const std::string& path, LastLink last,
                                               std::string& plain) const {
  const std::string known = KnownFolder();
  auto place = FindFarPlace(path, last, plain, [&](const std::string& item) {
    return LeadsTo(item, known) ? std::string() : readLink_(item);
  });
  if (place || plain != path) return place;
  std::string folder = base::PathSyntax::Windows().ParentOf(path);
  if (!LeadsTo(folder, known)) Know(std::move(folder));
  return place;
}

std::string WindowsFarPlaces::KnownFolder() const {
  const std::lock_guard lock(mutex_);
  if (std::chrono::steady_clock::now() - knownSince_ > knownFor_) known_.clear();
  return known_;
}

void WindowsFarPlaces::Know(std::string folder) const {
  const std::lock_guard lock(mutex_);
  known_ = std::move(folder);
  knownSince_ = std::chrono::steady_clock::now();
}

}  // namespace tarnwell::platform
