#include "platform/win32/files/WindowsFolderWatch.h"

#include <utility>

#include "base/PathSyntax.h"
#include "platform/win32/files/NoticePort.h"

namespace tarnwell::platform {
namespace {

constexpr DWORD wantedNotices = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME |
                                FILE_NOTIFY_CHANGE_ATTRIBUTES | FILE_NOTIFY_CHANGE_SIZE |
                                FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_CREATION;

class ReaderWatch : public Watch {
 public:
  ReaderWatch(const std::shared_ptr<NoticePort>& port, const std::string& folder,
              FolderWatch::Changed changed)
      : notices_(std::make_shared<FolderNotices>(folder, std::move(changed))),
        items_(std::make_shared<NoticeReader>(port, notices_, folder, wantedNotices)) {
    if (!items_->Begin()) {
      items_.reset();
      return;
    }
    const base::PathSyntax& syntax = base::PathSyntax::Windows();
    const std::string above = syntax.ParentOf(folder);
    if (syntax.Same(above, folder)) return;
    itself_ = std::make_shared<NoticeReader>(port, notices_, above, FILE_NOTIFY_CHANGE_DIR_NAME,
                                             std::string(syntax.LastComponent(folder)));
    // One that may not be read leaves its folders without word of their end.
    if (!itself_->Begin()) itself_.reset();
  }
  ReaderWatch(const ReaderWatch&) = delete;
  ReaderWatch& operator=(const ReaderWatch&) = delete;
  ~ReaderWatch() override {
    notices_->Close();
    for (const auto& reader : {items_, itself_}) {
      if (reader) reader->End();
    }
  }

  bool IsWatching() const { return items_ != nullptr; }

 private:
  const std::shared_ptr<FolderNotices> notices_;
  std::shared_ptr<NoticeReader> items_;
  std::shared_ptr<NoticeReader> itself_;  // of the folder above; may be null
};

}  // namespace

WindowsFolderWatch::~WindowsFolderWatch() {
  if (port_) port_->Leave();
}

std::unique_ptr<Watch> WindowsFolderWatch::Start(const std::string& folder, Changed changed) {
  if (!port_) port_ = NoticePort::Open();
  if (!port_) return nullptr;
  auto watch = std::make_unique<ReaderWatch>(port_, folder, std::move(changed));
  if (!watch->IsWatching()) return nullptr;
  return watch;
}

}  // namespace tarnwell::platform
