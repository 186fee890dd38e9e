#include "platform/linux/trash/TrashFollower.h"

#include <glib.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <thread>

#include "platform/GuardedCall.h"
#include "platform/linux/posix/PostToLoop.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/trash/MeasureTrash.h"

namespace tarnwell::platform {
namespace {

constexpr unsigned tick = 1000;  // milliseconds
constexpr std::chrono::seconds patience(3);

// Whoever empties a large trash makes more notices than are kept, time and again. All is read anew
// then, which holds up those who take items out of the folder: for most of the time nothing is.
constexpr int restAfterAll = 4;  // times as long as reading took

}  // namespace

TrashFollower::TrashFollower(TrashPlaces places, FolderWatch& watches, const Drives& drives,
                             BusyVolumes busy, TrashListener& listener, std::string drive)
    : places_(std::move(places)),
      watches_(watches),
      drives_(drives),
      busy_(std::move(busy)),
      listener_(&listener),
      drive_(std::move(drive)) {}

TrashFollower::~TrashFollower() {
  End();
}

void TrashFollower::Start() {
  mounts_ = std::make_unique<MountNotices>([self = weak_from_this()] {
    if (const auto alive = self.lock()) alive->FindVolumes();
  });
  timer_ = g_timeout_add(
      tick,
      [](gpointer data) noexcept -> gboolean {
        gboolean goesOn = G_SOURCE_REMOVE;
        GuardedCall([&] {
          const auto self = static_cast<TrashFollower*>(data)->shared_from_this();
          self->OnTick();
          goesOn = self->listener_ != nullptr ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
        });
        return goesOn;
      },
      this);
  PostToLoop([self = weak_from_this()] {
    if (const auto alive = self.lock()) alive->FindVolumes();
  });
}

void TrashFollower::End() {
  if (listener_ == nullptr) return;
  listener_ = nullptr;
  mounts_.reset();
  for (const VolumePlace& volume : volumes_) {
    *volume->IsWanted = false;
    for (Trash& trash : volume->Trashes) trash.Watches.clear();
  }
  if (timer_ != 0) g_source_remove(timer_);
  timer_ = 0;
}

void TrashFollower::Refresh() {
  isSettling_ = true;
  for (const VolumePlace& volume : volumes_) {
    volume->NeedsLook = true;
    for (Trash& trash : volume->Trashes) {
      trash.NeedsAll = true;
      trash.RestsUntil = {};
    }
  }
  PostToLoop([self = weak_from_this()] {
    if (const auto alive = self.lock()) alive->FindVolumes();
  });
}

bool TrashFollower::IsMeant(const std::string& path) const {
  return drive_.empty() || drives_.DriveOf(path) == drive_;
}

void TrashFollower::FindVolumes() {
  if (listener_ == nullptr) return;
  // The home folder's own comes first and has no top.
  std::vector<std::string> tops;
  if (!places_.HomeTrash.empty() && IsMeant(places_.HomeTrash)) tops.emplace_back();
  for (std::string& top : places_.Volumes()) {
    if (IsMeant(top)) tops.push_back(std::move(top));
  }
  TrashChanges changes;
  const std::size_t left = std::erase_if(volumes_, [&](const VolumePlace& volume) {
    if (std::ranges::count(tops, volume->Top) != 0) return false;
    *volume->IsWanted = false;
    for (Trash& trash : volume->Trashes) {
      trash.Table.Clear(changes);
      trash.Watches.clear();
    }
    return true;
  });
  // What was told by way of one that left may lie on others as well.
  for (const VolumePlace& volume : volumes_) volume->NeedsLook |= left > 0;
  for (const std::string& top : tops) {
    if (std::ranges::count(volumes_, top, [](const VolumePlace& each) { return each->Top; }) != 0)
      continue;
    auto volume = std::make_shared<Volume>();
    volume->Top = top;
    if (top.empty()) {
      volume->Trashes.emplace_back(TrashPath(places_.HomeTrash, places_.User), lastId_);
    } else {
      volume->Trashes.emplace_back(TrashPath::SharedOn(top, places_.User), lastId_);
      volume->Trashes.emplace_back(TrashPath::OwnOn(top, places_.User), lastId_);
    }
    volumes_.push_back(std::move(volume));
  }
  for (const VolumePlace& volume : volumes_) Work(volume);
  Tell(std::move(changes));
  Settle();
}

// Runs the call on a thread, and what that gives, which is a function too, on the loop.
template <typename Call>
bool TrashFollower::Begin(const VolumePlace& volume, Call call) {
  if ((*busy_)[volume->Top] > 0) return false;
  const auto done = [self = weak_from_this(), volume, busy = busy_] {
    --(*busy)[volume->Top];
    volume->IsWorking = false;
    const auto alive = self.lock();
    if (!alive || !*volume->IsWanted) return;
    alive->Hear(*volume);
    alive->Work(volume);
    alive->Settle();
  };
  try {
    std::thread([call = std::move(call), done] {
      GuardedCall(call);
      GuardedCall([&] { PostToLoop(done); });
    }).detach();
  } catch (const std::system_error&) {
    volume->Trouble = SystemError(EAGAIN);
    return false;
  }
  ++(*busy_)[volume->Top];
  volume->Heard = std::chrono::steady_clock::now();
  volume->IsWorking = true;
  return true;
}

void TrashFollower::Work(const VolumePlace& volume) {
  if (volume->IsWorking || listener_ == nullptr) return;
  volume->Trouble = {};
  const auto post = [self = weak_from_this(), volume](auto take) {
    PostToLoop([self, volume, take = std::move(take)]() mutable {
      const auto alive = self.lock();
      if (!alive || !*volume->IsWanted) return;
      alive->Hear(*volume);
      take(*alive);
    });
  };
  if (volume->NeedsLook) {
    std::vector<TrashPath> paths;
    for (const Trash& trash : volume->Trashes) paths.push_back(trash.Path);
    const bool begins = Begin(volume, [paths = std::move(paths), volume, post] {
      std::vector<TrashLook> looks;
      for (const TrashPath& path : paths) looks.push_back(LookAtTrash(path));
      post([volume, looks = std::move(looks)](TrashFollower& self) mutable {
        self.TakeLooks(*volume, std::move(looks));
        for (std::size_t at = 0; at < volume->Trashes.size(); ++at) self.StartWatches(volume, at);
      });
    });
    if (begins) volume->NeedsLook = false;
    return;
  }
  for (std::size_t at = 0; at < volume->Trashes.size(); ++at) {
    Trash& trash = volume->Trashes[at];
    if (!trash.IsRead || (!trash.NeedsAll && trash.Changed.empty())) continue;
    const Moment now = std::chrono::steady_clock::now();
    if (trash.NeedsAll && now < trash.RestsUntil) continue;
    const auto take = [volume, at, post](std::vector<TrashEntry> entries) {
      post([volume, at, entries = std::move(entries)](TrashFollower& self) mutable {
        TrashChanges changes;
        volume->Trashes[at].Table.Take(std::move(entries), changes);
        self.Tell(std::move(changes));
      });
      return volume->IsWanted->load();
    };
    const bool readsAll = trash.NeedsAll;
    const bool begins =
        Begin(volume, [volume, at, post, take, readsAll, path = trash.Path, names = trash.Changed] {
          base::Status status;
          const OpenTrash opened = OpenTrash::Of(path, status);
          if (!opened.Top) {
            post([volume](TrashFollower&) { volume->NeedsLook = true; });
            return;
          }
          TrashReader reader(path, opened);
          std::vector<TrashEntry> entries;
          for (const std::string& name : names) {
            if (!readsAll) entries.push_back(reader.Read(name));
          }
          if (!entries.empty()) take(std::move(entries));
          if (!readsAll) return;
          post([volume, at](TrashFollower&) { volume->Trashes[at].Table.BeginAll(); });
          status = reader.ReadAll(take);
          post([volume, at, status](TrashFollower& self) {
            Trash& done = volume->Trashes[at];
            done.Trouble = status;
            const Moment ended = std::chrono::steady_clock::now();
            done.RestsUntil = ended + restAfterAll * (ended - done.Begun);
            TrashChanges changes;
            if (status) done.Table.EndAll(changes);
            self.Tell(std::move(changes));
          });
        });
    if (!begins) return;
    trash.Begun = now;
    trash.NeedsAll = false;
    trash.Changed.clear();
    return;
  }
  for (std::size_t at = 0; at < volume->Trashes.size(); ++at) Measure(volume, at);
}

void TrashFollower::TakeLooks(Volume& volume, std::vector<TrashLook> looks) {
  TrashChanges changes;
  for (std::size_t at = 0; at < looks.size(); ++at) {
    Trash& trash = volume.Trashes[at];
    TrashLook& look = looks[at];
    trash.Trouble = look.Trouble;
    const bool wasRead = trash.IsRead;
    trash.IsRead = look.IsThere && !IsTwin(trash, look.Self);
    if (!trash.IsRead) {
      trash.Table.Clear(changes);
    } else if (!wasRead || look.Self != trash.Look.Self || look.Stamps != trash.Look.Stamps) {
      trash.NeedsAll = true;
    }
    trash.Look = std::move(look);
  }
  Tell(std::move(changes));
}

// A volume may be mounted at several places, of which one tells of its trash.
bool TrashFollower::IsTwin(const Trash& trash, const ItemIdentity& self) const {
  return std::ranges::any_of(volumes_, [&](const VolumePlace& volume) {
    return std::ranges::any_of(volume->Trashes, [&](const Trash& each) {
      return &each != &trash && each.IsRead && each.Look.Self == self;
    });
  });
}

void TrashFollower::StartWatches(const VolumePlace& volume, std::size_t index) {
  Trash& trash = volume->Trashes[index];
  if (listener_ == nullptr) return;
  std::vector<std::string> wanted;
  if (trash.Look.IsLocal) {
    for (const auto& [folder, names] : trash.Look.Ways) wanted.push_back(folder);
  }
  if (wanted == trash.Watched && trash.Watches.size() == wanted.size()) return;
  trash.Watches.clear();
  trash.Watched = wanted;
  const std::string notesFolder = trash.Path.NotesFolder();
  for (const std::string& folder : wanted) {
    auto changed = [self = weak_from_this(), weak = std::weak_ptr(volume), index, folder,
                    isNotes = folder == notesFolder,
                    names = trash.Look.Ways[folder]](const FolderChanges& changes) {
      const auto alive = self.lock();
      const auto place = weak.lock();
      if (!alive || !place) return;
      Trash& told = place->Trashes[index];
      if (changes.FolderGone) {
        // Another folder by the same path needs a watch of its own.
        told.Watched.clear();
        told.NeedsAll = place->NeedsLook = true;
      } else if (!names.empty()) {
        const auto matters = [&](const std::string& name) { return names.contains(name); };
        place->NeedsLook |= changes.Everything || std::ranges::any_of(changes.Names, matters);
      } else {
        told.NeedsAll |= changes.Everything;
        for (std::string name : changes.Names) {
          if (isNotes && !name.ends_with(NoteEnding)) continue;
          if (isNotes) name.resize(name.size() - NoteEnding.size());
          if (!name.empty()) told.Changed.insert(std::move(name));
        }
      }
      alive->Work(place);
    };
    if (auto watch = watches_.Start(folder, std::move(changed)))
      trash.Watches.push_back(std::move(watch));
  }
}

void TrashFollower::Measure(const VolumePlace& volume, std::size_t index) {
  Trash& trash = volume->Trashes[index];
  if (trash.IsMeasuring || !trash.IsRead) return;
  std::vector<TrashTable::Unmeasured> folders = trash.Table.TakeUnmeasured();
  if (folders.empty()) return;
  const auto post = [self = weak_from_this(), volume](auto take) {
    PostToLoop([self, volume, take = std::move(take)]() mutable {
      const auto alive = self.lock();
      if (alive && *volume->IsWanted) take(*alive);
    });
  };
  try {
    std::thread([volume, index, post, path = trash.Path, folders = std::move(folders)] {
      GuardedCall([&] {
        MeasureTrash(
            path, folders, [&] { return volume->IsWanted->load(); },
            [&](std::vector<TrashEntry> entries) {
              post([volume, index, entries = std::move(entries)](TrashFollower& self) mutable {
                TrashChanges changes;
                volume->Trashes[index].Table.Take(std::move(entries), changes);
                self.Tell(std::move(changes));
              });
            });
        post([volume, index](TrashFollower& self) {
          volume->Trashes[index].IsMeasuring = false;
          self.Measure(volume, index);
        });
      });
    }).detach();
    trash.IsMeasuring = true;
  } catch (const std::system_error&) {
    return;  // the sizes stay unknown
  }
}

void TrashFollower::Hear(Volume& volume) {
  volume.Heard = std::chrono::steady_clock::now();
  volume.IsSilent = false;
}

void TrashFollower::OnTick() {
  const Moment now = std::chrono::steady_clock::now();
  for (const VolumePlace& volume : volumes_) {
    if (volume->IsWorking || (*busy_)[volume->Top] > 0) {
      if (volume->Heard == Moment()) volume->Heard = now;
      volume->IsSilent = now - volume->Heard > patience;
      if (volume->IsWorking) continue;
    }
    const bool lacksNotices = std::ranges::any_of(volume->Trashes, [](const Trash& trash) {
      return trash.Watches.empty() || trash.Watches.size() != trash.Watched.size();
    });
    if (lacksNotices && now - volume->Heard > patience) volume->NeedsLook = true;
    Work(volume);
  }
  Settle();
}

bool TrashFollower::IsAtRest(const Volume& volume) const {
  const auto isRead = [](const Trash& trash) {
    return !trash.IsRead || (!trash.NeedsAll && trash.Changed.empty());
  };
  return volume.IsSilent || !volume.Trouble ||
         (!volume.IsWorking && !volume.NeedsLook && std::ranges::all_of(volume.Trashes, isRead));
}

void TrashFollower::Tell(TrashChanges changes) {
  if (listener_ != nullptr && !changes.Gone.empty()) listener_->OnGone(changes.Gone);
  if (listener_ != nullptr && !changes.Items.empty()) listener_->OnItems(std::move(changes.Items));
}

void TrashFollower::Settle() {
  std::vector<TrashTrouble> troubles;
  for (const VolumePlace& volume : volumes_) {
    const std::string& top = volume->Top.empty() ? places_.HomeTrash : volume->Top;
    if (volume->IsSilent) troubles.push_back({top, {ETIMEDOUT, "The volume does not answer"}});
    if (!volume->Trouble) troubles.push_back({top, volume->Trouble});
    for (const Trash& trash : volume->Trashes) {
      if (!trash.Trouble) troubles.push_back({trash.Path.Text(), trash.Trouble});
    }
  }
  const auto isSame = [](const TrashTrouble& one, const TrashTrouble& other) {
    return one.Trash == other.Trash && one.Reason.Code == other.Reason.Code;
  };
  if (!std::ranges::equal(troubles, troubles_, isSame)) {
    troubles_ = std::move(troubles);
    if (listener_ != nullptr) listener_->OnTroubles(std::vector(troubles_));
  }
  const bool isAtRest =
      std::ranges::all_of(volumes_, [this](const VolumePlace& each) { return IsAtRest(*each); });
  if (isSettling_ && isAtRest && listener_ != nullptr) {
    isSettling_ = false;
    listener_->OnSettled();
  }
}

}  // namespace tarnwell::platform
