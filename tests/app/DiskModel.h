// A model of what commands, and undoing them, do to a disk: plain maps, and the rules said once
// more.
#pragma once

#include "Test.h"
#include "fileops/UndoHistory.h"
#include "platform/OperationUser.h"
#include "platform/linux/posix/TwinName.h"

namespace tarnwell::app {

using fileops::UndoWay;
using platform::CommandKind;
using platform::ConflictChoice;

class DiskModel {
 public:
  struct Thing {
    char Kind = 'd';  // 'd' folder, 'f' file, 'l' link
    std::string Content, Colour;
    int Id = 0;  // of the item itself, wherever it is moved to
  };
  struct Print {
    std::string Text;
    bool IsWhole = false;
    int Id = 0;
    bool operator==(const Print&) const = default;
  };
  struct Item {
    std::string From, To;
    Print Was;
  };
  struct Step {
    CommandKind Kind;
    std::vector<Item> Items;
    std::vector<lister::ColouredItem> Colours;
    int Parts = 1;  // steps of the program that it takes
  };

  std::map<std::string, Thing> Things;  // by path; what lies in the trash by "/trash/NUMBER"
  std::vector<Step> Steps[2];           // by UndoWay
  std::set<std::string> Bare;           // volumes without a trash
  bool LosesColours = false;            // these keep no colours either

  static bool IsWithin(const std::string& path, const std::string& top) {
    return path == top || path.starts_with(top + "/");
  }
  static std::string Above(const std::string& path) { return path.substr(0, path.rfind('/')); }
  bool Has(const std::string& path) const { return Things.contains(path); }
  bool IsFolder(const std::string& path) const { return Has(path) && Things.at(path).Kind == 'd'; }
  std::vector<std::string> Below(const std::string& top) const {
    std::vector<std::string> paths;
    for (auto at = Things.lower_bound(top); at != Things.end() && at->first.starts_with(top);
         ++at) {
      if (IsWithin(at->first, top)) paths.push_back(at->first);
    }
    return paths;
  }
  void Make(const std::string& path, char kind, const std::string& content = "") {
    Things[path] = {kind, content, "", ++last_};
  }
  void Erase(const std::string& top) {
    for (const std::string& path : Below(top)) Things.erase(path);
  }

  Print PrintOf(const std::string& top, bool isWhole) const {
    const Thing& self = Things.at(top);
    std::string text = std::to_string(self.Id) + self.Kind + self.Content;
    for (const std::string& path : Below(top)) {
      if (isWhole) text += path.substr(top.size()) + Things.at(path).Kind + Things.at(path).Content;
    }
    return {text, isWhole, self.Id};
  }
  // Puts the item there, as the answer to each question says. What comes of it is added to `done`.
  void Transfer(const std::string& from, std::string to, bool moves, ConflictChoice choice,
                std::vector<Item>& done) {
    if (IsWithin(to, from)) return;
    if (Has(to)) {
      const bool merges = IsFolder(from) && IsFolder(to);
      const bool replaces = choice == ConflictChoice::Replace && IsFolder(from) == IsFolder(to);
      if (!replaces && choice != ConflictChoice::KeepBoth) return;
      if (!replaces) {
        const std::string folder = Above(to) + "/";
        const std::string name = to.substr(folder.size());
        const auto parts = platform::SplitTwinName(name, IsFolder(from));
        for (unsigned number = parts.Number; Has(to);) to = folder + MakeTwinName(parts, ++number);
      } else if (merges) {
        for (const std::string& path : Below(from)) {
          if (Above(path) != from || !Has(path)) continue;
          Transfer(path, to + path.substr(from.size()), moves, choice, done);
        }
        if (moves && Below(from).size() == 1) Things.erase(from);
        return;
      } else {
        Place(from, to, moves);
        hasReplaced_ = true;
        return;
      }
    }
    Place(from, to, moves);
    done.push_back({from, to, PrintOf(to, !moves)});
  }
  std::string Trash(const std::string& path, std::vector<Item>& done) {
    const std::string place = "/trash/" + std::to_string(++last_);
    Place(path, place, true);
    done.push_back({path, place, PrintOf(place, false)});
    return place;
  }
  void Add(CommandKind kind, std::vector<Item> done, bool didMore = false) {
    didMore |= std::exchange(hasReplaced_, false);
    if (done.empty() && !didMore) return;
    Steps[1].clear();
    if (!done.empty()) Steps[0].push_back({kind, std::move(done), {}});
  }

