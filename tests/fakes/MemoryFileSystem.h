// A file system in memory, by the path syntax given: drives C and D on Windows, one root on Posix.
//
// Tests build it with AddFolder, AddFile and AddLink and break it with the fault switches. Links
// are followed; there are no permissions but the faults. A path that a test names must exist, or be
// one that can be made; std::out_of_range tells a slip in a test.
#pragma once

#include "Test.h"
#include "platform/FileSystem.h"
#include "platform/FolderStamps.h"

namespace tarnwell::fakes {

// The attributes are its own, and no size: that is the length of the content.
struct MemoryItem : platform::ItemAttributes {
  MemoryItem() {
    Kind = platform::ItemKind::Folder;
    Modified = 0;
    Mode = 0644;
  }

  std::string Name;
  std::string Content;
  std::string Target;  // where a link leads, a full path
  std::map<platform::ExtendedAttribute, std::string> ExtendedAttributes;
  base::Status ReadFault;        // ReadFolder and ReadFile fail with it
  base::Status AttributesFault;  // ReadAttributes fails with it
  int VanishAfter = -1;          // the folder goes once that many items of it have been read
  std::uint64_t Number = 0;      // which item it is, whatever its path
  int Reads = 0;                 // how often the folder was read
  std::map<std::string, std::shared_ptr<MemoryItem>> Children;  // by key

  bool IsFolder() const { return Kind == platform::ItemKind::Folder; }
};

class MemoryFileSystem : public platform::FileSystem {
 public:
  static base::Status NotFound() { return {2, "No such file or directory"}; }
  static base::Status Denied() { return {13, "Permission denied"}; }

  explicit MemoryFileSystem(const base::PathSyntax& syntax = base::PathSyntax::Windows())
      : syntax_(syntax) {
    AddFolder(syntax.DriveRoot(syntax.DefaultDrive));
    if (!syntax.RootMark.empty()) AddFolder(syntax.DriveRoot("D"));
  }

  base::Status WriteFault;       // WriteFile, MakeFolder and RemoveFile fail with it
  bool ListsAttributes = false;  // what a folder holds comes with attributes, links apart
  mutable int Looks = 0;         // at attributes of items in open folders
  std::function<void(std::string_view)> OnLook;  // is called before each
  std::optional<std::string> Fatal;     // OpenFolder and WriteFile throw where they meet this path
  base::Status ExtendedAttributeFault;  // WriteExtendedAttribute fails with it, for any item
  platform::Space Space;

  // Makes the folder and all folders above it; the root of the path becomes a drive.
  MemoryItem& AddFolder(const std::string& path) {
    const std::string parent = syntax_.ParentOf(path);
    if (!syntax_.Same(parent, path)) AddFolder(parent);
    const Item folder = FolderOf(path);
    if (folder == nullptr || !folder->IsFolder()) throw std::out_of_range(path);
    Item& place = folder->Children[KeyOf(path)];
    if (!place) {
      place = std::make_shared<MemoryItem>();
      place->Name = syntax_.LastComponent(path);
      place->Number = ++items_;
      ++folder->Modified;
    }
    return *place;
  }
  // Makes or replaces the file, and the folders above it.
  MemoryItem& AddFile(const std::string& path, const std::string& content = "") {
    MemoryItem& item = AddFolder(path);
    item.Kind = platform::ItemKind::File;
    item.Content = content;
    return item;
  }
  MemoryItem& AddLink(const std::string& path, const std::string& target) {
    MemoryItem& item = AddFolder(path);
    item.Kind = platform::ItemKind::Unknown;
    item.IsLink = true;
    item.Target = target;
    return item;
  }
  // The item itself, no link followed at its end, for a test to change.
  MemoryItem& At(const std::string& path) {
    const Item item = Find(path, false);
    if (item == nullptr) throw std::out_of_range(path);
    return *item;
  }
  // What a look at the folder gives. Its times are both that of Modified.
  platform::FolderStamp StampOf(const std::string& folder) const {
    const Item item = Find(folder);
    if (item == nullptr || !item->IsFolder()) return {};
    const std::int64_t time = item->Modified;
    return {.IsThere = true, .Inode = item->Number, .Modified = time, .Changed = time};
  }
  // Takes the item away with all that is below it.
  void Remove(const std::string& path) const {
    const Item folder = FolderOf(path);
    if (folder != nullptr && folder->Children.erase(KeyOf(path)) != 0) ++folder->Modified;
  }

