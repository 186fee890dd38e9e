#include "platform/win32/api/WideName.h"

#include "base/PathSyntax.h"
#include "base/WideText.h"

namespace tarnwell::platform {
namespace {

constexpr std::string_view LongMark = R"(\\?\)", LongNetworkMark = R"(\\?\UNC\)";

}  // namespace

std::wstring Wide(std::string_view text) {
  const std::u16string wide = base::ToWide(text);
  return {wide.begin(), wide.end()};
}

std::string Narrow(std::wstring_view wide) {
  return base::FromWide(std::u16string(wide.begin(), wide.end()));
}

std::wstring LongPath(std::string_view path) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if (path.starts_with(LongMark) || !syntax.IsWhole(path)) return Wide(path);
  std::string longer;
  if (path.starts_with(syntax.NetworkMark)) {
    longer = std::string(LongNetworkMark).append(path.substr(syntax.NetworkMark.size()));
  } else {
    longer = std::string(LongMark).append(path);
  }
  return Wide(longer);
}

std::string FromLongPath(std::wstring_view path) {
  const std::string longer = Narrow(path);
  if (longer.starts_with(LongNetworkMark)) {
    return std::string(base::PathSyntax::Windows().NetworkMark)
        .append(longer.substr(LongNetworkMark.size()));
  }
  return longer.starts_with(LongMark) ? longer.substr(LongMark.size()) : longer;
}

}  // namespace tarnwell::platform
