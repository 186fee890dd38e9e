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
    "No item can be called so",
    "The name is too long",
    "Another item gets this name too",
    "Another item has this name",
    "The item is no longer there",
};

// Wishes by what they are called, or are to be called, in their folders.
using ByName = std::unordered_multimap<std::string, std::size_t>;

std::string KeyOf(const RenameWish& wish, const std::string& name, const base::PathSyntax& syntax) {
  return syntax.Key(syntax.Join(wish.Folder, name));
}

ByName Index(const std::vector<RenameWish>& wishes, std::string RenameWish::*name,
             const base::PathSyntax& syntax) {
  ByName index;
  index.reserve(wishes.size());
  for (std::size_t at = 0; at < wishes.size(); ++at) {
    index.emplace(KeyOf(wishes[at], wishes[at].*name, syntax), at);
  }
  return index;
}

RenameFault FaultOfText(const std::string& name, const base::PathSyntax& syntax) {
  if (name.empty()) return RenameFault::Empty;
  if (!syntax.IsName(name)) return RenameFault::NotAName;
  return name.size() > LongestName ? RenameFault::TooLong : RenameFault::None;
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
        holders_(Index(wishes, &RenameWish::Name, syntax)),
        isDone_(wishes.size()) {}

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
    const auto holder = holders_.find(KeyOf(wishes_[at], wishes_[at].NewName, syntax_));
    return holder == holders_.end() || holder->second == at ? None : holder->second;
  }

  void Add(const std::string& folder, const std::string& from, const std::string& to) {
    steps_.push_back({syntax_.Join(folder, from), syntax_.Join(folder, to)});
  }

  static constexpr std::size_t None = static_cast<std::size_t>(-1);

  const std::vector<RenameWish>& wishes_;
  const base::PathSyntax& syntax_;
  const FreeName& free_;
  const ByName holders_;
  std::vector<bool> isDone_;
  std::vector<platform::PlacedItem> steps_;
};

}  // namespace

std::vector<RenameFault> FaultsOf(const std::vector<RenameWish>& wishes,
                                  const base::PathSyntax& syntax, const IsNameTaken& isTaken) {
  const ByName wanted = Index(wishes, &RenameWish::NewName, syntax);
  const ByName held = Index(wishes, &RenameWish::Name, syntax);
  std::vector<RenameFault> faults;
  faults.reserve(wishes.size());
  for (const RenameWish& wish : wishes) {
    const bool stays = wish.NewName == wish.Name;
    RenameFault fault = stays ? RenameFault::None : FaultOfText(wish.NewName, syntax);
    if (fault == RenameFault::None) {
      const std::string key = KeyOf(wish, wish.NewName, syntax);
      if (wanted.count(key) > 1) {
        fault = RenameFault::SameAsNew;
      } else if (!stays && !held.contains(key) && isTaken(wish.Folder, wish.NewName)) {
        fault = RenameFault::Taken;
      }
    }
    faults.push_back(fault);
  }
  return faults;
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
