// Follows folders of a list on disk, with a bracket in which it rests. Where no notices come it
// looks at the folders itself, when it is told to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/FolderStamps.h"
#include "platform/FolderWatch.h"

namespace tarnwell::lister {

enum class LookReason {
  Idle,
  User,       // who is about to use what is on show
  Operation,  // the program itself has just changed something on disk
  Mounts,     // volumes came or went
  Resumed,    // notices were off
};

class FolderFollower {
 public:
  using Changed =
      std::function<void(const std::string& folder, const platform::FolderChanges& changes)>;
  // Look for LookReason::Idle is to be called once that many milliseconds have passed; 0: no more.
  using LookLater = std::function<void(int milliseconds)>;
  // No more folders than this: watches are a scarce good.
  static constexpr std::size_t Most = 128;

  FolderFollower(platform::FolderWatch& watches, platform::FolderStamps& stamps,
                 const platform::Clock& clock, Changed changed, LookLater later)
      : watches_(watches),
        stamps_(stamps),
        clock_(clock),
        changed_(std::move(changed)),
        later_(std::move(later)) {}

  // From now on this is the one folder to watch, at once unless stopped. Empty for none. To be
  // called before the folder is read, so that no change falls between the two. Each time anew: the
  // path may lead to another folder by now.
  void Follow(const std::string& folder);
  // The folder is to be watched beside the others, if there is room; also to be called before it is
  // read.
  void Add(const std::string& folder);
  // The first folders of these, as many as there may be, are to be watched and no others.
  void KeepOnly(const std::vector<std::string>& folders);
  bool Follows(const std::string& folder) const;
  // The folder lies on a share, as far as is known: whoever looks at it may wait for ever.
  bool IsAfar(const std::string& folder) const;
  bool IsStopped() const { return stopped_; }

  // No notices until Start or Resume, whatever is followed meanwhile.
  void Stop();
  // What happened since Stop is known already, and not told.
  void Start();
  // Tells of the folders that are not as they were when they were last to be read: at Stop notices
  // may have been under way.
  void Resume();

  // Tells of folders that nobody else tells of and that are not as they were when they were last to
  // be read; after Mounts and Resumed of any. Folders on other machines are told of later, from the
  // event loop, and idle looks leave them out most of the time.
  void Look(LookReason reason);
  // Has Look called again for what needs it.
  void LookAgainLater();

 private:
  struct Entry {
    std::unique_ptr<platform::Watch> Watching;  // null while stopped, and where there can be none
    platform::FolderFacts Facts;                // before it was last read
    std::int64_t FactsAt = 0;                   // the time of that
    int Number = 0;                             // of that, to know answers that come too late
  };
  // A folder, and the number of its entry as it was asked for.
  using Question = std::vector<std::pair<std::string, int>>;

  void Watch(const std::string& folder, Entry& entry);
  void Notice(const std::string& folder, const platform::FolderChanges& changes);
  static bool NeedsLooks(const Entry& entry) { return !entry.Watching || entry.Facts.IsByLink; }
  int WaitForLook() const;
  void SetTimer();
  bool Differs(const Entry& entry, const platform::FolderStamp& stamp, LookReason reason) const;
  void Ask(std::uint64_t volume, Question question, LookReason reason);
  // Of the folders that are still those that were looked at.
  void Compare(const Question& question, const std::vector<platform::FolderStamp>& stamps,
               LookReason reason);

  platform::FolderWatch& watches_;
  platform::FolderStamps& stamps_;
  const platform::Clock& clock_;
  Changed changed_;
  LookLater later_;
  std::map<std::string, Entry> entries_;  // by folder
  // By volume: one that does not answer is not asked again.
  std::map<std::uint64_t, std::unique_ptr<platform::StampRequest>> asked_;
  std::int64_t askedAt_ = 0;  // ticks
  int number_ = 0;
  int wait_ = 0;  // that `later_` was last called with
  bool stopped_ = false;
};

}  // namespace tarnwell::lister
