#include "platform/win32/api/WideName.h"

#include <algorithm>

#include "base/PathSyntax.h"
#include "base/WideText.h"

namespace tarnwell::platform {
namespace {

constexpr std::string_view LongMark = R"(\\?\)", LongNetworkMark = R"(\\?\UNC\)";

// Less "." and "..", and with one separator between two names and none at the end. What stands
// before `start` stays, and nothing leads above it.
std::string Tidied(std::string_view path, std::size_t start) {
  constexpr char separator = '\\';
  std::string tidy(path.substr(0, start));
  for (std::size_t at = start; at < path.size();) {
    const std::size_t end = std::min(path.find(separator, at), path.size());
    const std::string_view name = path.substr(at, end - at);
    at = end + 1;
    if (name == "..") {
      if (tidy.size() > start) tidy.resize(std::max(start, tidy.rfind(separator)));
    } else if (!name.empty() && name != ".") {
      if (!tidy.ends_with(separator)) tidy += separator;
      tidy += name;
    }
  }
  return tidy;
}

}  // namespace

std::wstring Wide(std::string_view text) {
  const std::u16string wide = base::ToWide(text);
  return {wide.begin(), wide.end()};
}

std::string Narrow(std::wstring_view wide) {
  return base::FromWide(std::u16string(wide.begin(), wide.end()));
}

void NarrowInto(std::wstring_view wide, std::string& text) {
  // Most names are ASCII alone.
  text.resize(wide.size());
  for (std::size_t at = 0; at < wide.size(); ++at) {
    if (wide[at] >= 0x80) {
      text = Narrow(wide);
      return;
    }
    text[at] = static_cast<char>(wide[at]);
  }
}

std::wstring LongPath(std::string_view path) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if (path.starts_with(LongMark) || !syntax.IsWhole(path)) return Wide(path);
  if (path.starts_with(syntax.NetworkMark)) {
    path.remove_prefix(syntax.NetworkMark.size());
    const std::size_t server = path.find(syntax.Separator);  // the share is behind it
    const std::size_t start =
        server == path.npos ? server : path.find(syntax.Separator, server + 1);
    return Wide(std::string(LongNetworkMark).append(Tidied(path, std::min(start, path.size()))));
  }
  const std::size_t start = path.find(syntax.RootMark) + syntax.RootMark.size();
  return Wide(std::string(LongMark).append(Tidied(path, start)));
}

std::string FromLongPath(std::wstring_view path) {
  const std::string longer = Narrow(path);
  if (longer.starts_with(LongNetworkMark)) {
    return std::string(base::PathSyntax::Windows().NetworkMark)
        .append(longer.substr(LongNetworkMark.size()));
  }
  if (!longer.starts_with(LongMark)) return longer;
  std::string plain = longer.substr(LongMark.size());
  return base::PathSyntax::Windows().IsWhole(plain) ? plain : longer;
}

}  // namespace tarnwell::platform
