#include "platform/win32/files/Fingerprint.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "platform/FingerprintSum.h"
#include "platform/win32/api/FileTime.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/ItemHandle.h"

namespace tarnwell::platform {
namespace {

enum PrintedKind : std::uint32_t { PrintedFile = 1, PrintedFolder, PrintedLink };

struct PrintTraits {
  bool HasLastingNumbers = false;  // false also where nothing can be learnt of the volume
  bool HasFineTimes = false;
};

// A server may make the numbers of its items up. Those of FAT tell where an item is listed, and
// change when it moves.
PrintTraits PrintTraitsOf(HANDLE item) {
  FILE_REMOTE_PROTOCOL_INFO protocol;
  if (GetFileInformationByHandleEx(item, FileRemoteProtocolInfo, &protocol, sizeof protocol) != 0) {
    return {};
  }
  std::array<wchar_t, MAX_PATH + 1> name{};
  if (GetVolumeInformationByHandleW(item, nullptr, 0, nullptr, nullptr, nullptr, name.data(),
                                    static_cast<DWORD>(name.size())) == 0) {
    return {};
  }
  const std::wstring_view system(name.data());
  const bool isLasting = system == L"NTFS" || system == L"ReFS";
  return {.HasLastingNumbers = isLasting, .HasFineTimes = isLasting || system == L"UDF"};
}

PrintedKind PrintedKindOf(DWORD attributes, DWORD tag) {
  if (IsLinkTag(attributes, tag)) return PrintedLink;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PrintedFolder : PrintedFile;
}

std::int64_t PrintedTime(const FILETIME& time, const PrintTraits& traits) {
  const std::int64_t known = FromFileTime(time);
  if (known == UnknownTime) return 0;
  return traits.HasFineTimes ? known : CoarseTime(known);
}

ItemFingerprint PrintOfContent(DWORD attributes, DWORD tag, DWORD high, DWORD low,
                               const FILETIME& written, const PrintTraits& traits) {
  const PrintedKind kind = PrintedKindOf(attributes, tag);
  ItemFingerprint print{.Kind = kind};
  if (kind == PrintedFile) print.Size = static_cast<std::uint64_t>(high) << 32 | low;
  if (kind != PrintedFolder) print.Modified = PrintedTime(written, traits);
  return print;
}

// Reads one folder after the other, so that none is held while those in it are read.
class FolderSum {
 public:
  FolderSum(std::string top, const PrintTraits& traits) : path_(LongPath(top)), traits_(traits) {
    if (path_.ends_with(L'\\')) path_.pop_back();
  }

  // 0 where it cannot be read whole.
  std::uint64_t Run() {
    if (!Enter()) return 0;
    for (;;) {
      if (!levels_.back().Folders.empty()) {
        const std::wstring name = std::move(levels_.back().Folders.back());
        levels_.back().Folders.pop_back();
        path_ += L'\\';
        path_ += name;
        if (!Enter()) return 0;
        continue;
      }
      const std::uint64_t below = levels_.back().Below;
      levels_.pop_back();
      if (levels_.empty()) return below;
      const std::size_t cut = path_.rfind(L'\\');
      levels_.back().Below +=
          ShareOf(Narrow(path_.substr(cut + 1)), {.Kind = PrintedFolder, .Below = below});
      path_.resize(cut);
    }
  }

 private:
  struct Level {
    std::uint64_t Below = NothingBelow;
    std::vector<std::wstring> Folders = {};  // that are still to be read
  };

  bool Enter() {
    Level level;
    WIN32_FIND_DATAW found;
    const FindHandle finding(FindFirstFileExW((path_ + L"\\*").c_str(), FindExInfoBasic, &found,
                                              FindExSearchNameMatch, nullptr,
                                              FIND_FIRST_EX_LARGE_FETCH));
    if (!finding) return false;
    do {
      const std::wstring_view name = found.cFileName;
      if (name == L"." || name == L"..") continue;
      const ItemFingerprint print =
          PrintOfContent(found.dwFileAttributes, found.dwReserved0, found.nFileSizeHigh,
                         found.nFileSizeLow, found.ftLastWriteTime, traits_);
      if (print.Kind == PrintedFolder) {
        level.Folders.emplace_back(name);
      } else {
        level.Below += ShareOf(Narrow(name), print);
      }
    } while (FindNextFileW(finding.Get(), &found) != 0);
    const bool isWhole = GetLastError() == ERROR_NO_MORE_FILES;
    levels_.push_back(std::move(level));
    return isWhole;
  }

  std::wstring path_;  // of the folder at hand, as LongPath
  const PrintTraits traits_;
  std::vector<Level> levels_;
};

}  // namespace

ItemFingerprint FingerprintOf(const std::string& path, bool isWhole) {
  const Handle item = OpenItem(path, false);
  BY_HANDLE_FILE_INFORMATION found;
  if (!item || GetFileInformationByHandle(item.Get(), &found) == 0) return {};
  FILE_ATTRIBUTE_TAG_INFO tag{};
  GetFileInformationByHandleEx(item.Get(), FileAttributeTagInfo, &tag, sizeof tag);
  const PrintTraits traits = PrintTraitsOf(item.Get());
  ItemFingerprint print =
      PrintOfContent(found.dwFileAttributes, tag.ReparseTag, found.nFileSizeHigh,
                     found.nFileSizeLow, found.ftLastWriteTime, traits);
  // No word of its birth: anybody may set that, and these numbers are given to no other item.
  if (traits.HasLastingNumbers) {
    const ItemIdentity identity = IdentityOf(item.Get());
    print.Device = identity.Volume;
    print.Number = identity.Number;
  }
  if (isWhole && print.Kind == PrintedFolder) print.Below = FolderSum(path, traits).Run();
  return print;
}

}  // namespace tarnwell::platform
