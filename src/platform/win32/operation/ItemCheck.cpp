#include "platform/win32/operation/ItemCheck.h"

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/Fingerprint.h"
#include "platform/win32/files/ItemHandle.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/operation/ItemSort.h"
#include "platform/win32/operation/ShellOperation.h"
#include "platform/win32/shell/ShellPath.h"

namespace tarnwell::platform {

bool ItemCheck::IsThere(const std::string& path, const ItemFingerprint* expected) {
  for (;;) {
    ItemSort sort = ItemSort::None;
    base::Status status = FindSort(path, sort);
    if (status && sort == ItemSort::None) {
      if (expected != nullptr) {
        TellOfOther(path, true);
        return false;
      }
      status = ReasonOfMissing(path);
    }
    if (status) status = FitForShell(path);
    if (status) return true;
    if (!talk_.Retries(OperationStep::Find, path, status)) return false;
  }
}

bool ItemCheck::MayTake(const std::string& path) {
  const bool deletes = talk_.Function() == FileFunction::Delete;
  const OperationStep step = deletes ? OperationStep::Delete : OperationStep::Move;
  for (;;) {
    const std::string refusal = Refusal(path);
    if (refusal.empty()) return true;
    if (!talk_.Retries(step, path, {ERROR_ACCESS_DENIED, refusal})) return false;
  }
}

// What is known is looked at anew once the user has heard of it.
std::string ItemCheck::Refusal(const std::string& path) {
  std::string refusal = protected_.Refusal(talk_.Function(), base::ItemList::TextOf({path}));
  if (!refusal.empty()) protected_ = ProtectedItems(programFolder_);
  return refusal;
}

bool ItemCheck::IsAsExpected(const std::string& path, const ItemFingerprint* expected) {
  if (expected == nullptr) return true;
  const ItemFingerprint found = FingerprintOf(path, expected->Below != 0);
  if (found == *expected) return true;
  TellOfOther(path, found == ItemFingerprint());
  return false;
}

bool ItemCheck::IsFitBelow(const std::string& path, const std::string& target) {
  while (SortOf(path) == ItemSort::Folder) {
    const std::string unfit = UnfitBelow(path, target);
    if (unfit.empty()) break;
    const std::string told = unfit.size() > 1 ? path + unfit : path;
    if (!talk_.Retries(OperationStep::Find, told, TooLongForShell())) return false;
  }
  return true;
}

// Names may be short ones, and a link may lead there too.
bool ItemCheck::IsInto(const std::string& from, const std::string& to) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if (syntax.Same(from, to)) return false;
  if (syntax.IsWithin(to, from)) return true;
  const auto identityAt = [](const std::string& path) {
    const Handle item = OpenItem(path, true);
    return item ? IdentityOf(item.Get()) : ItemIdentity();
  };
  if (const std::string folder = syntax.ParentOf(to); folder != wayFrom_) {
    wayFrom_ = folder;
    way_.clear();
    std::string each = FromLongPath(FinalPathOf(OpenItem(folder, true).Get()));
    for (; !each.empty(); each = syntax.ParentOf(each)) {
      way_.insert(identityAt(each));
      if (syntax.IsDriveRoot(each) || each == syntax.ParentOf(each)) break;
    }
    way_.erase(ItemIdentity());
  }
  return way_.contains(identityAt(from));
}

bool ItemCheck::MayBecome(const std::string& from, const std::string& to) {
  if (SortOf(from) == ItemSort::Folder && IsInto(from, to)) {
    talk_.Retries(OperationStep::Place, from,
                  {ERROR_INVALID_PARAMETER, "A folder cannot go into itself"});
    return false;
  }
  const base::Status status = FitForShell(to);
  if (!status) talk_.Retries(OperationStep::Find, to, status);
  return static_cast<bool>(status);
}

void ItemCheck::TellOfOther(const std::string& path, bool isGone) {
  talk_.Remark(isGone ? OperationRemark::GoneSince : OperationRemark::ChangedSince, path);
  talk_.NoteLeft(isGone ? ERROR_FILE_NOT_FOUND : ERROR_FILE_INVALID);
}

}  // namespace tarnwell::platform
