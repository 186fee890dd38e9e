#include "platform/search/SearchThreads.h"

#include <cstddef>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/GuardedCall.h"

namespace tarnwell::platform {
namespace {

constexpr std::chrono::milliseconds searchTick(50);  // between updates
constexpr std::size_t foundPerUpdate = 4096;

// Lives on the event loop; threads see nothing of it.
class SearchTeller : public std::enable_shared_from_this<SearchTeller> {
 public:
  SearchTeller(std::shared_ptr<SearchTally> tally, FileSearch::Told told, SearchLoop loop)
      : tally_(std::move(tally)), told_(std::move(told)), loop_(std::move(loop)) {}
  SearchTeller(const SearchTeller&) = delete;
  SearchTeller& operator=(const SearchTeller&) = delete;
  ~SearchTeller() { End(); }

  void Start() {
    timer_ = loop_.Every(searchTick, [self = weak_from_this()] {
      if (const auto alive = self.lock()) alive->Tell();
    });
  }

  // Large finds are handed over in several calls, with what else has come to the loop in between.
  // Who is told may let messages through: what is told next has to wait for that.
  void Tell() {
    if (!timer_ || isTelling_) return;
    SearchUpdate update = tally_->TakeUpdate(foundPerUpdate);
    const bool isDone = update.IsDone;
    {
      const Telling telling{isTelling_ = true};
      told_(std::move(update));
    }
    if (isDone) return End();
    if (!timer_ || isPosted_ || !tally_->HasMore()) return;
    isPosted_ = true;
    loop_.Post([self = weak_from_this()] {
      const auto alive = self.lock();
      if (!alive) return;
      alive->isPosted_ = false;
      alive->Tell();
    });
  }

  void End() {
    if (!timer_) return;
    timer_.reset();
    tally_->Cancel();
  }

 private:
  struct Telling {
    bool& Is;
    ~Telling() { Is = false; }
  };

  const std::shared_ptr<SearchTally> tally_;
  const FileSearch::Told told_;
  const SearchLoop loop_;
  std::shared_ptr<void> timer_;  // null once it has ended
  bool isPosted_ = false;
  bool isTelling_ = false;
};

class ThreadSearch : public RunningSearch {
 public:
  explicit ThreadSearch(std::shared_ptr<SearchTeller> teller) : teller_(std::move(teller)) {}
  ThreadSearch(const ThreadSearch&) = delete;
  ThreadSearch& operator=(const ThreadSearch&) = delete;
  ~ThreadSearch() override { teller_->End(); }

 private:
  const std::shared_ptr<SearchTeller> teller_;
};

}  // namespace

std::unique_ptr<RunningSearch> StartSearch(const std::shared_ptr<SearchTally>& tally,
                                           const std::vector<std::function<void()>>& parts,
                                           FileSearch::Told told, const SearchLoop& loop,
                                           const base::Status& noThreads) {
  const auto teller = std::make_shared<SearchTeller>(tally, std::move(told), loop);
  teller->Start();
  const auto tell = [self = std::weak_ptr(teller)] {
    if (const auto alive = self.lock()) alive->Tell();
  };
  const auto leave = [tally, tell, post = loop.Post] {
    if (tally->Leave()) post(tell);
  };
  std::size_t failed = 0;
  for (const std::function<void()>& part : parts) {
    try {
      std::thread([part, leave] {
        part();
        GuardedCall(leave);
      }).detach();
    } catch (const std::system_error&) {
      if (++failed == parts.size()) tally->Fail(noThreads);
      tally->GiveUp();
      leave();
    }
  }
  return std::make_unique<ThreadSearch>(teller);
}

}  // namespace tarnwell::platform
