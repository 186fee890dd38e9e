// Keys of rows: the bytes of two keys compare as the rows do by the headings that a list is sorted
// by. No key is the beginning of another one.
#pragma once

#include <string>
#include <vector>

#include "lister/rows/FileRows.h"

namespace tarnwell::lister {

class RowKeys {
 public:
  // What is given outlives the keys.
  RowKeys(const FileRows& rows, const std::vector<SortKey>& keys, const NameOrder& names);

  void Append(RowId row, std::string& key) const;
  // Of rows whose keys are equal: by the bytes of their names.
  bool BeforeByBytes(RowId left, RowId right) const;

  static bool NeedsAttributes(HeadingId heading);
  static bool NeedsExtendedAttributes(HeadingId heading);

 private:
  const FileRows& rows_;
  std::vector<SortKey> keys_;
  const NameOrder& names_;
};

}  // namespace tarnwell::lister
