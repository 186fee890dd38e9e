// Reads the folder of a file list and keeps its rows up to date.
//
// Names and kinds come first, so that sorted rows are on the screen at once; attributes, plain
// and extended, follow in slices (DetailsReader.h), and messages are let through between them. Work
// that is asked for meanwhile is done after it, or in its place: reads never nest, and the newest
// load wins.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "lister/files/DetailsReader.h"
#include "lister/files/FileListState.h"
#include "lister/files/FolderUpdate.h"
#include "lister/list/ReadJob.h"
#include "lister/rows/RowSort.h"
#include "platform/FileOperation.h"
#include "platform/FileSearch.h"

namespace tarnwell::lister {

class FileReader {
 public:
  // `follower` watches the folder on disk and is told what to watch.
  FileReader(FileListState& files, FolderFollower& follower)
      : files_(files), follower_(follower), details_(files), update_(files, details_) {}

  void Load(const std::string& folder);
  void SetFolder(const std::string& folder);
  void Refresh();
  void CatchUp();
  void FolderChanged(const platform::FolderChanges& changes);
  void Resort();
  // The filter is another one: shows what it takes, without a look at the disk.
  void FilterChanged();
  // Switches and headings may show extended attributes that have not been read yet.
  void SettingsChanged();
  void Terminate();

  // What was found, see ListerControl. Refresh looks at each item again then.
  void ShowFound(const std::string& folder);
  void AddFound(const std::vector<platform::FoundItem>& items);
  bool ShowsFound() const { return isOfFound_; }
  std::vector<platform::FoundItem> FoundItems() const;
  void FollowMoved(const std::vector<platform::PlacedItem>& placed);

  bool IsReading() const { return busy_; }
  // Runs the work at once, or as soon as the read that runs is done. It is dropped when that is
  // stopped by the user or gives way to another folder.
  void WhenDone(std::function<void()> work);

 private:
  // Does what is asked for, until nothing is left; nothing when it is at work already.
  void Work();
  bool DoNext();
  void RunWaiting();
  ReadJob NewJob();
  void LetThrough(ReadJob& job, const std::string& progress);

  // Reads the folder of the newest load once.
  void Read();
  // Gives the rows to `sort` as well, if there is one.
  base::Status ReadNames(ReadJob& job, FileRows& rows, std::optional<RowSort>& sort);
  // By the keys that hold when it is done; `sort` is by those that held when it was made. False
  // when a newer load has come meanwhile.
  bool SortFresh(ReadJob& job, FileRows& fresh, std::optional<RowSort>& sort);
  FileRows::GoOn SortPace(ReadJob& job);
  void MindUnfollowed(const std::string& folder);
  void ShowKnownSizes();
  void ReadDetails(ReadJob& job);
  void ClearFor(const std::string& folder);
  void LendPath(bool lends);
  void ShowNames(FileRows&& fresh, std::vector<RowId> partners);
  void Replace(FileRows&& rows);
  void Stop();
  void MindChanges(std::int64_t readFor);

  void Begin(const std::string& folder);
  // The folder of the rows; null with the reason where it cannot be opened.
  std::unique_ptr<platform::OpenedFolder> OpenShown(base::Status& status) const;

  void BeginFound();
  void TakeFound();
  // Gives up where the rows have been replaced.
  bool StoreFound(ReadJob& job, std::vector<RowId>& fresh);
  void Follow();
  void BringBack(const std::unordered_set<std::string>& placed);
  void LookAtFound();
  void DropGone(ReadJob& job);
  void ArrangeWithout(const std::unordered_set<RowId>& gone, std::vector<RowId> order);
  void LookAgain();

  // None once a newer load has come.
  std::vector<RowId> SortedRows(ReadJob& job);
  void Sort(ReadJob& job);
  void ReadExtendedAttributes();
  void Update();

  FileListState& files_;
  FolderFollower& follower_;
  DetailsReader details_;
  FolderUpdate update_;  // changes on disk since the newest read began
  int newest_ = 0;       // number of the newest load
  std::string wanted_;   // its folder
  bool readAsked_ = false;
  bool sortAsked_ = false;
  bool busy_ = false;         // Work runs
  bool sorting_ = false;      // the rows on show must neither come nor go
  bool filterAsked_ = false;  // while they were being sorted
  bool willCatchUp_ = false;  // the view was asked for it
  bool stopped_ = false;      // by the user: changes wait for the next load
  bool terminated_ = false;
  bool isOfFound_ = false;                    // the newest load is of what was found
  std::vector<platform::FoundItem> arrived_;  // of it, without rows yet
  std::unordered_set<std::string> dropped_;   // names of it that went, and may come back by an undo
  std::vector<RowId> noteless_;               // rows that came since notes were read
  std::vector<platform::PlacedItem> moved_;   // to be followed
  bool lookAsked_ = false;                    // at what has not been tried
  std::deque<std::function<void()>> waiting_;  // for the read to be done
  bool runsWaiting_ = false;
};

}  // namespace tarnwell::lister
