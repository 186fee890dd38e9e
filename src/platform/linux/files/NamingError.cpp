#include "platform/linux/files/NamingError.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

struct Sentence {
  int Number;
  const char* Text;
};

constexpr const char* Taken = "There is an item of this name already. Type another name.";
constexpr const char* Gone =
    "The item, or its folder, is no longer there. Cancel, and look at the list again.";
constexpr const char* BadName =
    "The drive takes no such name. Leave out characters such as \\ : * ? \" < > |";
constexpr const char* NotAllowed =
    "You may not change what is in this folder. Ask its owner for the permission, or work in a "
    "folder of your own.";

constexpr Sentence Sentences[] = {
    {EEXIST, Taken},
    {ENOTEMPTY, Taken},
    {ENOENT, Gone},
    {ENOTDIR, Gone},
    {EINVAL, BadName},
    {EILSEQ, BadName},
    {ENAMETOOLONG, "The name is too long for the drive. Type a shorter one."},
    {EACCES, NotAllowed},
    {EPERM, NotAllowed},
    {EROFS, "The drive can only be read. Take its write protection off, or work on another one."},
    {ENOSPC, "The drive is full. Delete something on it, then try again."},
    {EDQUOT, "Your share of the drive is used up. Delete something of yours, then try again."},
    {EBUSY, "The item is in use, by a drive that is mounted there say. Free it, then try again."},
};

}  // namespace

base::Status NamingError(ErrorNumber error) {
  const auto* const found = std::ranges::find(Sentences, error.Value(), &Sentence::Number);
  if (found == std::end(Sentences)) return SystemError(error);
  return {error.Value(), found->Text};
}

}  // namespace tarnwell::platform
