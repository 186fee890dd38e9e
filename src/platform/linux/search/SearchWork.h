// What the threads of a search work on.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <string>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/NameList.h"
#include "platform/search/SearchJobs.h"

namespace tarnwell::platform {

// A folder with all below it, or some files of it to be looked into.
struct SearchJob {
  Descriptor Folder;      // none for the one that the search begins with
  std::string Path;       // full
  std::size_t Level = 0;  // 0 for the first
  NameList Files = {};    // empty: all of the folder
};

class SearchWork : public SearchJobs<SearchJob> {
 public:
  using SearchJobs::SearchJobs;

  // Of the folder that the search begins with; set before the second job is given.
  struct statx Top {};
};

}  // namespace tarnwell::platform
