#include "platform/win32/files/NamingError.h"

#include <algorithm>
#include <iterator>

#include "platform/win32/api/SystemError.h"

namespace tarnwell::platform {
namespace {

struct NamingSentence {
  DWORD Number;
  const char* Text;
};

constexpr const char* NameTaken = "There is an item of this name already. Type another name.";
constexpr const char* ItemGone =
    "The item, or its folder, is no longer there. Cancel, and look at the list again.";
constexpr const char* NoSuchName =
    "Windows takes no such name. Leave out \\ / : * ? \" < > |, a dot or a blank at the end, and "
    "the names of devices such as CON, NUL and COM1.";
constexpr const char* NameTooLong = "The name is too long for the drive. Type a shorter one.";
constexpr const char* DriveFull = "The drive is full. Delete something on it, then try again.";
constexpr const char* HeldOpen =
    "Another program holds the item open. Close it there, then try again.";
constexpr const char* DriveGone =
    "The drive is not there, or has nothing in it. Put it back, then try again.";
constexpr const char* ShareGone =
    "The computer or the share is out of reach. Look at the network, then try again.";

constexpr DWORD QuotaExceeded = 1295;  // ERROR_DISK_QUOTA_EXCEEDED of winerror.h

constexpr NamingSentence NamingSentences[] = {
    {ERROR_ALREADY_EXISTS, NameTaken},
    {ERROR_FILE_EXISTS, NameTaken},
    {ERROR_DIR_NOT_EMPTY, NameTaken},
    {ERROR_FILE_NOT_FOUND, ItemGone},
    {ERROR_PATH_NOT_FOUND, ItemGone},
    {ERROR_DIRECTORY, ItemGone},
    {ERROR_INVALID_NAME, NoSuchName},
    {ERROR_BAD_PATHNAME, NoSuchName},
    {ERROR_NO_UNICODE_TRANSLATION, NoSuchName},
    {ERROR_FILENAME_EXCED_RANGE, NameTooLong},
    {ERROR_BUFFER_OVERFLOW, NameTooLong},
    {ERROR_LABEL_TOO_LONG, NameTooLong},
    // The system says the same of a folder in which some program holds an item open.
    {ERROR_ACCESS_DENIED,
     "You may not change this item, or a program holds something in it open. Close it there, or "
     "ask "
     "the owner for the permission."},
    {ERROR_PRIVILEGE_NOT_HELD,
     "You may not change this item. Ask its owner for the permission, or work in a folder of your "
     "own."},
    {ERROR_WRITE_PROTECT,
     "The drive can only be read. Take its write protection off, or work on another one."},
    {ERROR_DISK_FULL, DriveFull},
    {ERROR_HANDLE_DISK_FULL, DriveFull},
    {QuotaExceeded,
     "Your share of the drive is used up. Delete something of yours, then try again."},
    {ERROR_SHARING_VIOLATION, HeldOpen},
    {ERROR_LOCK_VIOLATION, HeldOpen},
    {ERROR_USER_MAPPED_FILE, HeldOpen},
    {ERROR_BUSY, HeldOpen},
    {ERROR_DELETE_PENDING,
     "The item is being deleted, and a program holds it open. Close it there, then try again."},
    {ERROR_NOT_SAME_DEVICE, "The new place is on another drive. Move the item there instead."},
    {ERROR_INVALID_DRIVE, DriveGone},
    {ERROR_NOT_READY, DriveGone},
    {ERROR_NO_MEDIA_IN_DRIVE, DriveGone},
    {ERROR_DEV_NOT_EXIST, DriveGone},
    {ERROR_DEVICE_NOT_CONNECTED, DriveGone},
    {ERROR_BAD_NETPATH, ShareGone},
    {ERROR_BAD_NET_NAME, ShareGone},
    {ERROR_NETNAME_DELETED, ShareGone},
    {ERROR_UNEXP_NET_ERR, ShareGone},
    {ERROR_SEM_TIMEOUT, ShareGone},
    {ERROR_NETWORK_UNREACHABLE, ShareGone},
    {ERROR_HOST_UNREACHABLE, ShareGone},
    {ERROR_NO_NET_OR_BAD_PATH, ShareGone},
    {ERROR_CONNECTION_UNAVAIL, ShareGone},
    {ERROR_NO_NETWORK, ShareGone},
};

}  // namespace

base::Status NamingError(DWORD error) {
  const auto* const found = std::ranges::find(NamingSentences, error, &NamingSentence::Number);
  if (found == std::end(NamingSentences)) return SystemError(error);
  return {static_cast<int>(error), found->Text};
}

}  // namespace tarnwell::platform
