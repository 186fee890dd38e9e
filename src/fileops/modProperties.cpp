#include "fileops/modProperties.h"

namespace tarnwell::fileops {
namespace {

// Results from this one on are those of a window that has opened.
constexpr int LeastInstance = 33;

}  // namespace

void ShowProperties(platform::ShellWindows& shell, forms::Messenger& messenger,
                    const std::vector<std::string>& paths) {
  if (shell.ShowProperties(paths) >= LeastInstance) return;
  messenger.Message(" Properties not available for this object.", forms::MessageKind::Ok);
}

}  // namespace tarnwell::fileops
