// A file system in memory, by the path syntax given: drives C and D on Windows, one root on Posix.
//
// Tests build it with AddFolder, AddFile and AddLink and break it with the fault switches. Links
// are followed; there are no permissions but the faults. A path that a test names must exist, or be
// one that can be made; std::out_of_range tells a slip in a test.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/FolderStamps.h"

namespace tarnwell::fakes {

struct MemoryItem : std::enable_shared_from_this<MemoryItem> {
  std::string Name;
  platform::ItemKind Kind = platform::ItemKind::Folder;
  std::string Content;
  std::string Target;  // where a link leads, a full path
  bool IsLink = false;
  bool IsHidden = false;
  bool IsSystem = false;
  std::int64_t Modified = 0;
  std::int64_t Created = platform::UnknownTime;
  std::int64_t Accessed = platform::UnknownTime;
  std::uint32_t Mode = 0644;
  std::map<platform::ExtendedAttribute, std::string> ExtendedAttributes;
  base::Status ReadFault;        // ReadFolder and ReadFile fail with it
  base::Status AttributesFault;  // ReadAttributes fails with it
  int VanishAfter = -1;          // the folder goes once that many items of it have been read
  std::uint64_t Number = 0;      // which item it is, whatever its path
  int Reads = 0;                 // how often the folder was read
  std::map<std::string, std::shared_ptr<MemoryItem>> Children;  // by name, folded
};

class MemoryFileSystem : public platform::FileSystem {
 public:
  static base::Status NotFound() { return {2, "No such file or directory"}; }
  static base::Status Denied() { return {13, "Permission denied"}; }

  explicit MemoryFileSystem(const base::PathSyntax& syntax = base::PathSyntax::Windows());

  // Makes the folder and all folders above it; the root of the path becomes a drive.
  MemoryItem& AddFolder(const std::string& path);
  // Makes or replaces the file, and the folders above it.
  MemoryItem& AddFile(const std::string& path, const std::string& content = "");
  MemoryItem& AddLink(const std::string& path, const std::string& target);
  // The item itself, no link followed at its end, for a test to change.
  MemoryItem& At(const std::string& path);
  // What a look at the folder gives. Its times are both that of Modified.
  platform::FolderStamp StampOf(const std::string& folder) const;
  // Takes the item away with all that is below it.
  void Remove(const std::string& path);

  base::Status WriteFault;              // WriteFile, MakeFolder and RemoveFile fail with it
  bool ListsAttributes = false;         // what a folder holds comes with attributes, links apart
  mutable int Looks = 0;                // at attributes of items in open folders
  std::string Fatal;                    // OpenFolder and WriteFile throw where they meet this path
  base::Status ExtendedAttributeFault;  // WriteExtendedAttribute fails with it, for any item
  platform::Space Space;

  const base::PathSyntax& Syntax() const override { return syntax_; }
  std::unique_ptr<platform::OpenedFolder> OpenFolder(const std::string& folder,
                                                     base::Status& status) const override;
  base::Status ReadAttributes(const std::string& folder, const std::string& name,
                              platform::ItemAttributes& attributes) const override;
  bool FolderExists(const std::string& path) const override;
  bool Exists(const std::string& path) const override;
  base::Status CheckTarget(const std::string& path) const override;
  base::Status MeasureFolder(const std::string& folder, const GoOn& goOn,
                             platform::FolderTotal& total) const override;
  base::Status ReadSpace(const std::string& folder, platform::Space& space) const override;
  base::Status WriteExtendedAttribute(const std::string& path, platform::ExtendedAttribute note,
                                      const std::string& text) override;
  base::Status MakeFolder(const std::string& path) override;
  base::Status Rename(const std::string& from, const std::string& to) override;
  base::Status ReadFile(const std::string& path, std::string& content) const override;
  base::Status WriteFile(const std::string& path, const std::string& content) override;
  base::Status RemoveFile(const std::string& path) override;

 private:
  class Folder;
  void ThrowIfFatal(const std::string& path) const;
  std::string Folded(std::string_view name) const;
  // Root of the path, then the names below it.
  std::vector<std::string> Split(const std::string& path) const;
  const MemoryItem* Target(const MemoryItem& item) const;  // what a link leads to, or the item
  MemoryItem* Find(const std::string& path, bool followLast, int depth = 0) const;
  base::Status AttributesOf(const MemoryItem* item, platform::ItemAttributes& attributes) const;

  const base::PathSyntax& syntax_;
  std::uint64_t items_ = 0;                                   // made so far
  std::map<std::string, std::shared_ptr<MemoryItem>> roots_;  // by root path, folded
};

}  // namespace tarnwell::fakes
