// A row that is remembered while rows come and go.
#pragma once

#include <string>

#include "lister/rows/ListRows.h"

namespace tarnwell::lister {

// By its path as well, since the number of a row that is gone serves another one later.
class PersistentRow {
 public:
  explicit PersistentRow(const ListRows& rows) : rows_(rows) {}

  void Set(RowId row) {
    row_ = row;
    path_ = rows_.PathOf(row);
  }
  void Clear() { Set(NoRow); }
  // NoRow once the row is gone.
  RowId Get() const { return !path_.empty() && rows_.PathOf(row_) == path_ ? row_ : NoRow; }

 private:
  const ListRows& rows_;
  RowId row_ = NoRow;
  std::string path_;
};

}  // namespace tarnwell::lister
