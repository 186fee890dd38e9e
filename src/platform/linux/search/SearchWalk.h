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
#include "platform/search/SearchPart.h"

namespace tarnwell::platform {

// Walks the folders of a job, tests what is in them and looks into the files; gives jobs away where
// others have nothing to do. Follows no link and opens nothing but folders and regular files.
class SearchWalk : private SearchPart {
 public:
  // Work and request must outlive it.
  SearchWalk(SearchWork& work, const SearchRequest& request, SearchNameTest takesName,
             std::unique_ptr<TextScan> scan)
      : SearchPart(work, request, std::move(takesName), std::move(scan)), work_(work) {}

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
  void LookIntoFile(int folder, const char* name);
  void FindItem(const char* name, mode_t type);

  SearchWork& work_;
  TreeWalk<Level> walk_;  // over the folders that have subfolders
  std::size_t top_ = 0;   // level of the job's folder
  FolderBuffer buffer_;
  std::size_t level_ = 0;  // of the items in the folder at hand
  NameList files_;         // of it, to be looked into
};

}  // namespace tarnwell::platform
