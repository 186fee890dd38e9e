#include "platform/win32/system/WriteToTerminal.h"

#include <string>

#include "platform/win32/api/Handle.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

// What the process was given for the stream; null where it is nothing that is there.
HANDLE GivenStream(TerminalStream stream) {
  HANDLE const given =
      GetStdHandle(stream == TerminalStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
  return GetFileType(given) != FILE_TYPE_UNKNOWN ? given : nullptr;
}

bool IsConsole(HANDLE stream) {
  DWORD mode = 0;
  return GetConsoleMode(stream, &mode) != FALSE;
}

// The console of the process that started this one, while this lives.
class ParentConsole {
 public:
  ParentConsole() : isAttached_(AttachConsole(ATTACH_PARENT_PROCESS) != FALSE) {
    if (!isAttached_) return;
    output_ =
        Handle(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                           FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
  }
  ParentConsole(const ParentConsole&) = delete;
  ParentConsole& operator=(const ParentConsole&) = delete;
  ~ParentConsole() {
    output_ = {};
    if (isAttached_) FreeConsole();
  }

  HANDLE Output() const { return output_.Get(); }  // null where there is none

 private:
  const bool isAttached_;
  Handle output_;
};

void WriteText(HANDLE stream, std::string_view text) {
  DWORD written = 0;
  if (IsConsole(stream)) {
    const std::wstring wide = Wide(text);
    WriteConsoleW(stream, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
  } else {
    WriteFile(stream, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  }
}

}  // namespace

void WriteToTerminal(TerminalStream stream, std::string_view text) {
  if (HANDLE const given = GivenStream(stream); given != nullptr) {
    WriteText(given, text);
  } else if (const ParentConsole console; console.Output() != nullptr) {
    WriteText(console.Output(), text);
  }
}

bool IsTerminalSeen(TerminalStream stream) {
  HANDLE const given = GivenStream(stream);
  return given != nullptr ? IsConsole(given) : ParentConsole().Output() != nullptr;
}

}  // namespace tarnwell::platform
