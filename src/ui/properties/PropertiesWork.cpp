#include "ui/properties/PropertiesWork.h"

namespace tarnwell::ui {
namespace {

using platform::CountedFiles;
using platform::FolderTotal;
using platform::ItemFacts;
using platform::ItemKind;
using platform::PermissionOutcome;

bool IsFolder(const ItemFacts& facts) {
  return facts.Kind == ItemKind::Folder && !facts.IsLink;
}

void AddMode(ItemsSummary& summary, const ItemFacts& facts) {
  if (!facts.WhyFixed.empty() && summary.WhyFixed.empty()) summary.WhyFixed = facts.WhyFixed;
  const bool counts = facts.WhyFixed.empty();
  if (!counts && summary.Changeable > 0) return;
  const bool isFirst = summary.Count == 0 || (counts && summary.Changeable == 0);
  summary.ModeOfAll = isFirst ? facts.Mode : summary.ModeOfAll & facts.Mode;
  summary.ModeOfAny = isFirst ? facts.Mode : summary.ModeOfAny | facts.Mode;
  if (!counts) return;
  ++summary.Changeable;
  if (IsFolder(facts)) ++summary.ChangeableFolders;
}

FolderTotal Sum(FolderTotal one, const FolderTotal& other) {
  one.Bytes += other.Bytes - other.RepeatedBytes;
  one.OnDisk += other.OnDisk - other.RepeatedOnDisk;
  one.Files += other.Files;
  one.Folders += other.Folders;
  one.Unreadable += other.Unreadable;
  if (one.Trouble) one.Trouble = other.Trouble;
  return one;
}

}  // namespace

void AddTo(ItemsSummary& summary, const ItemFacts& facts, CountedFiles& counted) {
  AddMode(summary, facts);
  if (summary.Count++ == 0) summary.First = facts;
  const ItemFacts& first = summary.First;
  summary.SameType = summary.SameType && facts.Type == first.Type && facts.IsLink == first.IsLink &&
                     facts.IsBroken == first.IsBroken;
  summary.SameTypeName = summary.SameTypeName && facts.TypeName == first.TypeName;
  summary.SameOwner = summary.SameOwner && facts.Owner == first.Owner;
  summary.SameGroup = summary.SameGroup && facts.Group == first.Group;
  if (IsFolder(facts)) {
    ++summary.Folders;
    return;
  }
  ++summary.Files;
  if (facts.IsLink || (facts.HardLinks > 1 && !counted.Add(facts.Identity))) return;
  summary.Bytes += facts.Size;
  summary.OnDisk += facts.SizeOnDisk;
}

FactsWork ReadFacts(const platform::FileSystem& files, const platform::ItemInspector& inspector,
                    const std::vector<std::string>& paths, bool counts) {
  return [&files, &inspector, &paths, counts](Worker<FactsReport>::Reporter& reporter) {
    ItemsSummary summary;
    CountedFiles counted;
    std::vector<std::string> folders;
    for (const std::string& path : paths) {
      if (!reporter.GoesOn()) return;
      ItemFacts facts;
      if (const base::Status status = inspector.ReadFacts(path, facts); !status) {
        summary.Unread.push_back({path, status});
        continue;
      }
      AddTo(summary, facts, counted);
      if (IsFolder(facts)) folders.push_back(path);
    }
    inspector.ReadVolume(paths.front(), summary.Volume);
    FolderTotal total;
    if (paths.size() > 1) {
      total.Bytes = summary.Bytes;
      total.OnDisk = summary.OnDisk;
      total.Files = summary.Files;
      total.Folders = summary.Folders;
    }
    reporter.Tell([&](FactsReport& report) {
      report.Summary = std::move(summary);
      report.Total = total;
      report.HasSummary = true;
      report.IsCounted = folders.empty();
    });
    if (!counts) return;
    for (const std::string& folder : folders) {
      FolderTotal own;
      own.Counted = &counted;
      const auto tell = [&](const FolderTotal& soFar) {
        reporter.Tell([&](FactsReport& report) { report.Total = Sum(total, soFar); });
        return reporter.GoesOn();
      };
      const base::Status status = files.MeasureFolder(folder, tell, own);
      if (!reporter.GoesOn()) return;
      if (!status) {
        ++own.Unreadable;
        own.Trouble = status;
      }
      total = Sum(total, own);
    }
    reporter.Tell([&](FactsReport& report) {
      report.Total = total;
      report.IsCounted = true;
    });
  };
}

ChangeWork ChangePermissions(const platform::ItemInspector& inspector,
                             const std::vector<std::string>& paths,
                             const platform::PermissionChange& change, bool inside) {
  return [&inspector, &paths, change, inside](Worker<PermissionOutcome>::Reporter& reporter) {
    PermissionOutcome outcome;
    const auto tell = [&](const PermissionOutcome& soFar) {
      reporter.Tell([&](PermissionOutcome& report) { report.Items = soFar.Items; });
      return reporter.GoesOn();
    };
    for (const std::string& path : paths) {
      if (!reporter.GoesOn()) break;
      ItemFacts facts;
      if (inspector.ReadFacts(path, facts) && !facts.WhyFixed.empty()) continue;
      inspector.SetPermissions(path, change, inside, tell, outcome);
    }
    reporter.Tell([&](PermissionOutcome& report) { report = std::move(outcome); });
  };
}

}  // namespace tarnwell::ui
