#include "lister/list/FolderFollower.h"

#include <algorithm>
#include <set>

namespace tarnwell::lister {
namespace {

// Milliseconds between two idle looks.
constexpr int RestHere = 1000;
constexpr int RestAfar = 5000;

// Nanoseconds. File systems keep times in steps of up to two seconds (FAT): a folder that changed
// so shortly before the look may change again and bear the same stamp.
constexpr std::int64_t StepOfTimes = 2'000'000'000;

}  // namespace

void FolderFollower::Follow(const std::string& folder) {
  std::erase_if(entries_, [&](const auto& entry) { return entry.first != folder; });
  if (!folder.empty()) Add(folder);
  SetTimer();
}

void FolderFollower::Add(const std::string& folder) {
  const auto hasRoom = [&] { return entries_.contains(folder) || entries_.size() < Most; };
  if (!hasRoom()) return;
  // Others may come and go while another machine is waited for.
  const platform::FolderFacts facts = stamps_.ReadFacts(folder);
  if (!hasRoom()) return;
  Entry& entry = entries_[folder];
  entry.Facts = facts;
  entry.FactsAt = clock_.Now();
  entry.Number = ++number_;
  Watch(folder, entry);
  SetTimer();
}

void FolderFollower::KeepOnly(const std::vector<std::string>& folders) {
  const std::size_t count = std::min(folders.size(), Most);
  const std::set<std::string> wanted(folders.begin(),
                                     folders.begin() + static_cast<std::ptrdiff_t>(count));
  std::erase_if(entries_, [&](const auto& entry) { return !wanted.contains(entry.first); });
  for (const std::string& folder : wanted) {
    if (!entries_.contains(folder)) Add(folder);
  }
  SetTimer();
}

bool FolderFollower::Follows(const std::string& folder) const {
  const auto entry = entries_.find(folder);
  return entry != entries_.end() && entry->second.Watching;
}

bool FolderFollower::IsAfar(const std::string& folder) const {
  const auto entry = entries_.find(folder);
  return entry != entries_.end() && !entry->second.Facts.IsLocal;
}

void FolderFollower::Stop() {
  stopped_ = true;
  for (auto& [folder, entry] : entries_) {
    Watch(folder, entry);
    entry.Number = ++number_;  // an answer under way is a notice too
  }
  SetTimer();
}

void FolderFollower::Start() {
  if (!stopped_) return;
  stopped_ = false;
  for (auto& [folder, entry] : entries_) Watch(folder, entry);
  SetTimer();
}

void FolderFollower::Resume() {
  if (!stopped_) return;
  Start();
  Look(LookReason::Resumed);
}

// A share gives no notices of what other machines change, and one that is dead must keep nobody.
void FolderFollower::Watch(const std::string& folder, Entry& entry) {
  entry.Watching.reset();
  if (stopped_ || !entry.Facts.IsLocal) return;
  entry.Watching = watches_.Start(
      folder, [this, folder](const platform::FolderChanges& changes) { Notice(folder, changes); });
}

void FolderFollower::Notice(const std::string& folder, const platform::FolderChanges& changes) {
  if (entries_.contains(folder)) changed_(folder, changes);
}

// --- Looks.

int FolderFollower::WaitForLook() const {
  int wait = 0;
  for (const auto& [folder, entry] : entries_) {
    if (!NeedsLooks(entry)) continue;
    if (entry.Facts.IsLocal) return RestHere;
    wait = RestAfar;
  }
  return wait;
}

void FolderFollower::SetTimer() {
  if (WaitForLook() != wait_) LookAgainLater();
}

void FolderFollower::LookAgainLater() {
  const int before = std::exchange(wait_, WaitForLook());
  if (wait_ != 0 || before != 0) later_(wait_);
}

void FolderFollower::Look(LookReason reason) {
  const bool all = reason == LookReason::Mounts || reason == LookReason::Resumed;
  // Half a step early, since no timer is exact.
  const bool asks =
      reason != LookReason::Idle || clock_.Ticks() - askedAt_ >= RestAfar - RestHere / 2;
  Question here;
  std::vector<platform::FolderStamp> stamps;
  std::map<std::uint64_t, Question> afar;
  for (const auto& [folder, entry] : entries_) {
    if (!all && !NeedsLooks(entry)) continue;
    if (!entry.Facts.IsLocal) {
      if (asks) afar[entry.Facts.Stamp.Device].emplace_back(folder, entry.Number);
    } else {
      here.emplace_back(folder, entry.Number);
    }
  }
  for (const auto& [folder, number] : here) stamps.push_back(stamps_.Read(folder));
  for (auto& [volume, question] : afar) Ask(volume, std::move(question), reason);
  LookAgainLater();
  Compare(here, stamps, reason);
}

void FolderFollower::Ask(std::uint64_t volume, Question question, LookReason reason) {
  if (asked_.contains(volume)) return;
  askedAt_ = clock_.Ticks();
  std::vector<std::string> folders;
  folders.reserve(question.size());
  for (const auto& [folder, number] : question) folders.push_back(folder);
  auto request = stamps_.Ask(std::move(folders), [this, volume, question = std::move(question),
                                                  reason](const auto& stamps) {
    asked_.erase(volume);
    Compare(question, stamps, reason);
  });
  if (request) asked_.emplace(volume, std::move(request));
}

void FolderFollower::Compare(const Question& question,
                             const std::vector<platform::FolderStamp>& stamps, LookReason reason) {
  for (std::size_t at = 0; at < question.size(); ++at) {
    const auto& [folder, number] = question[at];
    const platform::FolderStamp& stamp = stamps[at];
    const auto found = entries_.find(folder);
    if (found == entries_.end() || found->second.Number != number) continue;
    Entry& entry = found->second;
    if (!Differs(entry, stamp, reason)) continue;
    // Another folder: nothing below it is what it was.
    const bool isOther = !stamp.IsSameFolder(entry.Facts.Stamp);
    // Told once, also where nobody reads it then.
    entry.Facts.Stamp = stamp;
    entry.FactsAt = clock_.Now();
    Notice(folder, {.Names = {}, .Everything = true, .FolderGone = isOther});
  }
}

bool FolderFollower::Differs(const Entry& entry, const platform::FolderStamp& stamp,
                             LookReason reason) const {
  const platform::FolderStamp& known = entry.Facts.Stamp;
  const bool all = reason == LookReason::Mounts || reason == LookReason::Resumed;
  // What happens in a folder that is watched is told by notices.
  if (entry.Watching && !all) return !stamp.IsSameFolder(known);
  if (stamp != known) return true;
  if (entry.Watching || !known.IsThere) return false;
  const bool mayHideChange =
      known.Changed > entry.FactsAt - StepOfTimes && known.Changed < entry.FactsAt + StepOfTimes;
  return mayHideChange &&
         (reason == LookReason::Operation || clock_.Now() - entry.FactsAt >= StepOfTimes);
}

}  // namespace tarnwell::lister
