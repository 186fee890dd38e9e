#include "fileops/RenameTable.h"

#include <algorithm>
#include <memory>

#include "fileops/ItemName.h"

namespace tarnwell::fileops {

RenameTable::RenameTable(const platform::FileSystem& files, const platform::Clock& clock,
                         const std::vector<std::string>& paths)
    : files_(files), clock_(clock) {
  const base::PathSyntax& syntax = files_.Syntax();
  wishes_.reserve(paths.size());
  subjects_.reserve(paths.size());
  for (const std::string& path : paths) {
    const std::string folder = syntax.ParentOf(path);
    const std::string name(syntax.LastComponent(path));
    if (!folders_[folder].Rows.emplace(name, wishes_.size()).second) continue;
    wishes_.push_back({folder, name, name});
    subjects_.push_back({.Name = name, .Parent = std::string(syntax.LastComponent(folder))});
  }
  LookAgain();
}

void RenameTable::LookAgain() {
  isThere_.assign(Count(), false);
  for (auto& [folder, names] : folders_) ReadFolder(folder, names);
  finder_.reset();
  Judge([] { return true; });
}

void RenameTable::ReadFolder(const std::string& folder, FolderNames& names) {
  names.Keys.clear();
  base::Status status;
  const std::unique_ptr<platform::OpenedFolder> opened = files_.OpenFolder(folder, status);
  names.IsRead = opened && opened->Read([&](const platform::FolderEntry& entry) {
    std::string name(entry.Name);
    const auto row = names.Rows.find(name);
    if (row != names.Rows.end()) {
      isThere_[row->second] = true;
      platform::ItemAttributes attributes;
      attributes.Kind = entry.Kind;
      if (entry.Kind == platform::ItemKind::Unknown)
        files_.ReadAttributes(folder, name, attributes);
      subjects_[row->second].IsFolder = attributes.Kind == platform::ItemKind::Folder;
    }
    names.Keys.insert(std::move(name));
    return true;
  });
  names.IgnoresCase = IgnoresCase(folder, names);
  if (names.IgnoresCase || !files_.Syntax().CaseSensitive) {
    std::unordered_set<std::string> keys;
    for (const std::string& name : names.Keys)
      keys.insert(NameKey(name, names.IgnoresCase, files_.Syntax()));
    names.Keys = std::move(keys);
  }
  for (const auto& [name, row] : names.Rows) {
    wishes_[row].IgnoresCase = names.IgnoresCase;
    if (!names.IsRead) isThere_[row] = files_.Exists(files_.Syntax().Join(folder, name));
  }
}

// Some drives do, which only an item that is there tells.
bool RenameTable::IgnoresCase(const std::string& folder, const FolderNames& names) const {
  for (const auto& [name, row] : names.Rows) {
    if (!isThere_[row]) continue;
    std::string other = InCase(name, NameCase::Capitals);
    if (other == name) other = InCase(name, NameCase::Small);
    if (other == name) continue;
    return !names.Keys.contains(other) && files_.Exists(files_.Syntax().Join(folder, other));
  }
  return false;
}

void RenameTable::ReadTime(std::size_t row) {
  platform::ItemAttributes attributes;
  const RenameWish& wish = wishes_[row];
  const bool isKnown = files_.ReadAttributes(wish.Folder, wish.Name, attributes) &&
                       attributes.Modified != platform::UnknownTime;
  if (isKnown) subjects_[row].Modified = clock_.ToLocal(attributes.Modified);
}

bool RenameTable::NameBy(NameRules& rules, const GoesOn& goesOn) {
  finder_.reset();
  named_ = 0;
  nameOf_ = [this, &rules](std::size_t row) {
    while (rules.UsesTime() && timesRead_ <= row) ReadTime(timesRead_++);
    return rules.NameOf(subjects_[row], row);
  };
  return GoOn(goesOn);
}

bool RenameTable::NameBy(const std::vector<std::string>& lines, const GoesOn& goesOn) {
  finder_.reset();
  named_ = 0;
  nameOf_ = [this, &lines](std::size_t row) {
    return row < lines.size() ? lines[row] : wishes_[row].Name;
  };
  return GoOn(goesOn);
}

bool RenameTable::GoOn(const GoesOn& goesOn) {
  for (; named_ < Count(); ++named_) {
    if (!goesOn()) return false;
    wishes_[named_].NewName = nameOf_(named_);
  }
  return Judge(goesOn);
}

// Where a folder cannot be listed its items can still be asked for.
bool RenameTable::IsTaken(const std::string& folder, const std::string& name) const {
  const FolderNames& names = folders_.at(folder);
  if (names.IsRead) return names.Keys.contains(NameKey(name, names.IgnoresCase, files_.Syntax()));
  return files_.Exists(files_.Syntax().Join(folder, name));
}

bool RenameTable::Judge(const GoesOn& goesOn) {
  if (!finder_) {
    finder_.emplace(wishes_, files_.Syntax(),
                    [this](const std::string& folder, const std::string& name) {
                      return IsTaken(folder, name);
                    });
  }
  if (!finder_->GoOn(goesOn)) return false;
  faults_ = finder_->Take();
  finder_.reset();
  faultCount_ = changeCount_ = 0;
  for (std::size_t row = 0; row < Count(); ++row) {
    const RenameWish& wish = wishes_[row];
    if (wish.NewName != wish.Name) {
      ++changeCount_;
      if (!isThere_[row]) faults_[row] = RenameFault::Gone;
    }
    if (faults_[row] != RenameFault::None) ++faultCount_;
  }
  return true;
}

std::string RenameTable::ReasonOf(std::size_t row) const {
  const RenameFault fault = faults_.at(row);
  return fault == RenameFault::NotAName ? FaultOfName(wishes_[row].NewName, files_.Syntax())
                                        : std::string(TextOf(fault));
}

std::size_t RenameTable::NextFault(std::size_t row) const {
  const auto isFault = [](RenameFault fault) { return fault != RenameFault::None; };
  const auto below = faults_.begin() + static_cast<std::ptrdiff_t>(row < Count() ? row + 1 : 0);
  auto found = std::find_if(below, faults_.end(), isFault);
  if (found == faults_.end()) found = std::ranges::find_if(faults_, isFault);
  return static_cast<std::size_t>(found - faults_.begin());
}

std::vector<platform::PlacedItem> RenameTable::Steps() const {
  const base::PathSyntax& syntax = files_.Syntax();
  const auto keyOf = [&](const RenameWish& wish, const std::string& name) {
    return syntax.Join(wish.Folder, NameKey(name, wish.IgnoresCase, syntax));
  };
  std::unordered_set<std::string> wanted;
  wanted.reserve(Count());
  for (const RenameWish& wish : wishes_) wanted.insert(keyOf(wish, wish.NewName));
  return StepsOf(wishes_, syntax, [&](const RenameWish& wish) {
    return NameBetween(wish, [&](const std::string& name) {
      return !IsTaken(wish.Folder, name) && wanted.insert(keyOf(wish, name)).second;
    });
  });
}

}  // namespace tarnwell::fileops
