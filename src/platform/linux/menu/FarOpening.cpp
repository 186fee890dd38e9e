#include "platform/linux/menu/FarOpening.h"

#include <memory>
#include <utility>

namespace tarnwell::platform {

base::Status FindOpenerAt(const FarCalls& calls, const std::string& path, Opener& opener) {
  const auto own = std::make_shared<Opener>();
  base::Status status = calls.Ask(path, [own, path] { return FindOpener(path, *own); });
  if (status) opener = std::move(*own);
  return status;
}

base::Status StartProgramAt(const FarCalls& calls, const std::vector<std::string>& words,
                            const std::string& folder, StartIn where, TerminalEnd end) {
  const bool isFarProgram = !words.empty() && calls.PlaceOf(words.front());
  return calls.Ask(isFarProgram ? words.front() : folder,
                   [words, folder, where, end] { return StartProgram(words, folder, where, end); });
}

}  // namespace tarnwell::platform
