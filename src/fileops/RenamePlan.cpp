#include "fileops/RenamePlan.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <unordered_map>

#include "base/Text.h"
#include "fileops/NamePattern.h"

namespace tarnwell::fileops {
namespace {

constexpr std::array<std::string_view, 7> FaultTexts{
    "",
    "The name is empty",
    "It is no name",
    "The name is too long",
    "Another item gets this name too",
    "Another item has this name",
    "The item is no longer there",
};

RenameFault FaultOfText(const RenameWish& wish, const base::PathSyntax& syntax) {
  const std::string& name = wish.NewName;
  if (name.empty()) return RenameFault::Empty;
  if (!syntax.IsName(name)) return RenameFault::NotAName;
  const bool isLong =
      name.size() > LongestName && (!wish.IgnoresCase || base::CodePointCount(name) > LongestName);
  return isLong ? RenameFault::TooLong : RenameFault::None;
}

// The deepest folders first; within one the order that was asked for.
std::vector<std::size_t> DeepestFirst(const std::vector<RenameWish>& wishes, char separator) {
  std::vector<std::size_t> order(wishes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto depth = [&](std::size_t at) {
    return std::ranges::count(wishes[at].Folder, separator) -
           (wishes[at].Folder.ends_with(separator) ? 1 : 0);
  };
  std::ranges::stable_sort(order, std::ranges::greater(), depth);
  return order;
}

// Walks from each wish to the one that holds its name, so that the last of a chain goes first.
class StepMaker {
 public:
  StepMaker(const std::vector<RenameWish>& wishes, const base::PathSyntax& syntax,
            const FreeName& free)
      : wishes_(wishes),
        syntax_(syntax),
        free_(free),
        holders_(wishes, &RenameWish::Name, syntax),
        isDone_(wishes.size()) {
    for (std::size_t at = 0; at < wishes.size(); ++at) holders_.Add(at);
  }

  std::vector<platform::PlacedItem> Make() {
    for (const std::size_t at : DeepestFirst(wishes_, syntax_.Separator)) Follow(at);
    return std::move(steps_);
  }

 private:
  void Follow(std::size_t start) {
    std::vector<std::size_t> chain;
    std::size_t at = start;
    while (at != None && !isDone_[at] && wishes_[at].NewName != wishes_[at].Name) {
      isDone_[at] = true;
      chain.push_back(at);
      at = HolderOf(at);
    }
    if (chain.empty()) return;
    // Back at the start: it steps aside, and takes its name when that is free.
    const bool isCircle = at == start && chain.size() > 1;
    const RenameWish& first = wishes_[start];
    std::string aside = isCircle ? free_(first) : std::string();
    if (isCircle) Add(first.Folder, first.Name, aside);
    for (std::size_t back = chain.size(); back > 0; --back) {
      const RenameWish& wish = wishes_[chain[back - 1]];
      Add(wish.Folder, isCircle && back == 1 ? aside : wish.Name, wish.NewName);
    }
  }

  // Who is called as this one is to be; None for nobody, and for the item itself.
  std::size_t HolderOf(std::size_t at) const {
    const std::size_t holder = holders_.FirstOf(wishes_[at], wishes_[at].NewName);
    return holder == at ? None : holder;
  }

  void Add(const std::string& folder, const std::string& from, const std::string& to) {
    steps_.push_back({syntax_.Join(folder, from), syntax_.Join(folder, to)});
  }

  static constexpr std::size_t None = WishIndex::None;

  const std::vector<RenameWish>& wishes_;
  const base::PathSyntax& syntax_;
  const FreeName& free_;
  WishIndex holders_;
  std::vector<bool> isDone_;
  std::vector<platform::PlacedItem> steps_;
};

}  // namespace

std::string NameKey(std::string_view name, bool ignoresCase, const base::PathSyntax& syntax) {
  return ignoresCase ? base::PathSyntax::Windows().Key(name) : syntax.Key(name);
}

WishIndex::WishIndex(const std::vector<RenameWish>& wishes, std::string RenameWish::*name,
                     const base::PathSyntax& syntax)
    : wishes_(wishes), name_(name), syntax_(syntax) {
  places_.reserve(wishes.size());
}

std::size_t WishIndex::HashKey::operator()(const Key& key) const {
  constexpr std::hash<std::string_view> hash;
  constexpr std::size_t odd = 31;
  return hash(key.Folder) * odd + hash(key.Name);
}

// It looks into the name, or into `folded` where the name is not compared as it is.
WishIndex::Key WishIndex::KeyOf(const RenameWish& wish, const std::string& name,
                                std::string& folded) const {
  if (syntax_.CaseSensitive && !wish.IgnoresCase) return {wish.Folder, name};
  folded = NameKey(name, wish.IgnoresCase, syntax_);
  return {wish.Folder, folded};
}

void WishIndex::Add(std::size_t wish) {
  std::string folded;
  Key key = KeyOf(wishes_[wish], wishes_[wish].*name_, folded);
  if (!folded.empty()) key.Name = folded_.emplace_back(std::move(folded));
  ++places_.try_emplace(key, Place{wish}).first->second.Count;
}

const WishIndex::Place* WishIndex::Find(const RenameWish& wish, const std::string& name) const {
  std::string folded;
  const auto found = places_.find(KeyOf(wish, name, folded));
  return found == places_.end() ? nullptr : &found->second;
}

std::size_t WishIndex::CountOf(const RenameWish& wish, const std::string& name) const {
  const Place* const place = Find(wish, name);
  return place == nullptr ? 0 : place->Count;
}

std::size_t WishIndex::FirstOf(const RenameWish& wish, const std::string& name) const {
  const Place* const place = Find(wish, name);
  return place == nullptr ? None : place->First;
}

FaultFinder::FaultFinder(const std::vector<RenameWish>& wishes, const base::PathSyntax& syntax,
                         IsNameTaken isTaken)
    : wishes_(wishes),
      syntax_(syntax),
      isTaken_(std::move(isTaken)),
      wanted_(wishes, &RenameWish::NewName, syntax),
      held_(wishes, &RenameWish::Name, syntax),
      faults_(wishes.size()) {}

bool FaultFinder::GoOn(const GoesOn& goesOn) {
  for (; indexed_ < wishes_.size(); ++indexed_) {
    if (!goesOn()) return false;
    held_.Add(indexed_);
    if (IsMoving(indexed_)) wanted_.Add(indexed_);
  }
  for (; judged_ < wishes_.size(); ++judged_) {
    if (!goesOn()) return false;
    if (IsMoving(judged_)) faults_[judged_] = FaultOf(wishes_[judged_]);
  }
  return true;
}

RenameFault FaultFinder::FaultOf(const RenameWish& wish) const {
  const RenameFault fault = FaultOfText(wish, syntax_);
  if (fault != RenameFault::None) return fault;
  if (wanted_.CountOf(wish, wish.NewName) > 1) return RenameFault::SameAsNew;
  if (!isTaken_(wish.Folder, wish.NewName)) return RenameFault::None;
  const std::size_t holder = held_.FirstOf(wish, wish.NewName);
  const bool isLeft = holder != WishIndex::None && IsMoving(holder);
  return isLeft ? RenameFault::None : RenameFault::Taken;
}

std::vector<RenameFault> FaultsOf(const std::vector<RenameWish>& wishes,
                                  const base::PathSyntax& syntax, const IsNameTaken& isTaken) {
  FaultFinder finder(wishes, syntax, isTaken);
  finder.GoOn([] { return true; });
  return finder.Take();
}

std::string_view TextOf(RenameFault fault) {
  return FaultTexts.at(static_cast<std::size_t>(fault));
}

std::vector<platform::PlacedItem> StepsOf(const std::vector<RenameWish>& wishes,
                                          const base::PathSyntax& syntax, const FreeName& free) {
  return StepMaker(wishes, syntax, free).Make();
}

std::string NameBetween(const RenameWish& wish,
                        const std::function<bool(const std::string& name)>& isFree) {
  const std::size_t dot = ExtensionStart(wish.Name, false);
  std::string_view stem = std::string_view(wish.Name).substr(0, dot);
  std::string_view extension = std::string_view(wish.Name).substr(dot);
  for (std::size_t number = 1;; ++number) {
    std::string tail =
        " (being renamed" + (number > 1 ? " " + std::to_string(number) : std::string()) + ")";
    if (extension.size() + tail.size() < LongestName) tail += extension;
    while (stem.size() + tail.size() > LongestName) {
      stem = base::FirstCodePoints(stem, base::CodePointCount(stem) - 1);
    }
    std::string name = std::string(stem) + tail;
    if (isFree(name)) return name;
  }
}

}  // namespace tarnwell::fileops
