// The rows of a file list in the order in which what is dear is found out for them: those on the
// screen, the pages around them, then the rest, those that the filter does not take among them, as
// the folder gave them, in which order a file system has them at hand. The user may scroll, sort or
// filter meanwhile.
#pragma once

#include <algorithm>

#include "lister/files/FileListState.h"

namespace tarnwell::lister {

class RowWalk {
 public:
  explicit RowWalk(FileListState& files) : files_(files) { LookAgain(); }

  // NoRow at the end. Some rows come twice.
  RowId Next() {
    if (files_.Orders != orders_) LookAgain();
    for (; part_ != Rest; Enter(part_ + 1)) {
      if (next_ <= last_) return files_.Rows.At(next_++);
    }
    while (rest_ < files_.Rows.StoreSize()) {
      if (files_.Rows.IsUsed(++rest_)) return rest_;
    }
    return NoRow;
  }
  bool IsOnScreen() const { return part_ == Screen; }
  // After messages were let through: the user may have scrolled. That rows have other places is
  // seen by Next, since a look at an item of another machine lets messages through as well.
  void LookAgain() {
    const RowRange visible = files_.View().VisibleRows();
    const bool scrolled = visible.First != visible_.First || visible.Last != visible_.Last;
    if (!scrolled && files_.Orders == orders_) return;
    orders_ = files_.Orders;
    visible_ = visible;
    Enter(Screen);
  }

 private:
  enum Part { Screen, Around, Rest };

  void Enter(int part) {
    const int margin = part == Around ? 2 * files_.View().PageRows() : 0;
    part_ = part;
    next_ = std::max(visible_.First - margin, 0);
    last_ = std::min(visible_.Last + margin, files_.Rows.Count() - 1);
  }

  FileListState& files_;
  RowRange visible_;
  int orders_ = -1;
  int part_ = Screen;
  int next_ = 0;
  int last_ = -1;
  RowId rest_ = 0;  // up to which row the rest has come
};

}  // namespace tarnwell::lister
