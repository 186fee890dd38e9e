#include "platform/linux/operation/TrashedItems.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <utility>

#include "base/ItemList.h"
#include "platform/linux/operation/DeleteTree.h"
#include "platform/linux/operation/ExpectedItem.h"
#include "platform/linux/operation/TargetFolder.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

Descriptor Duplicate(const Descriptor& opened) {
  return Descriptor(opened ? fcntl(opened.Get(), F_DUPFD_CLOEXEC, 0) : -1);
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return path.substr(0, slash == 0 ? 1 : slash);
}

}  // namespace

TrashedItems::Trash* TrashedItems::FindTrash(const TrashPlace& place, const std::string& path) {
  std::unique_ptr<Trash>& found = trashes_[place.Trash];
  while (!found) {
    base::Status status;
    auto trash = std::make_unique<Trash>(TrashPath(place.Trash, geteuid()));
    if (place.Name.empty()) status = {EINVAL, "It lies in no trash"};
    if (status) trash->Opened = OpenTrash::Of(trash->Path, status);
    if (status) {
      const auto open = [](const Descriptor& folder, const std::string& where) {
        return std::make_shared<OpenPlace>(OpenPlace{Duplicate(folder), where});
      };
      trash->Files = open(trash->Opened.Files, trash->Path.FilesFolder());
      trash->Notes = open(trash->Opened.Notes, trash->Path.NotesFolder());
      trash->Reader.emplace(trash->Path, trash->Opened);
      found = std::move(trash);
    } else if (!context_.Retries(OperationStep::Find, path, status)) {
      return nullptr;
    }
  }
  return found.get();
}

bool TrashedItems::IsRefused(const Item& item) {
  const OpenPlace& folder = item.Place.IsNote ? *item.Of->Notes : *item.Of->Files;
  const std::string name = item.Path.substr(item.Path.rfind('/') + 1);
  const std::string refusal =
      protected_.Refusal(context_.Function(), folder.Folder.Get(), name.c_str());
  if (refusal.empty()) return false;
  const bool isMove = context_.Function() == FileFunction::Move;
  context_.Retries(isMove ? OperationStep::Move : OperationStep::Delete, item.Path,
                   {EPERM, refusal});
  return true;
}

bool TrashedItems::IsFileThere(const Item& item) const {
  struct statx found;
  const int files = item.Of->Files->Folder.Get();
  return files >= 0 && LookAt(files, item.Place.Name.c_str(), found) != ENOENT;
}

bool TrashedItems::DropNote(const Item& item) {
  if (IsFileThere(item)) return false;
  const std::string note = item.Place.Name + std::string(NoteEnding);
  const int notes = item.Of->Notes->Folder.Get();
  if (notes < 0) return true;
  while (unlinkat(notes, note.c_str(), 0) != 0 && errno != ENOENT) {
    if (errno == EISDIR) {
      DeleteQuietly(notes, note);
      break;
    }
    const std::string path = item.Of->Path.NotePlaceOf(item.Place.Name);
    if (!context_.Retries(OperationStep::Delete, path, errno)) break;
  }
  return true;
}

void TrashedItems::Delete(const std::vector<std::string>& places, const Expectations& expected) {
  TreeDeletion deletion(context_);
  context_.SetTotal(places.size());
  for (std::size_t at = 0; at < places.size() && context_.GoesOn(); ++at) {
    const std::string& path = places[at];
    Item item;
    if (!expected.empty()) item.Expected = &expected[at];
    item.Place = SplitTrashPlace(path);
    item.Path = path;
    item.Of = FindTrash(item.Place, path);
    if (item.Of == nullptr || IsRefused(item)) continue;
    const OpenPlace& folder = item.Place.IsNote ? *item.Of->Notes : *item.Of->Files;
    const std::string name = path.substr(folder.Path.size() + 1);
    if (item.Place.IsNote && IsFileThere(item)) {
      context_.Retries(OperationStep::Delete, path, {EBUSY, "Its file is there by now"});
      continue;
    }
    struct statx found;
    if (LookAt(folder.Folder.Get(), name.c_str(), found) == ENOENT) {
      context_.AddItems(1);  // gone by itself
    } else if (!IsAsExpected(context_, folder.Folder.Get(), name, path, item.Expected)) {
      continue;
    } else {
      deletion.Delete(folder.Folder.Get(), name, path);
    }
    if (!item.Place.IsNote) DropNote(item);
  }
  DropSizes();
}

bool TrashedItems::Restore(const std::vector<std::string>& places, std::string_view targets,
                           const Expectations& expected) {
  std::vector<Item> items;
  auto target = base::ItemList(targets).begin();
  for (const std::string& path : places) {
    if (target == std::default_sentinel || !(*target).starts_with('/')) return false;
    Item item;
    item.Place = SplitTrashPlace(path);
    item.Path = path;
    item.Folder = FolderOf(std::string(*target));
    item.Name = (*target).substr((*target).rfind('/') + 1);
    if (item.Name.empty()) return false;
    if (!expected.empty()) item.Expected = &expected[items.size()];
    items.push_back(std::move(item));
    ++target;
  }
  if (target != std::default_sentinel) return false;
  // One folder after the other.
  std::ranges::stable_sort(items, {}, &Item::Folder);
  context_.SetTotal(items.size());
  for (const Item& item : items) ahead_.push_back(item.Path);
  std::ranges::reverse(ahead_);
  for (Item& item : items) {
    if (!context_.GoesOn()) break;
    item.Of = FindTrash(item.Place, item.Path);
    if (item.Of != nullptr && IsAsTold(item) && !IsRefused(item)) RestoreItem(item);
    ahead_.pop_back();
  }
  FinishTarget();
  DropSizes();
  return true;
}

