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

MemoryItem& MemoryFileSystem::Add(const std::string& path) {
  const std::vector<std::string> parts = Split(path);
  std::unique_ptr<MemoryItem>* place = &roots_[Folded(parts[0])];
  for (std::size_t at = 0;; ++at) {
    if (!*place) {
      *place = std::make_unique<MemoryItem>();
      (*place)->Name = parts[at];
    }
    if (at + 1 == parts.size()) return **place;
    MemoryItem* folder = place->get();
    if (folder->IsLink) folder = Find(folder->Target, true);
    if (folder == nullptr || folder->Kind != ItemKind::Folder) throw std::out_of_range(path);
    place = &folder->Children[Folded(parts[at + 1])];
  }
}

MemoryItem& MemoryFileSystem::AddFolder(const std::string& path) {
  return Add(path);
}

MemoryItem& MemoryFileSystem::AddFile(const std::string& path, const std::string& content) {
  MemoryItem& item = Add(path);
  item.Kind = ItemKind::File;
  item.Content = content;
  return item;
}

MemoryItem& MemoryFileSystem::AddLink(const std::string& path, const std::string& target) {
  MemoryItem& item = Add(path);
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

void MemoryFileSystem::Remove(const std::string& path) {
  const std::vector<std::string> parts = Split(path);
  if (parts.size() == 1) {
    roots_.erase(Folded(path));
    return;
  }
  if (MemoryItem* folder = Find(syntax_.ParentOf(path), true)) {
    folder->Children.erase(Folded(parts.back()));
  }
}

class MemoryFileSystem::Folder : public platform::OpenedFolder {
 public:
  Folder(const MemoryFileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

  base::Status Read(const platform::TakeEntry& take) override {
    const MemoryItem* item = files_.Find(path_, true);
    if (item == nullptr) return NotFound();
    // A copy, since `take` may let a test change the folder; and not in the order of names, since
    // no real folder is.
    std::vector<std::string> names;
    std::vector<platform::FolderEntry> entries;
    for (const auto& [key, child] : item->Children) names.push_back(child->Name);
    auto name = names.begin();
    for (const auto& [key, child] : item->Children) {
      entries.push_back({*name++, child->Kind, child->IsLink, child->IsHidden, child->IsSystem});
    }
    std::reverse(entries.begin(), entries.end());
    int left = item->VanishAfter;
    for (const platform::FolderEntry& entry : entries) {
      if (left-- == 0) {
        const_cast<MemoryFileSystem&>(files_).Remove(path_);
        return NotFound();
      }
      if (!take(entry)) break;
    }
    return {};
  }
  base::Status ReadAttributes(std::string_view name,
                              platform::ItemAttributes& attributes) const override {
    return files_.ReadAttributes(path_, std::string(name), attributes);
  }
  base::Status ReadNote(std::string_view name, platform::ItemNote note,
                        std::string& text) const override {
    text.clear();
    const MemoryItem* item = files_.Find(files_.syntax_.Join(path_, name), true);
    if (item == nullptr) return NotFound();
    const auto found = item->Notes.find(note);
    if (found != item->Notes.end()) text = found->second;
    return {};
  }

 private:
  const MemoryFileSystem& files_;
  std::string path_;
};

std::unique_ptr<platform::OpenedFolder> MemoryFileSystem::OpenFolder(const std::string& folder,
                                                                     base::Status& status) const {
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
  return status ? std::make_unique<Folder>(*this, folder) : nullptr;
}

base::Status MemoryFileSystem::MeasureFolder(const std::string& folder, const GoOn& goOn,
                                             platform::FolderTotal& total) const {
  const MemoryItem* item = Find(folder, true);
  if (item == nullptr) return NotFound();
  if (item->ReadFault.Code != 0) return item->ReadFault;
  for (const auto& [key, child] : item->Children) {
    if (!goOn(total)) return {};
    if (child->Kind == ItemKind::Folder && !child->IsLink) {
      ++total.Folders;
      const base::Status status = MeasureFolder(syntax_.Join(folder, child->Name), goOn, total);
      if (!status && total.Unreadable++ == 0) total.Trouble = status;
    } else {
      ++total.Files;
      total.Bytes += child->Content.size();
    }
  }
  return {};
}

base::Status MemoryFileSystem::ReadSpace(const std::string&, platform::Space& space) const {
  space = Space;
  return {};
}

base::Status MemoryFileSystem::WriteNote(const std::string& path, platform::ItemNote note,
                                         const std::string& text) {
  MemoryItem* item = Find(path, true);
  if (item == nullptr) return NotFound();
  if (NoteFault.Code != 0) return NoteFault;
  if (text.empty()) {
    item->Notes.erase(note);
  } else {
    item->Notes[note] = text;
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

base::Status MemoryFileSystem::ReadAttributes(const std::string& folder, const std::string& name,
                                              platform::ItemAttributes& attributes) const {
  const std::string path = name.empty() ? folder : syntax_.Join(folder, name);
  const MemoryItem* item = Find(path, false);
  if (item == nullptr) return NotFound();
  if (item->AttributesFault.Code != 0) return item->AttributesFault;
  attributes = {};
  attributes.IsLink = item->IsLink;
  attributes.Kind = ItemKind::Other;
  if (item->IsLink) item = Find(path, true);
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
