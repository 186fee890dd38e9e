#include "platform/win32/search/WindowsFileSearch.h"

#include <exception>
#include <utility>

#include "platform/search/SearchThreads.h"
#include "platform/win32/api/LoopTimer.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/search/SearchWalk.h"

namespace tarnwell::platform {
namespace {

SearchLoop MessageLoop() {
  return {PostToLoop, [](std::chrono::milliseconds step, std::function<void()> call) {
            return std::make_shared<LoopTimer>(step, std::move(call));
          }};
}

}  // namespace

std::unique_ptr<RunningSearch> WindowsFileSearch::Start(SearchRequest request, Told told) {
  const std::size_t threads = SharingThreads();
  const auto work = std::make_shared<SearchWork>(threads);
  // No thread keeps what belongs to the caller.
  const auto makeNameTest = std::exchange(request.MakeNameTest, nullptr);
  const auto makeContentTest = std::exchange(request.MakeContentTest, nullptr);
  const auto wanted = std::make_shared<const SearchRequest>(std::move(request));
  if (wanted->Content.size() > TextScan::LongestLine) {
    work->Fail(SystemError(ERROR_BUFFER_OVERFLOW));
  } else {
    work->Give({.Path = wanted->Folder});
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
        work->Fail(SystemError(ERROR_NOT_ENOUGH_MEMORY));
        work->GiveUp();
      }
    });
  }
  return StartSearch(work, parts, std::move(told), MessageLoop(),
                     SystemError(ERROR_MAX_THRDS_REACHED));
}

}  // namespace tarnwell::platform
