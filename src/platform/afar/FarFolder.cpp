#include "platform/afar/FarFolder.h"

#include <cerrno>

#include "base/PathSyntax.h"
#include "platform/afar/EntryFlow.h"

namespace tarnwell::platform {
namespace {

// So many items are read before another thread is asked to read on: it pays for more alone.
constexpr int readHere = 2048;

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
  return ReadBeside(calls_, place_, folder_, take);
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
  leadsAway_ = places != nullptr && places->Any();
  knowsAll_ = !leadsAway_;
  if (!leadsAway_) return;
  for (std::string& name : places->MountedIn(plain_)) suspects_.insert(std::move(name));
}

base::Status NearFolder::Read(const TakeEntry& take) {
  knowsAll_ = true;
  int left = readHere;
  bool goesOn = true;
  const auto takeOne = [&](const FolderEntry& entry) {
    if (leadsAway_ && (entry.IsLink || entry.Kind == ItemKind::Unknown)) {
      suspects_.emplace(entry.Name);
    }
    goesOn = take(entry);
    return goesOn;
  };
  base::Status status =
      folder_->Read([&](const FolderEntry& entry) { return takeOne(entry) && --left > 0; });
  if (!status || !goesOn || left > 0) return status;
  status = ReadBeside(calls_, {.Key = plain_, .Name = plain_}, folder_, takeOne);
  return status.Code == EAGAIN ? folder_->Read(takeOne) : status;  // there can be no more threads
}

std::optional<FarPlace> NearFolder::PlaceOf(std::string_view name) const {
  if (knowsAll_ && (suspects_.empty() || !suspects_.contains(std::string(name)))) return {};
  return calls_.PlaceOf(base::PathSyntax::Native().Join(plain_, std::string(name)));
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
