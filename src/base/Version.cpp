#include "base/Version.h"

#include "base/Number.h"
#include "base/Value.h"

namespace tarnwell::base {
namespace {

constexpr std::size_t PartDigits = 4;

std::string PartText(std::int32_t part) {
  std::string digits = std::to_string(part < 0 ? -std::int64_t{part} : part);
  if (digits.size() < PartDigits) digits.insert(0, PartDigits - digits.size(), '0');
  return part < 0 ? "-" + digits : digits;
}

std::int32_t ReadPart(const std::string& text) {
  try {
    return ToInt16(text);
  } catch (const ConversionError&) {
    return 0;
  }
}

}  // namespace

double Version::Number() const {
  return ParseNumber(std::to_string(Major) + PartText(Minor) + PartText(Revision)).value_or(0);
}

std::string Version::Text() const {
  return std::to_string(Major) + "." + std::to_string(Minor) + "." + std::to_string(Revision);
}

Version ReadVersion(const std::string& text) {
  const std::size_t first = text.find('.');
  if (first == std::string::npos) return {};
  const std::size_t last = text.rfind('.');
  Version version{.Major = ReadPart(text.substr(0, first)),
                  .Revision = ReadPart(text.substr(last + 1))};
  if (first < last) version.Minor = ReadPart(text.substr(first + 1, last - first - 1));
  return version;
}

}  // namespace tarnwell::base
