#include "platform/win32/files/FilePermissions.h"

#include <aclapi.h>

#include <cstring>

namespace tarnwell::platform {
namespace {

class AccessList {
 public:
  AccessList() = default;
  AccessList(const AccessList&) = delete;
  AccessList& operator=(const AccessList&) = delete;
  ~AccessList() { LocalFree(descriptor_); }

  DWORD Read(HANDLE file) {
    const DWORD error = GetSecurityInfo(file, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                        nullptr, &List, nullptr, &descriptor_);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (error == ERROR_SUCCESS) GetSecurityDescriptorControl(descriptor_, &control, &revision);
    IsProtected = (control & SE_DACL_PROTECTED) != 0;
    return error;
  }

  bool IsSame(const AccessList& other) const {
    if (IsProtected != other.IsProtected) return false;
    if (List == nullptr || other.List == nullptr) return List == other.List;
    return List->AclSize == other.List->AclSize &&
           std::memcmp(List, other.List, List->AclSize) == 0;
  }

  ACL* List = nullptr;       // null gives everything to everybody
  bool IsProtected = false;  // takes nothing over from the folder

 private:
  PSECURITY_DESCRIPTOR descriptor_ = nullptr;
};

}  // namespace

DWORD TakePermissions(HANDLE file, HANDLE from) {
  DWORD traits = 0;
  const bool keepsLists =
      GetVolumeInformationByHandleW(file, nullptr, 0, nullptr, nullptr, &traits, nullptr, 0) != 0 &&
      (traits & FILE_PERSISTENT_ACLS) != 0;
  if (!keepsLists) return ERROR_SUCCESS;
  AccessList own, other;
  if (const DWORD error = other.Read(from); error != ERROR_SUCCESS) return error;
  if (const DWORD error = own.Read(file); error != ERROR_SUCCESS) return error;
  if (own.IsSame(other)) return ERROR_SUCCESS;
  const SECURITY_INFORMATION what =
      DACL_SECURITY_INFORMATION | (other.IsProtected ? PROTECTED_DACL_SECURITY_INFORMATION
                                                     : UNPROTECTED_DACL_SECURITY_INFORMATION);
  return SetSecurityInfo(file, SE_FILE_OBJECT, what, nullptr, nullptr, other.List, nullptr);
}

}  // namespace tarnwell::platform
