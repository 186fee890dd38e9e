#include "settings/SkinFiles.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "base/Text.h"

namespace tarnwell::settings {
namespace {

constexpr std::string_view Ending = ".twk";

constexpr std::array<std::string_view, 4> DefaultSkins = {"TRADITIONAL", "EARL GREY", "GRASSHOPPER",
                                                          "ROXY"};

// Nothing for a file that is no skin's.
std::optional<std::string_view> SkinNameOf(std::string_view file) {
  file = base::Trim(file);
  const std::size_t length = file.size() - std::min(file.size(), Ending.size());
  if (!base::EqualsIgnoringCase(file.substr(length), Ending)) return {};
  return file.substr(0, length);
}

base::Status Taken() {
  return {.Code = EEXIST, .Reason = "There is a skin of that name already"};
}

base::Status Missing() {
  return {.Code = ENOENT, .Reason = "The skin is not there any more"};
}

}  // namespace

bool IsDefaultSkin(std::string_view name) {
  return std::ranges::find(DefaultSkins, base::ToCapitals(base::Trim(name))) != DefaultSkins.end();
}

std::vector<SkinFiles::Entry> SkinFiles::Entries() const {
  std::vector<Entry> entries;
  files_.ReadFolder(folder_, [this, &entries](const platform::FolderEntry& item) {
    const std::optional<std::string_view> name = SkinNameOf(item.Name);
    if (!name) return true;
    platform::ItemKind kind = item.Kind;
    platform::ItemAttributes attributes;
    if (kind == platform::ItemKind::Unknown &&
        files_.ReadAttributes(folder_, std::string(item.Name), attributes)) {
      kind = attributes.Kind;
    }
    if (kind == platform::ItemKind::Folder) return true;
    entries.push_back(
        {.Name = std::string(*name), .File = std::string(item.Name), .IsLink = item.IsLink});
    return true;
  });
  std::ranges::sort(entries, {}, &Entry::File);
  return entries;
}

std::optional<SkinFiles::Entry> SkinFiles::Find(std::string_view name) const {
  const std::string wanted = base::ToCapitals(name);
  std::optional<Entry> found;
  std::optional<Entry> butForBlanks;
  for (Entry& entry : Entries()) {
    if (entry.Name == name) return std::move(entry);
    const std::string capitals = base::ToCapitals(entry.Name);
    if (!found && capitals == wanted) {
      found = std::move(entry);
    } else if (!butForBlanks && base::Trim(capitals) == base::Trim(wanted)) {
      butForBlanks = std::move(entry);
    }
  }
  return found ? found : butForBlanks;
}

std::vector<std::string> SkinFiles::List() const {
  std::vector<std::pair<std::string, std::string>> names;
  for (Entry& entry : Entries()) {
    names.emplace_back(base::ToCapitals(entry.Name), std::move(entry.Name));
  }
  // Stable: of those that share a name the first counts.
  std::ranges::stable_sort(
      names, {}, [](const auto& each) -> auto& { return each.first; });
  std::vector<std::string> list;
  std::string_view last;
  for (auto& [key, name] : names) {
    if (list.empty() || key != last) list.push_back(std::move(name));
    last = key;
  }
  return list;
}

base::Status SkinFiles::Read(const std::string& name, std::string& content) const {
  const std::optional<Entry> found = Find(name);
  return found ? files_.ReadFile(PathOf(found->File), content) : Missing();
}

base::Status SkinFiles::Write(const std::string& name, const std::string& content) {
  files_.MakeFolder(folder_);  // mostly there already; if it cannot be made the file tells
  const std::optional<Entry> found = Find(name);
  if (!found) return files_.WriteFile(PathOf(name + std::string(Ending)), content);
  const std::string path = PathOf(found->File);
  return found->IsLink ? ReplaceLink(path, content) : files_.WriteFile(path, content);
}

base::Status SkinFiles::ReplaceLink(const std::string& path, const std::string& content) {
  const std::string beside = path + ".unsaved";
  if (files_.Exists(beside)) return {.Code = EEXIST, .Reason = beside + " is in the way"};
  base::Status status = files_.WriteFile(beside, content);
  if (status) status = files_.RemoveFile(path);
  if (status) return files_.Rename(beside, path);
  files_.RemoveFile(beside);
  return status;
}

base::Status SkinFiles::Rename(const std::string& name, const std::string& newName) {
  const std::optional<Entry> found = Find(name);
  if (!found) return Missing();
  const std::optional<Entry> there = Find(newName);
  if (there && there->File != found->File) return Taken();
  const std::string file = newName + std::string(Ending);
  return file == found->File ? base::Status() : files_.Rename(PathOf(found->File), PathOf(file));
}

base::Status SkinFiles::Remove(const std::string& name) {
  const std::optional<Entry> found = Find(name);
  return found ? files_.RemoveFile(PathOf(found->File)) : Missing();
}

base::Status SkinFiles::Import(const std::string& path, const std::string& name) {
  if (base::Trim(name).empty())
    return {.Code = EINVAL, .Reason = "Its name leaves none for a skin"};
  if (Find(name)) return Taken();
  std::string content;
  if (base::Status status = files_.ReadFile(path, content); !status) return status;
  return Write(name, content);
}

base::Status SkinFiles::Export(const std::string& name, const std::string& path) const {
  const base::PathSyntax& syntax = files_.Syntax();
  const std::string_view file = syntax.LastComponent(path);
  const std::optional<std::string_view> skin = SkinNameOf(file);
  // The skin folder may have another path, by a link.
  if (skin && stamps_.Read(syntax.ParentOf(path)).IsSameFolder(stamps_.Read(folder_))) {
    const std::optional<Entry> there = Find(*skin);
    if (IsDefaultSkin(*skin) || (there && there->File != file)) return Taken();
  }
  std::string content;
  if (base::Status status = Read(name, content); !status) return status;
  return files_.WriteFile(path, content);
}

}  // namespace tarnwell::settings