  // Gives what came of it. `Parts` of the new step is left to the caller.
  std::vector<Item> TakeBack(UndoWay way, ConflictChoice choice) {
    std::vector<Step>& steps = Steps[static_cast<int>(way)];
    Step step = std::move(steps.back());
    steps.pop_back();
    Step after{step.Kind, {}, {}};
    for (const lister::ColouredItem& item : step.Colours) {
      if (!Has(item.Path) || Things[item.Path].Colour != item.After) continue;
      Things[item.Path].Colour = item.Before;
      after.Colours.push_back({item.Path, item.After, item.Before});
    }
    const bool isUndo = way == UndoWay::Undo;
    const bool isMade = step.Kind == CommandKind::Copy || step.Kind == CommandKind::Duplicate ||
                        step.Kind == CommandKind::NewFolder || step.Kind == CommandKind::Shortcut;
    const bool trashes =
        isUndo ? isMade || step.Kind == CommandKind::Restore : step.Kind == CommandKind::Trash;
    for (const Item& item : step.Items) {
      if (!Has(item.To) || PrintOf(item.To, item.Was.IsWhole) != item.Was) continue;
      const std::size_t before = after.Items.size();
      if (trashes) {
        if (!IsBare(item.To)) Trash(item.To, after.Items);
      } else if (MakeAbove(item)) {
        Transfer(item.To, item.From, true, choice, after.Items);
      }
      for (std::size_t at = before; at < after.Items.size(); ++at) {
        Item& done = after.Items[at];
        const bool isWhole = item.Was.IsWhole && done.From == item.To;
        done.Was = PrintOf(done.To, isWhole);
        if (done.From != item.To || (isUndo && isMade)) continue;
        Follow(steps, item.From, done);
      }
    }
    hasReplaced_ = false;
    std::vector<Item> done = after.Items;
    if (!done.empty() || !after.Colours.empty()) Steps[isUndo ? 1 : 0].push_back(std::move(after));
    return done;
  }

  bool IsBare(const std::string& path) const {
    return std::ranges::any_of(Bare, [&](const auto& top) { return IsWithin(path, top); });
  }

 private:
  // An item came back to another path than it had: what is still to be taken goes by that, back to
  // when it arrived there.
  static void Follow(std::vector<Step>& steps, const std::string& before, const Item& now) {
    bool hasArrived = false;
    for (auto step = steps.rbegin(); step != steps.rend() && !hasArrived; ++step) {
      for (Item& later : step->Items) {
        if (later.From != before && IsWithin(later.From, before))
          later.From.replace(0, before.size(), now.To);
        const bool isSelf = later.To == before;
        if (isSelf ? later.Was.Id != now.Was.Id : !IsWithin(later.To, before)) continue;
        later.To.replace(0, before.size(), now.To);
        hasArrived |= isSelf;
      }
    }
  }
  void Place(const std::string& from, const std::string& to, bool moves) {
    Erase(to);
    for (const std::string& path : Below(from)) {
      Thing& made = Things[to + path.substr(from.size())] = Things[path];
      if (!moves) made.Id = ++last_;
      if (LosesColours && IsBare(to)) made.Colour.clear();
    }
    if (moves) Erase(from);
  }
  // The folders that it was in are made anew where they have gone.
  bool MakeAbove(const Item& item) {
    if (IsWithin(item.From, item.To)) return false;
    std::vector<std::string> missing;
    for (std::string above = Above(item.From); !IsFolder(above); above = Above(above)) {
      if (Has(above)) return false;
      missing.push_back(above);
    }
    for (const std::string& path : missing) Make(path, 'd');
    return true;
  }

  int last_ = 0;
  bool hasReplaced_ = false;  // which cannot be taken back
};

}  // namespace tarnwell::app
