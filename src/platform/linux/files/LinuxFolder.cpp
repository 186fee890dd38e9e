#include "platform/linux/files/LinuxFolder.h"

#include <array>
#include <cstdio>

#include "platform/linux/files/AttributeTeam.h"
#include "platform/linux/files/ExtendedAttributes.h"
#include "platform/linux/posix/ItemStat.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

void SetKind(FolderEntry& entry, unsigned char type) {
  entry.IsLink = type == DT_LNK;
  switch (type) {
    case DT_REG:
      entry.Kind = ItemKind::File;
      break;
    case DT_DIR:
      entry.Kind = ItemKind::Folder;
      break;
    case DT_LNK:
    case DT_UNKNOWN:
      entry.Kind = ItemKind::Unknown;
      break;
    default:
      entry.Kind = ItemKind::Other;
  }
}

// A name as the system takes it, with room for a beginning. Some file systems count letters where
// others count bytes, and have names of more than 255 bytes.
class EndedName {
 public:
  explicit EndedName(std::string_view name, std::string_view start = {}) {
    if (name.empty()) name = ".";
    if (name.find('\0') != name.npos || name.find('/') != name.npos) {
      error_ = EINVAL;
    } else if (start.size() + name.size() >= text_.size()) {
      error_ = ENAMETOOLONG;
    } else {
      start.copy(text_.data(), start.size());
      name.copy(text_.data() + start.size(), name.size());
      text_[start.size() + name.size()] = '\0';
    }
  }

  ErrorNumber Error() const { return error_; }
  const char* Text() const { return text_.data(); }

 private:
  std::array<char, 1200> text_;
  ErrorNumber error_;
};

}  // namespace

base::Status LinuxFolder::Read(const TakeEntry& take) {
  if (!buffer_) buffer_.emplace();
  FolderEntry entry;
  return SystemError(buffer_->ReadOn(folder_.Get(), [&](const dirent64& item) {
    entry.Name = item.d_name;
    entry.IsHidden = item.d_name[0] == '.';
    SetKind(entry, item.d_type);
    return take(entry);
  }));
}

base::Status ReadAttributesAt(int folder, std::string_view name, ItemAttributes& attributes) {
  const EndedName ended(name);
  if (ended.Error() != NoError) return SystemError(ended.Error());
  attributes.IsHidden = name.starts_with('.');
  return ReadItemStat(folder, ended.Text(), attributes);
}

base::Status LinuxFolder::ReadAttributes(std::string_view name, ItemAttributes& attributes) const {
  return ReadAttributesAt(folder_.Get(), name, attributes);
}

void LinuxFolder::ReadManyAttributes(WantedAttributes& wanted) const {
  constexpr std::size_t fewItems = 256;  // are not worth another thread
  if (wanted.Count() > fewItems) {
    AttributeTeam team(folder_.Get());
    if (team.HasThreads()) return team.Run(wanted);
  }
  OpenedFolder::ReadManyAttributes(wanted);
}

base::Status LinuxFolder::ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                                std::string& text) const {
  text.clear();
  std::array<char, 40> start;
  const int length = std::snprintf(start.data(), start.size(), "/proc/self/fd/%d/", folder_.Get());
  const EndedName ended(name, {start.data(), static_cast<std::size_t>(length)});
  return ended.Error() != NoError ? SystemError(ended.Error())
                                  : platform::ReadExtendedAttribute(ended.Text(), attribute, text);
}

}  // namespace tarnwell::platform
