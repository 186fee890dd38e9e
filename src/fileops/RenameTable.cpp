#include "fileops/RenameTable.h"

#include <algorithm>
#include <memory>

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
  for (auto& [folder, names] : folders_) ReadFolder(folder, names);
  Judge();
}

void RenameTable::ReadFolder(const std::string& folder, FolderNames& names) {
  names.Keys.clear();
  base::Status status;
  const std::unique_ptr<platform::OpenedFolder> opened = files_.OpenFolder(folder, status);
  names.IsRead = opened && opened->Read([&](const platform::FolderEntry& entry) {
    std::string name(entry.Name);
    const auto row = names.Rows.find(name);
    if (row != names.Rows.end() && entry.Kind != platform::ItemKind::Unknown) {
      subjects_[row->second].IsFolder = entry.Kind == platform::ItemKind::Folder;
    } else if (row != names.Rows.end()) {
      platform::ItemAttributes attributes;
      subjects_[row->second].IsFolder = files_.ReadAttributes(folder, name, attributes) &&
                                        attributes.Kind == platform::ItemKind::Folder;
    }
    names.Keys.insert(files_.Syntax().Key(name));
    return true;
  });
}

void RenameTable::ReadTimes() {
  if (knowsTimes_) return;
  knowsTimes_ = true;
  for (std::size_t row = 0; row < Count(); ++row) {
    platform::ItemAttributes attributes;
    const RenameWish& wish = wishes_[row];
    const bool isKnown = files_.ReadAttributes(wish.Folder, wish.Name, attributes) &&
                         attributes.Modified != platform::UnknownTime;
    if (isKnown) subjects_[row].Modified = clock_.ToLocal(attributes.Modified);
  }
}

void RenameTable::NameBy(NameRules& rules) {
  if (rules.UsesTime()) ReadTimes();
  for (std::size_t row = 0; row < Count(); ++row) {
    wishes_[row].NewName = rules.NameOf(subjects_[row], row);
  }
  Judge();
}

void RenameTable::NameBy(const std::vector<std::string>& lines) {
  for (std::size_t row = 0; row < Count(); ++row) {
    wishes_[row].NewName = row < lines.size() ? lines[row] : wishes_[row].Name;
  }
  Judge();
}

// Where a folder cannot be listed its items can still be asked for.
bool RenameTable::IsTaken(const std::string& folder, const std::string& name) const {
  const FolderNames& names = folders_.at(folder);
  if (names.IsRead) return names.Keys.contains(files_.Syntax().Key(name));
  return files_.Exists(files_.Syntax().Join(folder, name));
}

void RenameTable::Judge() {
  const base::PathSyntax& syntax = files_.Syntax();
  faults_ = FaultsOf(wishes_, syntax, [this](const std::string& folder, const std::string& name) {
    return IsTaken(folder, name);
  });
  faultCount_ = changeCount_ = 0;
  for (std::size_t row = 0; row < Count(); ++row) {
    const RenameWish& wish = wishes_[row];
    if (wish.NewName != wish.Name) {
      ++changeCount_;
      if (!IsTaken(wish.Folder, wish.Name)) faults_[row] = RenameFault::Gone;
    }
    if (faults_[row] != RenameFault::None) ++faultCount_;
  }
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
  std::unordered_set<std::string> wanted;
  for (const RenameWish& wish : wishes_)
    wanted.insert(syntax.Key(syntax.Join(wish.Folder, wish.NewName)));
  return StepsOf(wishes_, syntax, [&](const RenameWish& wish) {
    return NameBetween(wish, [&](const std::string& name) {
      return !IsTaken(wish.Folder, name) &&
             wanted.insert(syntax.Key(syntax.Join(wish.Folder, name))).second;
    });
  });
}

}  // namespace tarnwell::fileops
