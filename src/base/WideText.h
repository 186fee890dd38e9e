// Names as the systems hold them that write them in 16-bit units.
#pragma once

#include <string>
#include <string_view>

namespace tarnwell::base {

// UTF-16 as UTF-8, and back. A surrogate that stands alone is written as its three bytes, as WTF-8
// has it (https://simonsapin.github.io/wtf-8/), so that every name comes back as it was. Bytes that
// are neither give U+FFFD.
std::string FromWide(std::u16string_view wide);
std::u16string ToWide(std::string_view text);

}  // namespace tarnwell::base
