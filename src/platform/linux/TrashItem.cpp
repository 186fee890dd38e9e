#include "platform/linux/TrashItem.h"

#include "platform/linux/GioObject.h"

namespace tarnwell::platform {

TrashOutcome TrashItem(const std::string& path, base::Status& status) {
  const GioObject<GFile> file(g_file_new_for_path(path.c_str()));
  GioError error;
  if (g_file_trash(file.get(), nullptr, error.Place()) != FALSE) return TrashOutcome::Trashed;
  status = error.Status();
  const bool hasNone = g_error_matches(*error.Place(), G_IO_ERROR, G_IO_ERROR_NOT_SUPPORTED) != 0;
  return hasNone ? TrashOutcome::NoTrash : TrashOutcome::Failed;
}

}  // namespace tarnwell::platform
