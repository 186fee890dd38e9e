#include "fakes/MemoryFileSystem.h"

#include <algorithm>
#include <stdexcept>

#include "base/Text.h"

namespace tarnwell::fakes {

using platform::ItemKind;

MemoryFileSystem::MemoryFileSystem(const base::PathSyntax& syntax) : syntax_(syntax) {
  AddFolder(syntax.DriveRoot(syntax.DefaultDrive));
  if (!syntax.RootMark.empty()) AddFolder(syntax.DriveRoot("D"));
}

std::string MemoryFileSystem::Folded(std::string_view name) const {
  return syntax_.CaseSensitive ? std::string(name) : base::ToCapitals(name);
}

std::vector<std::string> MemoryFileSystem::Split(const std::string& path) const {
  std::vector<std::string> parts;
  std::string rest = path;
  for (std::string parent = syntax_.ParentOf(rest); !syntax_.Same(parent, rest) && !parent.empty();
       parent = syntax_.ParentOf(rest)) {
    parts.emplace_back(syntax_.LastComponent(rest));
    rest = parent;
  }
  parts.push_back(rest);
  std::reverse(parts.begin(), parts.end());
  return parts;
}

MemoryItem* MemoryFileSystem::Find(const std::string& path, bool followLast, int depth) const {
  constexpr int deepestLink = 20;
  if (path.empty() || depth > deepestLink) return nullptr;
  const std::vector<std::string> parts = Split(path);
  const auto root = roots_.find(Folded(parts[0]));
  if (root == roots_.end()) return nullptr;
  MemoryItem* item = root->second.get();
  for (std::size_t at = 1; at <= parts.size(); ++at) {
    const bool last = at == parts.size();
    if (item->IsLink && (!last || followLast)) item = Find(item->Target, true, depth + 1);
    if (last || item == nullptr) break;
    const auto child = item->Children.find(Folded(parts[at]));
    if (child == item->Children.end()) return nullptr;
    item = child->second.get();
  }
  return item;
}

MemoryItem& MemoryFileSystem::AddFolder(const std::string& path) {
  const std::vector<std::string> parts = Split(path);
  std::shared_ptr<MemoryItem>* place = &roots_[Folded(parts[0])];
  for (std::size_t at = 0;; ++at) {
    if (!*place) {
      *place = std::make_shared<MemoryItem>();
      (*place)->Name = parts[at];
      (*place)->Number = ++items_;
    }
    if (at + 1 == parts.size()) return **place;
    MemoryItem* folder = place->get();
    if (folder->IsLink) folder = Find(folder->Target, true);
    if (folder == nullptr || folder->Kind != ItemKind::Folder) throw std::out_of_range(path);
    place = &folder->Children[Folded(parts[at + 1])];
    if (!*place) ++folder->Modified;
  }
}

MemoryItem& MemoryFileSystem::AddFile(const std::string& path, const std::string& content) {
  MemoryItem& item = AddFolder(path);
  item.Kind = ItemKind::File;
  item.Content = content;
  return item;
}

MemoryItem& MemoryFileSystem::AddLink(const std::string& path, const std::string& target) {
  MemoryItem& item = AddFolder(path);
  item.Kind = ItemKind::Unknown;
  item.IsLink = true;
  item.Target = target;
  return item;
}

MemoryItem& MemoryFileSystem::At(const std::string& path) {
  MemoryItem* item = Find(path, false);
  if (item == nullptr) throw std::out_of_range(path);
  return *item;
}

platform::FolderStamp MemoryFileSystem::StampOf(const std::string& folder) const {
  const MemoryItem* item = Find(folder, true);
  if (item == nullptr || item->Kind != ItemKind::Folder) return {};
  return {.IsThere = true,
          .Device = 1,
          .Inode = item->Number,
          .Modified = item->Modified,
          .Changed = item->Modified};
}

void MemoryFileSystem::Remove(const std::string& path) {
  const std::vector<std::string> parts = Split(path);
  if (parts.size() == 1) {
    roots_.erase(Folded(path));
    return;
  }
  if (MemoryItem* folder = Find(syntax_.ParentOf(path), true)) {
    if (folder->Children.erase(Folded(parts.back())) != 0) ++folder->Modified;
  }
}

const MemoryItem* MemoryFileSystem::Target(const MemoryItem& item) const {
  return item.IsLink ? Find(item.Target, true) : &item;
}

// Knows its folder itself, not the path, so that it finds nothing once the folder is removed.
class MemoryFileSystem::Folder : public platform::OpenedFolder {
 public:
  Folder(const MemoryFileSystem& files, MemoryItem& folder, std::string path)
      : files_(files), folder_(folder.weak_from_this()), path_(std::move(path)) {}

