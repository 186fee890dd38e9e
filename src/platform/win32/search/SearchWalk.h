// The part of a search that one thread does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileSearch.h"
#include "platform/search/SearchJobs.h"
#include "platform/search/SearchPart.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// A volume that was entered by a folder that it is mounted on.
struct EnteredVolume {
  std::uint64_t Number = 0;
  std::shared_ptr<const EnteredVolume> Before;
};

// A folder with all below it, or some files of it to be looked into.
struct SearchJob {
  std::string Path = {};                             // full
  std::size_t Level = 0;                             // 0 for the first
  std::shared_ptr<const EnteredVolume> Volume = {};  // null on that of the first
  std::vector<std::string> Files = {};               // empty: all of the folder
};

using SearchWork = SearchJobs<SearchJob>;

// Walks the folders of a job, tests what is in them and looks into the files; gives jobs away where
// others have nothing to do. Follows no link.
class SearchWalk : private SearchPart {
 public:
  // Work and request must outlive it.
  SearchWalk(SearchWork& work, const SearchRequest& request, SearchNameTest takesName,
             std::unique_ptr<TextScan> scan)
      : SearchPart(work, request, std::move(takesName), std::move(scan)), work_(work) {}

  void Run(SearchJob job);

 private:
  void ReadFolder();
  void TakeItem(const WIN32_FIND_DATAW& item);
  void AddVolume(const std::string& folder);
  bool IsWanted(bool isFolder, bool isLink) const;
  bool IsInRange(const WIN32_FIND_DATAW& item) const;
  void LookIntoFiles();
  void LookIntoFile(const std::string& name);

  SearchWork& work_;
  SearchJob job_;                   // the folder at hand
  std::vector<SearchJob> folders_;  // that are still to be read, the next one last
  std::vector<std::string> files_;  // of the folder at hand, to be looked into
};

}  // namespace tarnwell::platform
