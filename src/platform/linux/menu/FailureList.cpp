#include "platform/linux/menu/FailureList.h"

#include "platform/linux/posix/ItemText.h"

namespace tarnwell::platform {
namespace {

constexpr std::size_t mostTold = 10;

}  // namespace

void FailureList::Add(const std::string& path, const base::Status& status) {
  if (status) return;
  if (count_ == 0) {
    first_ = QuotedName(path);
    reason_ = status.Reason;
  }
  if (++count_ <= mostTold) lines_ += "\n" + QuotedName(path) + ": " + status.Reason;
}

void FailureList::Show(Dialogs& dialogs, const FailureWords& words) const {
  if (count_ == 0) return;
  std::string text = Filled(words.Named, {first_}) + "\n\n" + reason_;
  if (count_ > 1) text = Counted(forms_, words.Numbered, count_) + "\n" + lines_;
  if (count_ > mostTold) {
    text += "\n" + Counted(forms_, CountedText::DotsAndMore, count_ - mostTold);
  }
  dialogs.ShowCritical("Tarnwell", text);
}

}  // namespace tarnwell::platform
