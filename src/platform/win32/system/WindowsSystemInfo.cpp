#include "platform/win32/system/WindowsSystemInfo.h"

#include "platform/win32/api/Windows.h"
// Behind the system's own, which they need.
#include <bcrypt.h>
#include <knownfolders.h>

#include <array>

#include "platform/ProgramFiles.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/KnownFolder.h"
#include "platform/win32/api/ProcessText.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& PathRules() {
  return base::PathSyntax::Windows();
}

std::string Sha256Of(const std::string& bytes) {
  std::array<UCHAR, 32> sum{};
  BCRYPT_ALG_HANDLE algorithm = nullptr;
  if (BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0) != 0) return {};
  auto* const data = reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data()));
  const NTSTATUS status = BCryptHash(algorithm, nullptr, 0, data, static_cast<ULONG>(bytes.size()),
                                     sum.data(), static_cast<ULONG>(sum.size()));
  BCryptCloseAlgorithmProvider(algorithm, 0);
  if (status != 0) return {};
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const UCHAR byte : sum) (text += digits[byte / 16]) += digits[byte % 16];
  return text;
}

ProgramFiles OwnFiles(FileSystem& files) {
  return {files, Sha256Of};
}

// By what the access control lists and the volume say: nothing is written.
bool MayAddTo(const std::string& folder) {
  const Handle opened(CreateFileW(LongPath(folder).c_str(), FILE_ADD_FILE | FILE_ADD_SUBDIRECTORY,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  DWORD flags = 0;
  return opened && (GetVolumeInformationByHandleW(opened.Get(), nullptr, 0, nullptr, nullptr,
                                                  &flags, nullptr, 0) == FALSE ||
                    (flags & FILE_READ_ONLY_VOLUME) == 0);
}

base::Status MakeWithParents(FileSystem& files, const std::string& folder) {
  if (files.FolderExists(folder)) return {};
  const std::string parent = PathRules().ParentOf(folder);
  if (!PathRules().Same(parent, folder)) {
    if (base::Status status = MakeWithParents(files, parent); !status) return status;
  }
  if (CreateDirectoryW(LongPath(folder).c_str(), nullptr) != FALSE) return {};
  return LastError();
}

std::string FindDataFolder(const std::string& executableFolder, FileSystem& files) {
  if (executableFolder.empty()) return {};
  const base::PathSyntax& rules = PathRules();
  const std::array<std::string, 3> candidates = {
      rules.Join(executableFolder, "data"), executableFolder,
      rules.Join(rules.ParentOf(rules.ParentOf(executableFolder)), "data")};
  for (const std::string& candidate : candidates) {
    if (OwnFiles(files).HoldsSkins(candidate)) return candidate;
  }
  return {};
}

// Of a program with all its files beside it, and of one that was built from the sources.
std::string FindGuidePage(const std::string& executableFolder, const FileSystem& files) {
  constexpr std::string_view page = R"(guide\index.html)";
  const std::string beside = PathRules().Join(executableFolder, page);
  const std::string above = PathRules().Join(PathRules().ParentOf(executableFolder), page);
  return !files.Exists(beside) && files.Exists(above) ? above : beside;
}

struct FolderChoice {
  std::string Folder;
  bool Own = false;  // to be made and filled
};

FolderChoice ChooseFolder(const ProgramPlaces& places, FileSystem& files) {
  if (!places.TarnwellHome.empty()) return {FullFolder(places.TarnwellHome), true};
  const std::string& beside = places.ExecutableFolder;
  if (OwnFiles(files).HoldsSkins(beside) && MayAddTo(beside)) return {beside};
  if (places.LocalAppData.empty()) return {beside};
  return {PathRules().Join(places.LocalAppData, "Tarnwell"), true};
}

}  // namespace

// By the first of these the current folder is still the one that the program was started in.
ProgramPlaces ProgramPlaces::OfProcess() {
  static const std::string home = [] {
    const std::string given = Narrow(EnvironmentText(L"TARNWELL_HOME"));
    return given.empty() ? given : FullFolder(given);
  }();
  ProgramPlaces places;
  places.ExecutableFolder = PathRules().ParentOf(FromLongPath(ExecutablePath()));
  places.TarnwellHome = home;
  places.LocalAppData = FindKnownFolder(FOLDERID_LocalAppData);
  return places;
}

WindowsSystemInfo::WindowsSystemInfo(const ProgramPlaces& places, FileSystem& files)
    : files_(files),
      dataFolder_(FindDataFolder(places.ExecutableFolder, files)),
      guidePage_(FindGuidePage(places.ExecutableFolder, files)) {
  const FolderChoice choice = ChooseFolder(places, files);
  programFolder_ = choice.Folder;
  if (choice.Own) folderTrouble_ = MakeWithParents(files, programFolder_);
  if (!folderTrouble_ || dataFolder_.empty()) return;
  OwnFiles(files).BringUpToDate(programFolder_, dataFolder_, choice.Own);
}

std::string WindowsSystemInfo::FolderOf(std::string_view file) const {
  return OwnFiles(files_).FolderOf(file, programFolder_, dataFolder_);
}

std::string WindowsSystemInfo::SkinFolder() const {
  return OwnFiles(files_).SkinFolder(programFolder_, dataFolder_);
}

void WindowsSystemInfo::SetCurrentFolder(const std::string& folder) {
  SetCurrentDirectoryW(Wide(folder).c_str());
}

}  // namespace tarnwell::platform
