#include "base/PathSyntax.h"

#include <algorithm>

#include "base/LetterCase.h"
#include "base/Text.h"

namespace tarnwell::base {
namespace {

// The path without separators at its end; a path of separators alone keeps one.
std::string_view WithoutEnd(std::string_view path, char separator) {
  while (path.size() > 1 && path.back() == separator) path.remove_suffix(1);
  return path;
}

// The text as it is compared: by capitals, but for letters beyond ASCII whose capital is an ASCII
// letter. File systems keep those apart, the dotless "i" from "I" say.
void AppendFolded(std::string_view text, bool caseSensitive, std::string& folded) {
  const std::size_t start = folded.size();
  folded.append(text);
  if (caseSensitive) return;
  // Most names are ASCII to their end, and these letters keep their places.
  std::size_t position = 0;
  for (; position < text.size() && static_cast<unsigned char>(text[position]) < 0x80; ++position) {
    folded[start + position] = CapitalAscii(text[position]);
  }
  folded.resize(start + position);
  while (position < text.size()) {
    const char32_t letter = NextCodePoint(text, position);
    const char32_t capital = CapitalLetter(letter);
    AppendCodePoint(folded, capital < 0x80 && letter >= 0x80 ? letter : capital);
  }
}

std::string Folded(std::string_view text, bool caseSensitive) {
  std::string folded;
  AppendFolded(text, caseSensitive, folded);
  return folded;
}

// The names that Windows keeps for devices, with any extension: "Naming Files, Paths, and
// Namespaces" of its documentation. Those with a number end in 1 to 9, or in one of the
// superscripts of Latin-1.
bool IsDeviceName(std::string_view name) {
  std::string_view stem = name.substr(0, name.find('.'));
  stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
  const std::string word = AsciiUpper(stem.substr(0, 3));
  const std::string_view number = stem.substr(word.size());
  if (number.empty()) return word == "CON" || word == "PRN" || word == "AUX" || word == "NUL";
  if (word != "COM" && word != "LPT") return false;
  return (number.size() == 1 && number >= "1" && number <= "9") || number == "\u00b9" ||
         number == "\u00b2" || number == "\u00b3";
}

}  // namespace

const PathSyntax& PathSyntax::Posix() {
  static constexpr PathSyntax syntax{'/', "/", "", "", true, ""};
  return syntax;
}

const PathSyntax& PathSyntax::Windows() {
  static constexpr PathSyntax syntax{'\\', "C", ":\\", "\\\\", false, "/:*?\"<>|"};
  return syntax;
}

const PathSyntax& PathSyntax::Native() {
#ifdef _WIN32
  return Windows();
#else
  return Posix();
#endif
}

bool PathSyntax::IsName(std::string_view name) const {
  if (name.empty() || name == "." || name == "..") return false;
  if (name.find(Separator) != name.npos || name.find('\0') != name.npos) return false;
  if (ForbiddenInNames.empty()) return true;
  const auto isControl = [](unsigned char byte) { return byte < 0x20; };
  return name.find_first_of(ForbiddenInNames) == name.npos &&
         std::ranges::none_of(name, isControl) && name.back() != '.' && name.back() != ' ' &&
         !IsNameOfDevice(name);
}

bool PathSyntax::IsNameOfDevice(std::string_view name) const {
  return !ForbiddenInNames.empty() && IsDeviceName(name);
}

bool PathSyntax::IsDriveRoot(std::string_view path) const {
  if (RootMark.empty()) return path.size() == 1 && path.front() == Separator;
  return path.ends_with(RootMark);
}

bool PathSyntax::IsWhole(std::string_view path) const {
  if (RootMark.empty()) return path.starts_with(Separator);
  return path.substr(std::min<std::size_t>(path.size(), 1)).starts_with(RootMark) ||
         FindNetworkStart(path) == 0;
}

std::size_t PathSyntax::FindNetworkStart(std::string_view path) const {
  return NetworkMark.empty() ? std::string_view::npos : path.find(NetworkMark);
}

std::string PathSyntax::AddSeparator(std::string_view path) const {
  std::string result(path);
  if (!path.ends_with(Separator)) result += Separator;
  return result;
}

std::string PathSyntax::RemoveRightSlash(std::string_view path) const {
  if (path.ends_with(Separator)) path.remove_suffix(1);
  return std::string(path);
}

std::string PathSyntax::GetFolderPath(std::string_view path) const {
  return std::string(path.substr(0, path.rfind(Separator) + 1));  // npos + 1 is 0
}

std::string PathSyntax::ValidatePath(std::string_view path) const {
  const std::size_t start = FindNetworkStart(path);
  if (start == std::string_view::npos) return std::string(path);
  const std::size_t end = path.find(Separator, start + NetworkMark.size());
  if (end == std::string_view::npos || end + 1 == path.size()) return "";
  return std::string(path.substr(start));
}

std::string_view PathSyntax::LastComponent(std::string_view path) const {
  if (path.ends_with(Separator)) path.remove_suffix(1);
  return path.substr(path.rfind(Separator) + 1);
}

std::string PathSyntax::Join(std::string_view folder, std::string_view name) const {
  std::string path;
  if (!folder.empty()) path = AddSeparator(folder);
  return path += name;
}

std::string PathSyntax::ParentOf(std::string_view path) const {
  while (path.ends_with(Separator) && !IsDriveRoot(path)) path.remove_suffix(1);
  if (IsDriveRoot(path)) return std::string(path);

  std::string_view folder = path.substr(0, path.rfind(Separator) + 1);
  const bool hasFolder = !folder.empty();
  while (folder.ends_with(Separator) && !IsDriveRoot(folder)) folder.remove_suffix(1);
  if (!folder.empty() || !hasFolder) return std::string(folder);
  // Separators alone stand before the item: it is a network server, which nothing holds, or it is
  // in the root.
  return FindNetworkStart(path) == 0 ? std::string(path) : std::string(1, Separator);
}

std::string PathSyntax::DriveRoot(std::string_view drive) const {
  if (FindNetworkStart(drive) == 0) return std::string(drive);
  return std::string(drive).append(RootMark);
}

void PathSyntax::AppendKey(std::string_view path, std::string& key) const {
  AppendFolded(WithoutEnd(path, Separator), CaseSensitive, key);
}

std::string PathSyntax::Key(std::string_view path) const {
  std::string key;
  AppendKey(path, key);
  return key;
}

bool PathSyntax::Same(std::string_view left, std::string_view right) const {
  left = WithoutEnd(left, Separator);
  right = WithoutEnd(right, Separator);
  return left == right || (!CaseSensitive && Folded(left, false) == Folded(right, false));
}

bool PathSyntax::IsWithin(std::string_view path, std::string_view folder) const {
  if (Same(path, folder)) return true;
  if (folder.empty()) return false;
  const std::string start = AddSeparator(WithoutEnd(folder, Separator));
  return Folded(path, CaseSensitive).starts_with(Folded(start, CaseSensitive));
}

}  // namespace tarnwell::base
