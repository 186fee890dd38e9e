// Port: a search through all that lies below a folder.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Status.h"
#include "platform/FileSystem.h"
#include "platform/Regex.h"

namespace tarnwell::platform {

// Both ends belong to it.
template <typename Number>
struct SearchRange {
  Number Least = std::numeric_limits<Number>::min();
  Number Most = std::numeric_limits<Number>::max();

  bool IsAll() const { return *this == SearchRange(); }
  bool Holds(Number number) const { return number >= Least && number <= Most; }
  bool operator==(const SearchRange&) const = default;
};

// A test of one name; serves one thread.
using SearchNameTest = std::function<bool(std::string_view name, bool isFolder)>;

// Symbolic links are items of their own, and never followed.
struct SearchRequest {
  std::string Folder;  // full path; a link to it is followed
  // These two are called from within Start, once for each thread that searches. What they give has
  // to own, or to share, what it works with: it may outlive the search.
  std::function<SearchNameTest()> MakeNameTest = {};             // empty: every name will do
  std::function<std::unique_ptr<Regex>()> MakeContentTest = {};  // with lines; empty: see Content
  std::string Content = {};  // bytes; empty: any content will do
  bool FindsFiles = true;
  bool FindsFolders = true;
  bool FindsLinks = true;
  bool FindsOthers = true;     // devices, sockets, FIFOs
  bool TakesHidden = false;    // else they are neither found nor entered
  bool EntersVolumes = false;  // that are mounted below the folder
  std::size_t Levels = 0;      // 1 for what lies right in the folder, and so on; 0 for all
  SearchRange<std::uint64_t> Sizes = {};    // bytes; anything but all of them finds files alone
  SearchRange<std::int64_t> Modified = {};  // nanoseconds since 1970-01-01 UTC
  // With a test of the content files alone are found. That of a larger one is not looked into, nor
  // of one that holds a NUL in its first 8 kB, unless that is wanted. A text of UTF-16 has to begin
  // with its mark.
  std::uint64_t LargestFile = std::numeric_limits<std::uint64_t>::max();  // bytes
  bool LooksIntoBinary = false;
};

struct FoundItem {
  std::string Name;  // its path from the folder that is searched on: "sub/folder/name"
  ItemKind Kind = ItemKind::File;  // Unknown for a link
  bool IsLink = false;
};

// What could not be looked at, or not all of it.
struct SearchTrouble {
  std::string Path;  // full
  base::Status Reason;
};

struct SearchCounts {
  std::uint64_t Folders = 0;  // that were read
  std::uint64_t Items = 0;    // that were seen in them
  std::uint64_t Found = 0;
  std::uint64_t LookedInto = 0;  // files
  std::uint64_t Bytes = 0;       // read of them
  std::uint64_t Binary = 0;      // files that were skipped, as SearchRequest says
  std::uint64_t TooLarge = 0;
  std::uint64_t Troubles = 0;

  bool operator==(const SearchCounts&) const = default;
};

// Of the troubles so many are told; all are counted.
inline constexpr std::size_t MostSearchTroubles = 500;

struct SearchUpdate {
  std::vector<FoundItem> Found;         // since the last one: some thousands at most, in no order
  std::vector<SearchTrouble> Troubles;  // the same
  SearchCounts Counts;                  // so far
  std::string Folder;                   // one that is at hand; full path
  std::chrono::milliseconds Elapsed{0};
  bool IsDone = false;  // this is the last one
  base::Status Status;  // why the folder could not be searched
};

// A search that is under way: goes on until it is done, or let go of.
class RunningSearch {
 public:
  virtual ~RunningSearch() = default;
};

class FileSearch {
 public:
  virtual ~FileSearch() = default;

  // Calls `told` from the event loop, some times a second and at the end; never before it returns,
  // nor once the search has been let go of, which may happen within the call. Waits for no volume,
  // neither here nor there.
  using Told = std::function<void(SearchUpdate)>;
  virtual std::unique_ptr<RunningSearch> Start(SearchRequest request, Told told) = 0;
};

}  // namespace tarnwell::platform
