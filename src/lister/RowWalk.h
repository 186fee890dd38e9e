// The rows of a file list in the order in which what is dear is found out for them: those on the
// screen, the pages around them, then the rest, those that the filter does not take among them. The
// user may scroll, sort or filter meanwhile.
#pragma once

#include <algorithm>

#include "lister/FileListState.h"

namespace tarnwell::lister {

class RowWalk {
 public:
  explicit RowWalk(FileListState& files) : files_(files) { LookAgain(); }

  // NoRow at the end. Some rows come twice.
  RowId Next() {
    for (; next_ > last_; Enter(part_ + 1)) {
      if (part_ == Rest) return NoRow;
    }
    const int at = next_++;
    return part_ == Rest ? files_.Rows.All()[static_cast<std::size_t>(at)] : files_.Rows.At(at);
  }
  bool IsOnScreen() const { return part_ == Screen; }
  // After messages were let through.
  void LookAgain() {
    const RowRange visible = files_.View().VisibleRows();
    const bool moved = files_.Orders != orders_;
    if (!moved && visible.First == visible_.First && visible.Last == visible_.Last) return;
    if (moved) {
      rest_ = 0;
    } else if (part_ == Rest) {
      rest_ = next_;
    }
    orders_ = files_.Orders;
    visible_ = visible;
    Enter(Screen);
  }

 private:
  enum Part { Screen, Around, Rest };

  void Enter(int part) {
    part_ = part;
    if (part == Rest) {
      next_ = rest_;
      last_ = static_cast<int>(files_.Rows.All().size()) - 1;
    } else {
      const int margin = part == Around ? 2 * files_.View().PageRows() : 0;
      next_ = std::max(visible_.First - margin, 0);
      last_ = std::min(visible_.Last + margin, files_.Rows.Count() - 1);
    }
  }

  FileListState& files_;
  RowRange visible_;
  int orders_ = -1;
  int part_ = Screen;
  int next_ = 0;
  int last_ = -1;
  int rest_ = 0;  // where the rest goes on
};

}  // namespace tarnwell::lister
