// The message log on disk: a file of limited size that keeps the newest lines.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Status.h"
#include "platform/LogFile.h"
#include "platform/win32/api/Handle.h"

namespace tarnwell::platform {

// Each line is in the file when Append returns. The file begins with a line of its own, by which it
// is told from files that are something else: those, links, and what another process logs to are
// left alone. Nothing here waits for anybody. The first failure goes to the terminal and ends the
// log.
class WindowsLogFile : public LogFile {
 public:
  static constexpr std::int64_t Limit = 10'000'000;  // bytes

  // `wanted`: 1 for _MsgLog.txt in the program's folder, or a path. Null where it is null, empty or
  // 0, and where the log cannot be opened, which goes to the terminal.
  static std::unique_ptr<WindowsLogFile> Open(const char* wanted, const std::string& programFolder,
                                              std::int64_t limit = Limit);

  // A line that would take the file beyond the limit first takes its older half away.
  void Append(std::string_view line) override;

 private:
  WindowsLogFile(const std::string& path, std::int64_t limit);

  base::Status OpenFile();
  base::Status Write(std::string_view line);
  base::Status DropOlderHalf(std::int64_t size);
  void GiveUp(const base::Status& status);

  std::string path_;
  std::wstring longPath_;
  std::int64_t limit_;
  Handle file_;
};

}  // namespace tarnwell::platform
