#include "tools/TipLines.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tarnwell::tools {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

TipLines::TipLines(std::string text) : text_(std::move(text)) {
  if (text_.starts_with(ByteOrderMark)) text_.erase(0, ByteOrderMark.size());
  if (text_.find('\n') == std::string::npos) end_ = '\r';
  for (std::string_view rest = text_; !rest.empty(); TakeLine(rest)) ++count_;
}

std::string_view TipLines::At(int number) const {
  std::string_view rest = text_;
  for (; number > 1; --number) TakeLine(rest);
  return TakeLine(rest);
}

std::string_view TipLines::TakeLine(std::string_view& rest) const {
  const std::size_t length = std::min(rest.find(end_), rest.size());
  std::string_view line = rest.substr(0, length);
  rest.remove_prefix(std::min(length + 1, rest.size()));
  if (end_ == '\n' && line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace tarnwell::tools
