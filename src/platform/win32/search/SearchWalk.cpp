#include "platform/win32/search/SearchWalk.h"

#include <iterator>
#include <utility>

#include "platform/win32/api/FileTime.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/ItemHandle.h"
#include "platform/win32/files/LinkTarget.h"

namespace tarnwell::platform {
namespace {

constexpr std::uint64_t itemsPerTelling = 512, lookedPerTelling = 64;

// The content is elsewhere, and would come here by being read ("File Attribute Constants" of the
// system's documentation).
constexpr DWORD recallOnOpen = 0x40000, recallOnDataAccess = 0x400000;
constexpr DWORD keptElsewhere = FILE_ATTRIBUTE_OFFLINE | recallOnOpen | recallOnDataAccess;

bool HasVanished(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
         error == ERROR_DELETE_PENDING;
}

bool IsLinkItem(const WIN32_FIND_DATAW& item) {
  return IsLinkTag(item.dwFileAttributes, item.dwReserved0);
}

bool IsFolderItem(const WIN32_FIND_DATAW& item) {
  return (item.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::uint64_t VolumeNumberOf(const std::string& folder) {
  const Handle opened = OpenItem(folder, true);
  return opened ? IdentityOf(opened.Get()).Volume : 0;
}

}  // namespace

void SearchWalk::Run(SearchJob job) {
  if (!job.Files.empty()) {
    job_ = std::move(job);
    here_ = job_.Path;
    files_ = std::move(job_.Files);
    LookIntoFiles();
    return Tell();
  }
  folders_.push_back(std::move(job));
  for (bool isFirst = true; !folders_.empty() && work_.IsWanted(); isFirst = false) {
    job_ = std::move(folders_.back());
    folders_.pop_back();
    if (!isFirst && work_.WantsJobs()) {
      work_.Give(std::move(job_));
      continue;
    }
    here_ = job_.Path;
    ReadFolder();
    Tell();
  }
  folders_.clear();
}

void SearchWalk::ReadFolder() {
  WIN32_FIND_DATAW item;
  const std::wstring all = LongPath(PathOf("*"));
  const FindHandle finding(FindFirstFileExW(all.c_str(), FindExInfoBasic, &item,
                                            FindExSearchNameMatch, nullptr,
                                            FIND_FIRST_EX_LARGE_FETCH));
  DWORD error = finding ? ERROR_SUCCESS : GetLastError();
  if (error == ERROR_FILE_NOT_FOUND) error = ERROR_NO_MORE_FILES;  // a root that holds nothing
  if (!finding && error != ERROR_NO_MORE_FILES) {
    // The search is nothing without its first folder.
    if (job_.Level == 0) return work_.Fail(SystemError(error));
    if (!HasVanished(error)) Note(here_, SystemError(error));
    return;
  }
  ++share_.Counts.Folders;
  while (error == ERROR_SUCCESS) {
    TakeItem(item);
    if (share_.Counts.Items >= itemsPerTelling) {
      LookIntoFiles();
      Tell();
      if (!work_.IsWanted()) return;
    }
    if (FindNextFileW(finding.Get(), &item) == 0) error = GetLastError();
  }
  LookIntoFiles();
  if (error != ERROR_NO_MORE_FILES && !HasVanished(error)) Note(here_, SystemError(error));
}

void SearchWalk::TakeItem(const WIN32_FIND_DATAW& item) {
  const std::wstring_view wide = item.cFileName;
  if (wide == L"." || wide == L"..") return;
  if (!request_.TakesHidden && (item.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0) return;
  ++share_.Counts.Items;
  const std::string name = Narrow(wide);
  const bool isFolder = IsFolderItem(item), isLink = IsLinkItem(item);
  if (isFolder && (request_.Levels == 0 || job_.Level + 1 < request_.Levels)) {
    if (!isLink) {
      folders_.push_back({.Path = PathOf(name), .Level = job_.Level + 1, .Volume = job_.Volume});
    } else if (request_.EntersVolumes) {
      AddVolume(PathOf(name));
    }
  }
  if (!IsWanted(isFolder, isLink) || !IsInRange(item)) return;
  if (takesName_ && !takesName_(name, isFolder && !isLink)) return;
  if (!scan_) return Find(name, isFolder ? ItemKind::Folder : ItemKind::File, isLink);
  if ((item.dwFileAttributes & keptElsewhere) != 0) {
    return Note(PathOf(name), {ERROR_FILE_OFFLINE, "The content is not on this computer"});
  }
  files_.push_back(name);
}

// A volume may be mounted below itself.
void SearchWalk::AddVolume(const std::string& folder) {
  if (!IsVolumeTarget(ReadLinkTarget(LongPath(folder)))) return;
  const std::uint64_t number = VolumeNumberOf(folder);
  if (number == 0 || number == VolumeNumberOf(request_.Folder)) return;
  for (const EnteredVolume* each = job_.Volume.get(); each != nullptr; each = each->Before.get()) {
    if (each->Number == number) return;
  }
  folders_.push_back({.Path = folder,
                      .Level = job_.Level + 1,
                      .Volume = std::make_shared<EnteredVolume>(number, job_.Volume)});
}

bool SearchWalk::IsWanted(bool isFolder, bool isLink) const {
  if (!isFolder && !isLink) return request_.FindsFiles;
  if (scan_ || !request_.Sizes.IsAll()) return false;
  return isLink ? request_.FindsLinks : request_.FindsFolders;
}

bool SearchWalk::IsInRange(const WIN32_FIND_DATAW& item) const {
  const std::uint64_t size =
      static_cast<std::uint64_t>(item.nFileSizeHigh) << 32 | item.nFileSizeLow;
  return request_.Sizes.Holds(size) &&
         (request_.Modified.IsAll() || request_.Modified.Holds(FromFileTime(item.ftLastWriteTime)));
}

// Half of the files go to those that have nothing to do.
void SearchWalk::LookIntoFiles() {
  for (std::size_t at = 0; at < files_.size() && work_.IsWanted();) {
    LookIntoFile(files_[at]);
    ++at;
    if (share_.Counts.LookedInto >= lookedPerTelling || !share_.Found.empty()) Tell();
    const std::size_t left = files_.size() - at;
    if (left < 2 || !work_.HasIdle() || !work_.WantsJobs()) continue;
    const auto half = files_.end() - static_cast<std::ptrdiff_t>(left / 2);
    work_.Give({.Path = here_,
                .Level = job_.Level,
                .Volume = job_.Volume,
                .Files = {std::make_move_iterator(half), std::make_move_iterator(files_.end())}});
    files_.erase(half, files_.end());
  }
  files_.clear();
}

void SearchWalk::LookIntoFile(const std::string& name) {
  constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const std::string path = PathOf(name);
  const Handle file(CreateFileW(LongPath(path).c_str(), GENERIC_READ, everybody, nullptr,
                                OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  LARGE_INTEGER size;
  if (!file || GetFileSizeEx(file.Get(), &size) == 0) {
    const DWORD error = GetLastError();
    if (!HasVanished(error)) Note(path, SystemError(error));
    return;
  }
  LookInto(name, static_cast<std::uint64_t>(size.QuadPart),
           [&](char* room, std::size_t most, base::Status& reason) -> std::ptrdiff_t {
             DWORD got = 0;
             if (ReadFile(file.Get(), room, static_cast<DWORD>(most), &got, nullptr) != 0) {
               return got;
             }
             reason = LastError();
             return -1;
           });
}

}  // namespace tarnwell::platform
