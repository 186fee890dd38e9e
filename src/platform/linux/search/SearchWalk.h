// The part of a search that one thread does.
#pragma once

#include <dirent.h>
#include <sys/stat.h>

#include <cstddef>
#include <memory>
#include <string>

#include "platform/FileSearch.h"
#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/TreeWalk.h"
#include "platform/linux/search/SearchWork.h"
#include "platform/linux/search/TextScan.h"

namespace tarnwell::platform {

// Walks the folders of a job, tests what is in them and looks into the files; gives jobs away where
// others have nothing to do. Follows no link and opens nothing but folders and regular files.
class SearchWalk {
 public:
  // Work and request must outlive it.
  SearchWalk(SearchWork& work, const SearchRequest& request, SearchNameTest takesName,
             std::unique_ptr<TextScan> scan)
      : work_(work),
        request_(request),
        takesName_(std::move(takesName)),
        scan_(std::move(scan)),
        nameStart_(request.Folder.size() + (request.Folder.ends_with('/') ? 0 : 1)) {}

  void Run(SearchJob job);

 private:
  struct Level {};  // nothing but the names to come

  bool OpenTop(SearchJob& job);
  void ReadFolder(int folder);
  void TakeItem(int folder, const dirent64& item);
  bool IsWanted(mode_t type) const;
  bool IsInRange(const struct statx& found) const;
  void EnterFolder(const std::string& name);
  void LookIntoFiles(int folder);
  void LookInto(int folder, const char* name);
  ScanOutcome Scan(int file, std::uint64_t size);

  std::string PathOf(std::string_view name) const;
  void Find(std::string_view name, mode_t type);
  void Note(std::string path, const base::Status& reason);
  void Tell();

  SearchWork& work_;
  const SearchRequest& request_;
  const SearchNameTest takesName_;  // may be empty
  std::unique_ptr<TextScan> scan_;  // null where content does not matter
  const std::size_t nameStart_;     // in a full path

  TreeWalk<Level> walk_;  // over the folders that have subfolders
  std::size_t top_ = 0;   // level of the job's folder
  FolderBuffer buffer_;
  std::string here_;       // path of the folder that is read
  std::size_t level_ = 0;  // of the items in it
  NameList files_;         // of it, to be looked into
  SearchShare share_;
};

}  // namespace tarnwell::platform
