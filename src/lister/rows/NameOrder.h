// The order in which people expect names: by the letters of the user's language, without regard to
// case, runs of digits by their value.
#pragma once

#include <string>
#include <string_view>

#include "platform/Collation.h"

namespace tarnwell::lister {

class NameOrder {
 public:
  // The collation outlives the order.
  explicit NameOrder(const platform::Collation& collation);

  // Appends the key of the name: the bytes of two keys compare as the names do. It holds no byte
  // below 2 and has no mark at its end.
  void AppendKey(std::string_view name, std::string& key) const;

  // Below 0, 0 or above 0, by the keys. Names that differ in case, accents or leading zeros alone
  // compare as 0. Bytes that are no UTF-8 come behind all letters, by their value.
  int Compare(std::string_view left, std::string_view right) const;
  // A total order: names that compare as equal go by their bytes.
  bool Before(std::string_view left, std::string_view right) const;

 private:
  void AppendDigits(std::string_view digits, std::string& key) const;

  const platform::Collation& collation_;
  std::string digitMark_;  // in the keys before each run of digits
};

}  // namespace tarnwell::lister