  const base::PathSyntax& Syntax() const override { return syntax_; }
  std::unique_ptr<platform::OpenedFolder> OpenFolder(const std::string& folder,
                                                     base::Status& status) const override {
    if (folder == Fatal) throw std::runtime_error("disk");
    const Item item = Find(folder);
    if (item == nullptr || !item->IsFolder()) {
      status = item == nullptr ? NotFound() : base::Status{20, "Not a directory"};
      return nullptr;
    }
    ++item->Reads;
    status = item->ReadFault;
    return status ? std::make_unique<Folder>(*this, item, folder) : nullptr;
  }
  base::Status ReadAttributes(const std::string& folder, const std::string& name,
                              platform::ItemAttributes& attributes) const override {
    return AttributesOf(Find(name.empty() ? folder : syntax_.Join(folder, name), false),
                        attributes);
  }
  bool FolderExists(const std::string& path) const override {
    const Item item = Find(path);
    return item != nullptr && item->IsFolder() && item->ReadFault.Code == 0;
  }
  std::string ReadLink(const std::string& path) const override {
    const Item item = Find(path, false);
    return item == nullptr ? "" : item->Target;
  }
  bool Exists(const std::string& path) const override { return Find(path, false) != nullptr; }
  base::Status CheckTarget(const std::string& path) const override {
    for (std::string at = path; at != syntax_.ParentOf(at); at = syntax_.ParentOf(at)) {
      if (Exists(at) && !FolderExists(at)) return {20, "No folder: " + at};
    }
    return {};
  }
  base::Status MeasureFolder(const std::string& folder, const GoOn& goOn,
                             platform::FolderTotal& total) const override {
    // Held, and each folder's children copied, since `goOn` may let a test change the tree.
    std::vector<Item> open{Find(folder)};
    if (open[0] == nullptr) return NotFound();
    if (open[0]->ReadFault.Code != 0) return open[0]->ReadFault;
    while (!open.empty()) {
      const Item above = std::move(open.back());
      open.pop_back();
      for (const auto children = above->Children; const auto& [key, child] : children) {
        if (!goOn(total)) return {};
        ++(child->IsFolder() ? total.Folders : total.Files);
        const base::Status& fault = child->IsFolder() ? child->ReadFault : child->AttributesFault;
        if (fault.Code != 0) {
          if (total.Unreadable++ == 0) total.Trouble = fault;
        } else if (child->IsFolder()) {
          open.push_back(child);
        } else {
          total.Bytes += child->Content.size();
        }
      }
    }
    return {};
  }
  base::Status ReadSpace(const std::string& folder, platform::Space& space) const override {
    space = Space;
    return Find(folder) == nullptr ? NotFound() : base::Status();
  }
  base::Status WriteExtendedAttribute(const std::string& path, platform::ExtendedAttribute note,
                                      const std::string& text) override {
    const Item item = Find(path);
    if (item == nullptr) return NotFound();
    if (ExtendedAttributeFault.Code == 0) item->ExtendedAttributes[note] = text;
    return ExtendedAttributeFault;
  }
  base::Status MakeFolder(const std::string& path) override {
    if (WriteFault.Code != 0) return WriteFault;
    if (Exists(path)) return {17, "File exists"};
    if (!FolderExists(syntax_.ParentOf(path))) return NotFound();
    AddFolder(path);
    return {};
  }
  base::Status Rename(const std::string& from, const std::string& to) override {
    if (WriteFault.Code != 0) return WriteFault;
    const Item item = Find(from, false), target = FolderOf(to);
    if (item == nullptr || target == nullptr) return NotFound();
    if (Exists(to) && !syntax_.Same(from, to)) return {17, "File exists"};
    Remove(from);
    item->Name = syntax_.LastComponent(to);
    target->Children[KeyOf(to)] = item;
    ++target->Modified;
    return {};
  }
  base::Status ReadFile(const std::string& path, std::string& content) const override {
    const Item item = Find(path);
    if (item == nullptr) return NotFound();
    if (item->Kind != platform::ItemKind::File) return IsDirectory();
    if (item->ReadFault.Code == 0) content = item->Content;
    return item->ReadFault;
  }
  base::Status WriteFile(const std::string& path, const std::string& content) override {
    if (path == Fatal) throw std::runtime_error("disk");
    if (WriteFault.Code != 0) return WriteFault;
    const Item item = Find(path), folder = FolderOf(path);
    if (item != nullptr) {
      if (item->Kind != platform::ItemKind::File) return IsDirectory();
      item->Content = content;
      return {};
    }
    if (folder == nullptr || !folder->IsFolder() || Exists(path)) return NotFound();
    AddFile(path, content);
    return {};
  }
  base::Status RemoveFile(const std::string& path) override {
    if (WriteFault.Code != 0) return WriteFault;
    const Item item = Find(path, false);
    if (item == nullptr) return NotFound();
    if (item->IsFolder()) return IsDirectory();
    Remove(path);
    return {};
  }

