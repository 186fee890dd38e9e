// Items of the folder on show that watch notices name: gathers them, looks at them when it is time,
// and brings their rows up to date, no others.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "lister/files/DetailsReader.h"
#include "lister/files/FileListState.h"
#include "lister/list/ReadJob.h"
#include "platform/FolderWatch.h"

namespace tarnwell::lister {

class FolderUpdate {
 public:
  FolderUpdate(FileListState& files, DetailsReader& details) : files_(files), details_(details) {}

  void Add(const platform::FolderChanges& changes);
  void Clear();
  bool HasNone() const { return !everything_ && names_.empty(); }
  // More than is worth looking at one by one: the folder is to be read again.
  bool IsEverything() const { return everything_; }

  // Looks at the items gathered and brings their rows up to date. Messages are let through before
  // any row is changed; no row is when the job goes on no longer. True when items came or went.
  bool Apply(ReadJob& job);

 private:
  struct Item {
    std::string Name;
    RowId Row = NoRow;
    bool IsThere = false;
    base::Status Status;  // of asking for the attributes
    platform::ItemAttributes Attributes;
    ItemColour Colour = ItemColour::Default;
    std::string Comment;
  };

  std::vector<Item> TakeItems();
  // Only reading the folder can tell what is new.
  static bool AreUnclear(const std::vector<Item>& items);
  void LookAt(Item& item, const platform::OpenedFolder& folder) const;
  bool Change(std::vector<Item>& items);
  // True when the row looks different now.
  bool SetDetails(const Item& item);
  void TellCells(const std::vector<RowId>& rows);

  FileListState& files_;
  DetailsReader& details_;
  std::unordered_set<std::string> names_;
  bool everything_ = false;
};

}  // namespace tarnwell::lister
