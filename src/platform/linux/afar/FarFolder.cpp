#include "platform/linux/afar/FarFolder.h"

#include <vector>

#include "base/PathSyntax.h"

namespace tarnwell::platform {
namespace {

// What is read of a folder, for another thread to take.
struct EntryBatch {
  struct Item {
    std::string Name;
    FolderEntry Entry;
  };
  std::vector<Item> Items;
};
constexpr std::size_t batchSize = 256;

struct EntryFlow {
  EntryBatch Ready;  // under the call's lock
  base::Status Status;
};

void Hand(FarCall& call, EntryFlow& flow, EntryBatch& batch) {
  {
    const std::lock_guard lock(call.Mutex);
    for (EntryBatch::Item& item : batch.Items) flow.Ready.Items.push_back(std::move(item));
  }
  call.Told.notify_all();
  batch.Items.clear();
}

base::Status AttributesOf(const FarCalls& calls, const std::optional<FarPlace>& place,
                          const std::shared_ptr<OpenedFolder>& folder, std::string_view name,
                          ItemAttributes& attributes, bool isGlance) {
  struct Answer {
    ItemAttributes Attributes;
    base::Status Status;
  };
  const auto answer = std::make_shared<Answer>();
  answer->Attributes = attributes;
  base::Status status = calls.RunAt(
      place,
      [answer, folder, own = std::string(name)] {
        answer->Status = folder->ReadAttributes(own, answer->Attributes);
      },
      isGlance);
  if (!status) return status;
  attributes = answer->Attributes;
  return answer->Status;
}

base::Status TextOfItem(const FarCalls& calls, const std::optional<FarPlace>& place,
                        const std::shared_ptr<OpenedFolder>& folder, std::string_view name,
                        ExtendedAttribute attribute, std::string& text, bool isGlance) {
  struct Answer {
    std::string Text;
    base::Status Status;
  };
  const auto answer = std::make_shared<Answer>();
  text.clear();
  base::Status status = calls.RunAt(
      place,
      [answer, folder, own = std::string(name), attribute] {
        answer->Status = folder->ReadExtendedAttribute(own, attribute, answer->Text);
      },
      isGlance);
  if (!status) return status;
  text = std::move(answer->Text);
  return answer->Status;
}

}  // namespace

// To close it may take as long as any call.
FarFolder::~FarFolder() {
  calls_.LetGo(std::move(folder_));
}

base::Status FarFolder::Read(const TakeEntry& take) {
  const auto flow = std::make_shared<EntryFlow>();
  base::Status status;
  const auto call = calls_.Begin(
      place_,
      [flow, folder = folder_](FarCall& its) {
        EntryBatch batch;
        flow->Status = folder->Read([&](const FolderEntry& entry) {
          batch.Items.push_back({std::string(entry.Name), entry});
          if (batch.Items.size() < batchSize) return true;
          Hand(its, *flow, batch);
          const std::lock_guard lock(its.Mutex);
          return !its.IsLeft;
        });
        Hand(its, *flow, batch);
      },
      status);
  if (!call) return status;
  for (;;) {
    status = calls_.Await(place_, *call, [&] { return !flow->Ready.Items.empty(); });
    if (!status) return status;
    EntryBatch batch;
    bool isDone = false;
    {
      const std::lock_guard lock(call->Mutex);
      std::swap(batch, flow->Ready);
      isDone = call->IsDone;
    }
    for (EntryBatch::Item& item : batch.Items) {
      item.Entry.Name = item.Name;
      item.Entry.Attributes = nullptr;
      if (take(item.Entry)) continue;
      calls_.Leave(place_, *call, false);
      return {};
    }
    if (isDone) return flow->Status;
  }
}

base::Status FarFolder::ReadAttributes(std::string_view name, ItemAttributes& attributes) const {
  return AttributesOf(calls_, place_, folder_, name, attributes, false);
}

base::Status FarFolder::ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                              std::string& text) const {
  return TextOfItem(calls_, place_, folder_, name, attribute, text, false);
}

NearFolder::NearFolder(std::shared_ptr<OpenedFolder> folder, FarCalls calls, std::string plain)
    : folder_(std::move(folder)), calls_(std::move(calls)), plain_(std::move(plain)) {
  const FarPlaces* const places = calls_.Places();
  if (places == nullptr) return;
  for (std::string& name : places->MountedIn(plain_)) suspects_.insert(std::move(name));
}

base::Status NearFolder::Read(const TakeEntry& take) {
  knowsAll_ = true;
  return folder_->Read([&](const FolderEntry& entry) {
    if (entry.IsLink || entry.Kind == ItemKind::Unknown) suspects_.emplace(entry.Name);
    return take(entry);
  });
}

std::optional<FarPlace> NearFolder::PlaceOf(std::string_view name) const {
  if (knowsAll_ && (suspects_.empty() || !suspects_.contains(std::string(name)))) return {};
  return calls_.PlaceOf(base::PathSyntax::Posix().Join(plain_, std::string(name)));
}

base::Status NearFolder::ReadAttributes(std::string_view name, ItemAttributes& attributes) const {
  const std::optional<FarPlace> place = PlaceOf(name);
  return place ? AttributesOf(calls_, place, folder_, name, attributes, true)
               : folder_->ReadAttributes(name, attributes);
}

// The items that lead to no far place; the others are looked at as they are named.
class NearFolder::Rest : public WantedAttributes {
 public:
  Rest(const NearFolder& folder, WantedAttributes& wanted) : folder_(folder), wanted_(wanted) {}

  std::size_t Count() const override { return wanted_.Count(); }
  bool Next(std::string_view& name, int& number) override {
    while (!isEnded_ && wanted_.Next(name, number)) {
      const std::optional<FarPlace> place = folder_.PlaceOf(name);
      if (!place) return true;
      ItemAttributes attributes;
      const base::Status status =
          AttributesOf(folder_.calls_, place, folder_.folder_, name, attributes, true);
      Take(number, status, attributes);
      GoesOn(false);
    }
    return false;
  }
  void Take(int number, const base::Status& status, const ItemAttributes& attributes) override {
    wanted_.Take(number, status, attributes);
  }
  bool GoesOn(bool isWaiting) override {
    isEnded_ = isEnded_ || !wanted_.GoesOn(isWaiting);
    return !isEnded_;
  }

 private:
  const NearFolder& folder_;
  WantedAttributes& wanted_;
  bool isEnded_ = false;
};

void NearFolder::ReadManyAttributes(WantedAttributes& wanted) const {
  Rest rest(*this, wanted);
  folder_->ReadManyAttributes(rest);
}

base::Status NearFolder::ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                               std::string& text) const {
  const std::optional<FarPlace> place = PlaceOf(name);
  return place ? TextOfItem(calls_, place, folder_, name, attribute, text, true)
               : folder_->ReadExtendedAttribute(name, attribute, text);
}

}  // namespace tarnwell::platform
