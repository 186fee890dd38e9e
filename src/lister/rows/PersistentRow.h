// A row that is remembered while rows come and go.
#pragma once

#include <string>

#include "lister/ListerControl.h"

namespace tarnwell::lister {

// By its path as well, since the number of a row that is gone serves another one later.
class PersistentRow {
 public:
  explicit PersistentRow(const ListerControl& control) : control_(control) {}

  void Set(RowId row) {
    row_ = row;
    path_ = control_.PathOf(row);
  }
  void Clear() { Set(NoRow); }
  // NoRow once the row is gone.
  RowId Get() const { return !path_.empty() && control_.PathOf(row_) == path_ ? row_ : NoRow; }

 private:
  const ListerControl& control_;
  RowId row_ = NoRow;
  std::string path_;
};

}  // namespace tarnwell::lister
