#include "platform/linux/search/LinuxFileSearch.h"

#include <glib.h>

#include <cerrno>
#include <exception>
#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/posix/PostToLoop.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/search/SearchWalk.h"
#include "platform/search/SearchThreads.h"

namespace tarnwell::platform {
namespace {

class LoopTimer {
 public:
  LoopTimer(std::chrono::milliseconds step, std::function<void()> call)
      : call_(std::move(call)),
        timer_(g_timeout_add(
            static_cast<guint>(step.count()),
            [](gpointer data) noexcept -> gboolean {
              // A copy, since the call may end this object.
              const std::function<void()> made = static_cast<LoopTimer*>(data)->call_;
              GuardedCall(made);
              return G_SOURCE_CONTINUE;  // unless it has been removed
            },
            this)) {}
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;
  ~LoopTimer() { g_source_remove(timer_); }

 private:
  const std::function<void()> call_;
  const guint timer_;
};

SearchLoop DefaultLoop() {
  return {PostToLoop, [](std::chrono::milliseconds step, std::function<void()> call) {
            return std::make_shared<LoopTimer>(step, std::move(call));
          }};
}

}  // namespace

std::unique_ptr<RunningSearch> LinuxFileSearch::Start(SearchRequest request, Told told) {
  const std::size_t threads = SharingThreads();
  const auto work = std::make_shared<SearchWork>(threads);
  // No thread keeps what belongs to the caller.
  const auto makeNameTest = std::exchange(request.MakeNameTest, nullptr);
  const auto makeContentTest = std::exchange(request.MakeContentTest, nullptr);
  const auto wanted = std::make_shared<const SearchRequest>(std::move(request));
  if (wanted->Content.size() > TextScan::LongestLine) {
    work->Fail(SystemError(EMSGSIZE));
  } else {
    work->Give({{}, wanted->Folder});
  }
  std::vector<std::function<void()>> parts;
  for (std::size_t number = 0; number < threads; ++number) {
    const auto walk = std::make_shared<SearchWalk>(
        *work, *wanted, makeNameTest ? makeNameTest() : SearchNameTest(),
        ScanFor(*wanted, makeContentTest ? makeContentTest() : nullptr));
    parts.emplace_back([work, wanted, walk] {
      try {
        for (SearchJob job; work->Take(job);) walk->Run(std::move(job));
      } catch (const std::exception&) {
        work->Fail(SystemError(ENOMEM));
        work->GiveUp();
      }
    });
  }
  return StartSearch(work, parts, std::move(told), DefaultLoop(), SystemError(EAGAIN));
}

}  // namespace tarnwell::platform
