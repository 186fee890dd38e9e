#include "fileops/modProperties.h"

namespace tarnwell::fileops {
namespace {

constexpr int NoSuchFile = 2;

}  // namespace

int ShowProperties(const platform::FileSystem& files, platform::ItemWindows& windows,
                   const std::string& path) {
  if (!files.Exists(path)) return NoSuchFile;
  windows.ShowProperties({path});
  return LeastInstance;
}

void ShowPropertiesOrTell(const platform::FileSystem& files, platform::ItemWindows& windows,
                          forms::Messenger& messenger, const std::string& path) {
  if (ShowProperties(files, windows, path) >= LeastInstance) return;
  messenger.Message(" Properties not available for this object.", forms::MessageKind::Ok);
}

}  // namespace tarnwell::fileops