 private:
  using Item = std::shared_ptr<MemoryItem>;

  // Knows its folder itself, not the path, so that it finds nothing once the folder is removed.
  class Folder : public platform::OpenedFolder {
   public:
    Folder(const MemoryFileSystem& files, const Item& folder, std::string path)
        : files_(files), folder_(folder), path_(std::move(path)) {}

    base::Status Read(const platform::TakeEntry& take) override {
      // Copied, since `take` may let a test change the folder; and not in the order of names, since
      // no real folder is.
      std::vector<Item> items;
      int left = -1;
      if (const Item folder = folder_.lock()) {
        for (const auto& [key, child] : folder->Children) items.push_back(child);
        std::ranges::reverse(items);
        left = folder->VanishAfter;
      }
      items.erase(items.begin(), items.begin() + std::min(std::ssize(items), taken_));
      for (const Item& item : items) {
        if (left-- == 0) files_.Remove(path_);
        ++taken_;
        if (folder_.expired()) break;
        platform::ItemAttributes attributes;
        const bool told = files_.ListsAttributes && !item->IsLink &&
                          static_cast<bool>(files_.AttributesOf(item, attributes));
        if (!take({item->Name, item->Kind, item->IsLink, item->IsHidden, item->IsSystem,
                   told ? &attributes : nullptr})) {
          return {};
        }
      }
      return folder_.expired() ? NotFound() : base::Status();
    }
    base::Status ReadAttributes(std::string_view name,
                                platform::ItemAttributes& attributes) const override {
      ++files_.Looks;
      if (files_.OnLook) files_.OnLook(name);
      return files_.AttributesOf(ItemOf(name), attributes);
    }
    base::Status ReadExtendedAttribute(std::string_view name, platform::ExtendedAttribute note,
                                       std::string& text) const override {
      text.clear();
      const Item item = ItemOf(name), target = files_.TargetOf(item);
      if (target != nullptr) text = target->ExtendedAttributes[note];
      return item == nullptr ? NotFound() : base::Status();
    }

   private:
    Item ItemOf(std::string_view name) const {
      const Item folder = folder_.lock();
      return folder == nullptr || name.empty() ? folder : files_.ChildOf(*folder, name);
    }

    const MemoryFileSystem& files_;
    std::weak_ptr<MemoryItem> folder_;
    std::string path_;
    std::ptrdiff_t taken_ = 0;  // items that Read gave
  };

  static base::Status IsDirectory() { return {21, "Is a directory"}; }
  std::string KeyOf(std::string_view path) const {
    return syntax_.Key(syntax_.LastComponent(path));
  }
  // These give null where there is no such item, and after too many links.
  Item ChildOf(const MemoryItem& folder, std::string_view path) const {
    const auto found = folder.Children.find(KeyOf(path));
    return found == folder.Children.end() ? nullptr : found->second;
  }
  Item FolderOf(const std::string& path, int depth = 0) const {
    const std::string parent = syntax_.ParentOf(path);
    return syntax_.Same(parent, path) ? top_ : Find(parent, true, depth);
  }
  // What a link leads to, or the item itself.
  Item TargetOf(const Item& item, int depth = 0) const {
    constexpr int deepestLink = 20;
    if (item == nullptr || !item->IsLink) return item;
    return depth > deepestLink ? nullptr : Find(item->Target, true, depth + 1);
  }
  Item Find(const std::string& path, bool followLast = true, int depth = 0) const {
    const Item folder = FolderOf(path, depth);
    if (folder == nullptr || path.empty()) return nullptr;
    const Item item = ChildOf(*folder, path);
    return followLast ? TargetOf(item, depth) : item;
  }
  base::Status AttributesOf(const Item& item, platform::ItemAttributes& attributes) const {
    if (item == nullptr) return NotFound();
    if (item->AttributesFault.Code != 0) return item->AttributesFault;
    const Item target = TargetOf(item);
    attributes = {.Kind = platform::ItemKind::Other};
    if (target != nullptr) {
      attributes = *target;
      attributes.Size = target->Content.size();
    }
    attributes.IsLink = item->IsLink;
    attributes.IsBroken = item->IsLink && target == nullptr;
    attributes.IsHidden = item->IsHidden;
    return {};
  }

  const base::PathSyntax& syntax_;
  std::uint64_t items_ = 0;                          // made so far
  const Item top_ = std::make_shared<MemoryItem>();  // holds the roots of the drives
};

}  // namespace tarnwell::fakes
