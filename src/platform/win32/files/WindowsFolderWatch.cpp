#include "platform/win32/files/WindowsFolderWatch.h"

#include <array>
#include <cstddef>
#include <set>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/NoticePort.h"
#include "platform/win32/files/VolumeRemoval.h"

namespace tarnwell::platform {
namespace {

constexpr DWORD wantedNotices = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME |
                                FILE_NOTIFY_CHANGE_ATTRIBUTES | FILE_NOTIFY_CHANGE_SIZE |
                                FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_CREATION;

// Of the system itself, which nobody takes away.
bool IsOnSystemVolume(const std::string& folder) {
  std::array<wchar_t, MAX_PATH> path{};
  const UINT length = GetSystemWindowsDirectoryW(path.data(), MAX_PATH);
  constexpr std::size_t root = 3;  // "C:\"
  return length >= root &&
         base::PathSyntax::Windows().Same(Narrow({path.data(), root}), folder.substr(0, root));
}

}  // namespace

class ReaderWatch;

class OpenWatches {
 public:
  const DWORD Thread = GetCurrentThreadId();
  std::set<ReaderWatch*> All;
};

class ReaderWatch : public Watch {
 public:
  ReaderWatch(std::shared_ptr<NoticePort> port, std::shared_ptr<OpenWatches> watches,
              const std::string& folder, FolderWatch::Changed changed)
      : port_(std::move(port)),
        watches_(std::move(watches)),
        notices_(std::make_shared<FolderNotices>(folder, std::move(changed))) {
    port_->Use();
    watches_->All.insert(this);
    Begin();
  }
  ReaderWatch(const ReaderWatch&) = delete;
  ReaderWatch& operator=(const ReaderWatch&) = delete;
  ~ReaderWatch() override {
    watches_->All.erase(this);
    notices_->Close();
    End();
    port_->Leave();
  }

  bool IsWatching() const { return items_ != nullptr; }
  const std::string& Folder() const { return notices_->Folder(); }

  void End() {
    for (const auto& reader : {std::exchange(items_, nullptr), std::exchange(itself_, nullptr)}) {
      if (reader) reader->End();
    }
  }
  void BeginAnew() {
    removal_.reset();
    Begin();
    TellEverything();
  }

 private:
  void Begin() {
    const std::string& folder = notices_->Folder();
    items_ = std::make_shared<NoticeReader>(port_, notices_, folder, wantedNotices);
    if (!items_->Begin()) {
      items_.reset();
      return;
    }
    if (!IsOnSystemVolume(folder)) {
      removal_ = std::make_unique<VolumeRemoval>(items_->Opened(),
                                                 [this](RemovalStage stage) { OnRemoval(stage); });
    }
    const base::PathSyntax& syntax = base::PathSyntax::Windows();
    const std::string above = syntax.ParentOf(folder);
    if (syntax.Same(above, folder)) return;
    itself_ = std::make_shared<NoticeReader>(port_, notices_, above, FILE_NOTIFY_CHANGE_DIR_NAME,
                                             std::string(syntax.LastComponent(folder)));
    // One that may not be read leaves its folders without word of their end.
    if (!itself_->Begin()) itself_.reset();
  }

  void OnRemoval(RemovalStage stage) {
    if (stage == RemovalStage::Asked) return End();
    if (stage == RemovalStage::GivenUp) return BeginAnew();
    TellEverything();
  }

  // Nobody knows what has happened meanwhile.
  void TellEverything() {
    notices_->TakeEverything();
    PostToLoop([notices = std::weak_ptr(notices_)] {
      if (const auto open = notices.lock()) open->Tell();
    });
  }

  const std::shared_ptr<NoticePort> port_;
  const std::shared_ptr<OpenWatches> watches_;
  const std::shared_ptr<FolderNotices> notices_;
  std::shared_ptr<NoticeReader> items_;
  std::shared_ptr<NoticeReader> itself_;  // of the folder above; may be null
  std::unique_ptr<VolumeRemoval> removal_;
};

WindowsFolderWatch::WindowsFolderWatch() : watches_(std::make_shared<OpenWatches>()) {}

WindowsFolderWatch::~WindowsFolderWatch() {
  if (port_) port_->Leave();
}

std::unique_ptr<Watch> WindowsFolderWatch::Start(const std::string& folder, Changed changed) {
  if (!port_) port_ = NoticePort::Open();
  if (!port_) return nullptr;
  auto watch = std::make_unique<ReaderWatch>(port_, watches_, folder, std::move(changed));
  if (!watch->IsWatching()) return nullptr;
  return watch;
}

std::function<std::shared_ptr<void>(const std::string& folder)> WindowsFolderWatch::LettingGo()
    const {
  return [watches = watches_](const std::string& folder) -> std::shared_ptr<void> {
    if (GetCurrentThreadId() != watches->Thread) return nullptr;
    const base::PathSyntax& syntax = base::PathSyntax::Windows();
    std::set<ReaderWatch*> ended;
    for (ReaderWatch* const each : watches->All) {
      const bool isBelow =
          syntax.IsWithin(each->Folder(), folder) && !syntax.Same(each->Folder(), folder);
      if (!isBelow || !each->IsWatching()) continue;
      each->End();
      ended.insert(each);
    }
    if (ended.empty()) return nullptr;
    const auto beginAnew = [watches, ended = std::move(ended)](const void* /*mark*/) {
      for (ReaderWatch* const each : ended) {
        if (watches->All.contains(each)) each->BeginAnew();
      }
    };
    return {watches.get(), beginAnew};
  };
}

}  // namespace tarnwell::platform
