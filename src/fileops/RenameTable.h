// The items of a rename of many: what they are called, what they are to be called, and what speaks
// against it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "fileops/RenamePlan.h"
#include "fileops/RenameRules.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"

namespace tarnwell::fileops {

class RenameTable {
 public:
  // Full paths, in the order by which counters count. Reads the folders that hold them.
  RenameTable(const platform::FileSystem& files, const platform::Clock& clock,
              const std::vector<std::string>& paths);

  // Reads the folders again, and judges the names by what is there now.
  void LookAgain();
  // Gives new names. What is not among the lines, which are one for each item, keeps its name.
  // False where the work was broken off, for GoOn or for other names: till then names and faults
  // are partly those before. Rules and lines stay as they are meanwhile.
  bool NameBy(
      NameRules& rules, const GoesOn& goesOn = [] { return true; });
  bool NameBy(
      const std::vector<std::string>& lines, const GoesOn& goesOn = [] { return true; });
  bool GoOn(const GoesOn& goesOn);

  std::size_t Count() const { return wishes_.size(); }
  const RenameWish& operator[](std::size_t row) const { return wishes_.at(row); }
  RenameFault FaultOf(std::size_t row) const { return faults_.at(row); }
  // What speaks against the name, for people; empty where nothing does.
  std::string ReasonOf(std::size_t row) const;
  bool IsFolder(std::size_t row) const { return subjects_.at(row).IsFolder; }
  bool HasSeveralFolders() const { return folders_.size() > 1; }
  std::size_t FaultCount() const { return faultCount_; }
  std::size_t ChangeCount() const { return changeCount_; }
  // The row of the next fault below that one, or of the first of all; Count() where there is none.
  // From above with a row that is none.
  std::size_t NextFault(std::size_t row) const;
  // See StepsOf. Only while there is no fault.
  std::vector<platform::PlacedItem> Steps() const;

 private:
  struct FolderNames {
    bool IsRead = false;  // all names are among the keys
    bool IgnoresCase = false;
    std::unordered_set<std::string> Keys;               // of the names of its items, by NameKey
    std::unordered_map<std::string, std::size_t> Rows;  // of the items to be renamed, by name
  };

  void ReadFolder(const std::string& folder, FolderNames& names);
  bool IgnoresCase(const std::string& folder, const FolderNames& names) const;
  void ReadTime(std::size_t row);
  bool Judge(const GoesOn& goesOn);
  bool IsTaken(const std::string& folder, const std::string& name) const;

  const platform::FileSystem& files_;
  const platform::Clock& clock_;
  std::vector<RenameWish> wishes_;
  std::vector<NameSubject> subjects_;
  std::vector<bool> isThere_;  // by row, when the folders were read
  std::vector<RenameFault> faults_;
  std::unordered_map<std::string, FolderNames> folders_;
  std::size_t faultCount_ = 0;
  std::size_t changeCount_ = 0;
  std::size_t timesRead_ = 0;  // rows
  std::function<std::string(std::size_t row)> nameOf_;
  std::size_t named_ = 0;              // rows
  std::optional<FaultFinder> finder_;  // once all have names
};

}  // namespace tarnwell::fileops
