// Reads the folder of a file list and keeps its rows up to date.
//
// Names and kinds come first, so that sorted rows are on the screen at once; attributes and notes
// follow in slices, those of the rows on the screen first, and messages are let through between
// them. A load that comes during another one takes its place: reads never nest.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "lister/FileListState.h"
#include "lister/Pacer.h"

namespace tarnwell::lister {

class FileReader {
 public:
  // `follower` watches the folder on disk and is told what to watch.
  FileReader(FileListState& files, FolderFollower& follower) : files_(files), follower_(follower) {}

  void Load(const std::string& folder);
  void SetFolder(const std::string& folder);
  void Refresh();
  void CatchUp();
  void FolderChanged(const platform::FolderChanges& changes);
  void Resort();
  // Filter or display switches have changed: the rows on show, and what is known of them, follow.
  void FilterChanged();
  void NotesChanged();
  void Terminate();

  bool IsReading() const { return reading_; }
  // Runs the work at once, or as soon as the read that runs is done.
  void WhenDone(std::function<void()> work);

 private:
  // How a read stands after messages were let through.
  enum class Standing { Going, Cancelled, Superseded };
  struct Job;

  // Reads the folder of the newest load once. False when a newer load has taken its place.
  bool Read();
  void ShowNames(FileRows&& fresh);
  base::Status ReadNames(Job& job, FileRows& rows);
  void ReadAttributes(Job& job);
  // True when the row looks different now.
  bool ReadAttributesOf(RowId row, Job& job);
  void Pump(Job& job, int count);
  void Replace(FileRows&& rows);
  void Merge(FileRows&& fresh, const std::vector<RowId>& partners);
  RowId StayingAbove(RowId row, const std::vector<RowId>& partners) const;
  void MindChanges(std::int64_t readFor);
  std::string Summary(const Job& job, const base::Status& status) const;

  FileListState& files_;
  FolderFollower& follower_;
  int newest_ = 0;            // number of the newest load
  std::string wanted_;        // its folder
  bool reading_ = false;      // a read runs
  bool stale_ = false;        // the folder changed since the newest read began
  bool willCatchUp_ = false;  // the view was asked for it
  bool stopped_ = false;      // by the user: changes wait for the next load
  bool terminated_ = false;
};

}  // namespace tarnwell::lister
