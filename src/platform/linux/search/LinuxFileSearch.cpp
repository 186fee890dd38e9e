#include "platform/linux/search/LinuxFileSearch.h"

#include <glib.h>

#include <cerrno>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/posix/PostToLoop.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/search/SearchWalk.h"

namespace tarnwell::platform {
namespace {

constexpr unsigned searchTick = 50;  // milliseconds between updates
constexpr std::size_t foundPerUpdate = 4096;

// Lives on the event loop; threads see nothing of it.
class SearchTeller : public std::enable_shared_from_this<SearchTeller> {
 public:
  SearchTeller(std::shared_ptr<SearchWork> work, FileSearch::Told told)
      : work_(std::move(work)), told_(std::move(told)) {}
  SearchTeller(const SearchTeller&) = delete;
  SearchTeller& operator=(const SearchTeller&) = delete;
  ~SearchTeller() { End(); }

  void Start() {
    timer_ = g_timeout_add(
        searchTick,
        [](gpointer data) noexcept -> gboolean {
          GuardedCall([&] { static_cast<SearchTeller*>(data)->shared_from_this()->Tell(); });
          return G_SOURCE_CONTINUE;  // unless End has removed it
        },
        this);
  }

  // Large finds are handed over in several calls, with what else has come to the loop in between.
  // Who is told may let messages through: what is told next has to wait for that.
  void Tell() {
    if (timer_ == 0 || isTelling_) return;
    SearchUpdate update = work_->TakeUpdate(foundPerUpdate);
    const bool isDone = update.IsDone;
    {
      const Telling telling{isTelling_ = true};
      told_(std::move(update));
    }
    if (isDone) return End();
    if (timer_ == 0 || isPosted_ || !work_->HasMore()) return;
    isPosted_ = true;
    PostToLoop([self = weak_from_this()] {
      const auto alive = self.lock();
      if (!alive) return;
      alive->isPosted_ = false;
      alive->Tell();
    });
  }

  void End() {
    if (timer_ == 0) return;
    g_source_remove(std::exchange(timer_, 0));
    work_->Cancel();
  }

 private:
  struct Telling {
    bool& Is;
    ~Telling() { Is = false; }
  };

  const std::shared_ptr<SearchWork> work_;
  const FileSearch::Told told_;
  unsigned timer_ = 0;  // 0 once it has ended
  bool isPosted_ = false;
  bool isTelling_ = false;
};

class LinuxSearch : public RunningSearch {
 public:
  explicit LinuxSearch(std::shared_ptr<SearchTeller> teller) : teller_(std::move(teller)) {}
  LinuxSearch(const LinuxSearch&) = delete;
  LinuxSearch& operator=(const LinuxSearch&) = delete;
  ~LinuxSearch() override { teller_->End(); }

 private:
  const std::shared_ptr<SearchTeller> teller_;
};

std::unique_ptr<TextScan> ScanFor(const SearchRequest& request, std::unique_ptr<Regex> test) {
  if (test) return std::make_unique<TextScan>(std::move(test), request.LooksIntoBinary);
  if (request.Content.empty()) return {};
  return std::make_unique<TextScan>(request.Content, request.LooksIntoBinary);
}

}  // namespace

std::unique_ptr<RunningSearch> LinuxFileSearch::Start(SearchRequest request, Told told) {
  const std::size_t threads = SharingThreads();
  const auto work = std::make_shared<SearchWork>(threads);
  // No thread keeps what belongs to the caller.
  const auto makeNameTest = std::exchange(request.MakeNameTest, nullptr);
  const auto makeContentTest = std::exchange(request.MakeContentTest, nullptr);
  const auto wanted = std::make_shared<const SearchRequest>(std::move(request));
  const auto teller = std::make_shared<SearchTeller>(work, std::move(told));
  teller->Start();
  const auto tell = [self = std::weak_ptr(teller)] {
    if (const auto alive = self.lock()) alive->Tell();
  };
  const auto leave = [work, tell] {
    if (work->Leave()) PostToLoop(tell);
  };
  if (wanted->Content.size() > TextScan::LongestLine) {
    work->Fail(SystemError(EMSGSIZE));
  } else {
    work->Give({{}, wanted->Folder});
  }
  std::size_t failed = 0;
  for (std::size_t number = 0; number < threads; ++number) {
    const auto walk = std::make_shared<SearchWalk>(
        *work, *wanted, makeNameTest ? makeNameTest() : SearchNameTest(),
        ScanFor(*wanted, makeContentTest ? makeContentTest() : nullptr));
    const auto serve = [work, wanted, walk, leave] {
      try {
        for (SearchJob job; work->Take(job);) walk->Run(std::move(job));
      } catch (const std::exception&) {
        work->Fail(SystemError(ENOMEM));
        work->GiveUp();
      }
      GuardedCall(leave);
    };
    try {
      std::thread(serve).detach();
    } catch (const std::system_error&) {
      if (++failed == threads) work->Fail(SystemError(EAGAIN));
      work->GiveUp();
      leave();
    }
  }
  return std::make_unique<LinuxSearch>(teller);
}

}  // namespace tarnwell::platform