// What the user chose may have been restored by others, and its name in the trash given away.
bool TrashedItems::IsAsTold(const Item& item) {
  const std::string to = item.Folder + (item.Folder == "/" ? "" : "/") + item.Name;
  // An item that is known by its number may have come there by another way, with another note.
  const bool isKnown = item.Expected != nullptr && item.Expected->Number != 0;
  for (;;) {
    base::Status status;
    TrashState state = TrashState::Whole;
    std::int64_t noteTime = 0;
    const std::optional<TrashNote> note =
        item.Of->Reader->ReadNote(item.Place.Name, state, noteTime);
    const FormerPlace place = note ? item.Of->Path.PlaceBefore(*note) : FormerPlace();
    if (item.Place.IsNote || !IsFileThere(item)) {
      status = {ENOENT, "It is no longer in the trash"};
    } else if (place.State != TrashState::Whole) {
      status = {ENOENT, "The trash no longer tells where it was"};
    } else if (!isKnown && (place.Folder != item.Folder || place.Name != item.Name)) {
      status = {EBUSY, "Another item has its place in the trash by now"};
    }
    if (status) return true;
    if (item.Expected != nullptr) {
      TellOfOther(context_, to, status.Code);
      return false;
    }
    if (!context_.Retries(OperationStep::Find, to, status)) return false;
  }
}

// The note of a volume that somebody brought may name a link to a folder of this machine.
bool TrashedItems::LeadsOut(const Item& item) const {
  if (item.Of->Path.IsHome()) return false;
  const Descriptor top = OpenPath(item.Of->Path.Base(), O_PATH | O_DIRECTORY);
  std::string folder = item.Folder;
  Descriptor there = OpenPath(folder, O_PATH | O_DIRECTORY);
  while (!there && errno == ENOENT && folder != "/") {
    folder = FolderOf(folder);
    there = OpenPath(folder, O_PATH | O_DIRECTORY);
  }
  const std::string topPath = top ? OwnPathOf(top) : std::string();
  const std::string path = there ? OwnPathOf(there) : std::string();
  if (topPath.empty() || path.empty()) return true;
  return topPath != "/" && path != topPath && !path.starts_with(topPath + "/");
}

bool TrashedItems::OpenTarget(const Item& item) {
  FinishTarget();
  targetFolder_ = item.Folder;
  const std::string path = item.Folder == "/" ? "" : item.Folder;
  for (;;) {
    if (LeadsOut(item)) {
      const base::Status reason{EXDEV, "The way there leads out of the volume"};
      if (!context_.Retries(OperationStep::Find, item.Folder, reason)) return false;
      continue;
    }
    const std::optional<ErrorNumber> error = OpenOrMakePlace(context_, path, target_);
    if (!error) return false;
    if (*error == NoError) break;
    if (!context_.Retries(OperationStep::Find, item.Folder, *error)) return false;
  }
  transfer_ = std::make_unique<ItemTransfer>(context_, target_, protected_, record_);
  transfer_->BeforeCopying([this] {
    if (context_.Has(Silent) || std::exchange(isCounting_, true)) return;
    context_.SetTotal(context_.ItemsDone());
    counter_.Start(ahead_);
    context_.CountBy([this](OperationProgress& progress) { counter_.AddTo(progress); });
  });
  return true;
}

void TrashedItems::RestoreItem(const Item& item) {
  if (targetFolder_ != item.Folder || !transfer_) {
    // No folder is made for what is to be left.
    const int files = item.Of->Files->Folder.Get();
    if (!IsAsExpected(context_, files, item.Place.Name, item.Path, item.Expected)) return;
    if (!OpenTarget(item)) return;
  }
  transfer_->Take(item.Of->Files, item.Place.Name, item.Name, item.Expected);
  if (!DropNote(item)) copied_.push_back(item);
}

void TrashedItems::FinishTarget() {
  if (transfer_) transfer_->Finish();
  transfer_.reset();
  for (const Item& item : std::exchange(copied_, {})) DropNote(item);
}

void TrashedItems::DropSizes() {
  for (const auto& [path, trash] : trashes_) {
    if (!trash || !trash->Opened.Files) continue;
    const int files = trash->Opened.Files.Get();
    ChangeSizesOf(trash->Opened, [files](KeptSizes& sizes) {
      std::erase_if(sizes, [files](const auto& each) {
        struct statx found;
        return LookAt(files, each.first.c_str(), found) == ENOENT;
      });
    });
  }
}

}  // namespace tarnwell::platform
