// The order in which people expect names: without regard to case, runs of digits by their value.
#pragma once

#include <string_view>

namespace tarnwell::lister {

// Below 0, 0 or above 0. Names that differ in case or in leading zeros alone compare as 0. Bytes
// that are no UTF-8 compare by their value.
int CompareNames(std::string_view left, std::string_view right);

// A total order: names that compare as equal go by their bytes.
bool NameBefore(std::string_view left, std::string_view right);

}  // namespace tarnwell::lister