  base::Status Read(const platform::TakeEntry& take) override {
    // Copied, since `take` may let a test change the folder; and not in the order of names, since
    // no real folder is.
    std::vector<std::shared_ptr<MemoryItem>> items;
    int left = -1;
    if (const auto folder = folder_.lock()) {
      for (const auto& [key, child] : folder->Children) items.push_back(child);
      left = folder->VanishAfter;
    }
    std::reverse(items.begin(), items.end());
    for (const auto& item : items) {
      if (left-- == 0) const_cast<MemoryFileSystem&>(files_).Remove(path_);
      if (folder_.expired()) break;
      platform::ItemAttributes attributes;
      const bool told = files_.ListsAttributes && !item->IsLink &&
                        static_cast<bool>(files_.AttributesOf(item.get(), attributes));
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
    return files_.AttributesOf(Item(name).get(), attributes);
  }
  base::Status ReadExtendedAttribute(std::string_view name, platform::ExtendedAttribute note,
                                     std::string& text) const override {
    text.clear();
    const auto item = Item(name);
    if (item == nullptr) return NotFound();
    const MemoryItem* target = files_.Target(*item);
    if (target == nullptr) return {};
    const auto found = target->ExtendedAttributes.find(note);
    if (found != target->ExtendedAttributes.end()) text = found->second;
    return {};
  }

 private:
  std::shared_ptr<MemoryItem> Item(std::string_view name) const {
    auto folder = folder_.lock();
    if (folder == nullptr || name.empty()) return folder;
    const auto found = folder->Children.find(files_.Folded(name));
    return found != folder->Children.end() ? found->second : nullptr;
  }

  const MemoryFileSystem& files_;
  std::weak_ptr<MemoryItem> folder_;
  std::string path_;
};

void MemoryFileSystem::ThrowIfFatal(const std::string& path) const {
  if (!Fatal.empty() && path == Fatal) throw std::runtime_error("disk");
}

std::unique_ptr<platform::OpenedFolder> MemoryFileSystem::OpenFolder(const std::string& folder,
                                                                     base::Status& status) const {
  ThrowIfFatal(folder);
  MemoryItem* item = Find(folder, true);
  status = {};
  if (item == nullptr) {
    status = NotFound();
  } else if (item->Kind != ItemKind::Folder) {
    status = {20, "Not a directory"};
  } else {
    ++item->Reads;
    status = item->ReadFault;
  }
  return status ? std::make_unique<Folder>(*this, *item, folder) : nullptr;
}

base::Status MemoryFileSystem::MeasureFolder(const std::string& folder, const GoOn& goOn,
                                             platform::FolderTotal& total) const {
  MemoryItem* start = Find(folder, true);
  if (start == nullptr) return NotFound();
  if (start->ReadFault.Code != 0) return start->ReadFault;
  // Held and looked up again each time, since `goOn` may let a test change the tree.
  std::vector<std::shared_ptr<MemoryItem>> open{start->shared_from_this()};
  while (!open.empty()) {
    const auto above = std::move(open.back());
    open.pop_back();
    for (const auto children = above->Children; const auto& [key, child] : children) {
      if (!goOn(total)) return {};
      const bool isFolder = child->Kind == ItemKind::Folder;
      ++(isFolder ? total.Folders : total.Files);
      const base::Status& fault = isFolder ? child->ReadFault : child->AttributesFault;
      if (fault.Code != 0) {
        if (total.Unreadable++ == 0) total.Trouble = fault;
      } else if (isFolder) {
        open.push_back(child);
      } else {
        total.Bytes += child->Content.size();
      }
    }
  }
  return {};
}

base::Status MemoryFileSystem::ReadSpace(const std::string& folder, platform::Space& space) const {
  if (Find(folder, true) == nullptr) return NotFound();
  space = Space;
  return {};
}

base::Status MemoryFileSystem::WriteExtendedAttribute(const std::string& path,
                                                      platform::ExtendedAttribute note,
                                                      const std::string& text) {
  MemoryItem* item = Find(path, true);
  if (item == nullptr) return NotFound();
  if (ExtendedAttributeFault.Code != 0) return ExtendedAttributeFault;
  if (text.empty()) {
    item->ExtendedAttributes.erase(note);
  } else {
    item->ExtendedAttributes[note] = text;
  }
  return {};
}

base::Status MemoryFileSystem::CheckTarget(const std::string& path) const {
  for (std::string at = path; at != syntax_.ParentOf(at); at = syntax_.ParentOf(at)) {
    if (Exists(at) && !FolderExists(at)) return {20, "No folder: " + at};
  }
  return {};
}

base::Status MemoryFileSystem::MakeFolder(const std::string& path) {
  if (WriteFault.Code != 0) return WriteFault;
  if (Exists(path)) return {17, "File exists"};
  if (!FolderExists(syntax_.ParentOf(path))) return NotFound();
  AddFolder(path);
  return {};
}

base::Status MemoryFileSystem::Rename(const std::string& from, const std::string& to) {
  if (WriteFault.Code != 0) return WriteFault;
  MemoryItem* const old = Find(syntax_.ParentOf(from), true);
  MemoryItem* const target = Find(syntax_.ParentOf(to), true);
  const std::string name = Split(from).back();
  if (old == nullptr || target == nullptr || !old->Children.contains(Folded(name))) {
    return NotFound();
  }
  if (Exists(to) && !syntax_.Same(from, to)) return {17, "File exists"};
  auto node = old->Children.extract(Folded(name));
  node.mapped()->Name = Split(to).back();
  node.key() = Folded(node.mapped()->Name);
  target->Children.insert(std::move(node));
  ++old->Modified;
  ++target->Modified;
  return {};
}

base::Status MemoryFileSystem::ReadAttributes(const std::string& folder, const std::string& name,
                                              platform::ItemAttributes& attributes) const {
  return AttributesOf(Find(name.empty() ? folder : syntax_.Join(folder, name), false), attributes);
}

base::Status MemoryFileSystem::AttributesOf(const MemoryItem* item,
                                            platform::ItemAttributes& attributes) const {
  if (item == nullptr) return NotFound();
  if (item->AttributesFault.Code != 0) return item->AttributesFault;
  attributes = {};
  attributes.IsLink = item->IsLink;
  attributes.IsHidden = item->IsHidden;
  attributes.IsSystem = item->IsSystem;
  attributes.Kind = ItemKind::Other;
  item = Target(*item);
  if (item == nullptr) return {};
  attributes.Kind = item->Kind;
  attributes.Size = item->Content.size();
  attributes.Modified = item->Modified;
  attributes.Created = item->Created;
  attributes.Accessed = item->Accessed;
  attributes.Mode = item->Mode;
  return {};
}

bool MemoryFileSystem::FolderExists(const std::string& path) const {
  const MemoryItem* item = Find(path, true);
  return item != nullptr && item->Kind == ItemKind::Folder && item->ReadFault.Code == 0;
}

bool MemoryFileSystem::Exists(const std::string& path) const {
  return Find(path, false) != nullptr;
}

base::Status MemoryFileSystem::ReadFile(const std::string& path, std::string& content) const {
  const MemoryItem* item = Find(path, true);
  if (item == nullptr) return NotFound();
  if (item->Kind != ItemKind::File) return {21, "Is a directory"};
  if (item->ReadFault.Code != 0) return item->ReadFault;
  content = item->Content;
  return {};
}

base::Status MemoryFileSystem::WriteFile(const std::string& path, const std::string& content) {
  ThrowIfFatal(path);
  if (WriteFault.Code != 0) return WriteFault;
  if (MemoryItem* item = Find(path, true)) {
    if (item->Kind != ItemKind::File) return {21, "Is a directory"};
    item->Content = content;
    return {};
  }
  const MemoryItem* folder = Find(syntax_.ParentOf(path), true);
  if (folder == nullptr || folder->Kind != ItemKind::Folder || Exists(path)) return NotFound();
  AddFile(path, content);
  return {};
}

base::Status MemoryFileSystem::RemoveFile(const std::string& path) {
  if (WriteFault.Code != 0) return WriteFault;
  const MemoryItem* item = Find(path, false);
  if (item == nullptr) return NotFound();
  if (item->Kind == ItemKind::Folder) return {21, "Is a directory"};
  Remove(path);
  return {};
}

}  // namespace tarnwell::fakes
