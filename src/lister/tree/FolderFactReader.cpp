#include "lister/tree/FolderFactReader.h"

#include <string_view>
#include <utility>

namespace tarnwell::lister {
namespace {

// The facts that a heading shows and sorts by; sizes are measured when the user asks for it.
constexpr std::uint8_t FactsOfHeading(HeadingId heading) {
  switch (heading) {
    case HeadingId::DateLastModified:
    case HeadingId::DateCreated:
    case HeadingId::DateLastAccessed:
    case HeadingId::Attributes:
    case HeadingId::Permissions:
      return AttributeFacts;
    case HeadingId::Comments:
      return CommentFact;
    default:
      return NoFacts;
  }
}

}  // namespace

bool FolderFactReader::ShowsColours(RowId branch) const {
  const ListSettings& settings = folders_.List.Settings;
  return settings.ShowColour &&
         static_cast<std::int64_t>(tree_.Node(branch).Children.size()) <= settings.FileCountMax;
}

std::uint8_t FolderFactReader::Wanted() const {
  const ListState& list = folders_.List;
  std::uint8_t wanted = FactsOfHeading(list.Keys.Entries()[0].Heading);
  for (const HeadingId heading : list.Table.Order()) {
    if (list.Table[heading].Active) wanted |= FactsOfHeading(heading);
  }
  if (list.Settings.ShowColour) wanted |= ColourFact;
  return wanted;
}

void FolderFactReader::Run() {
  again_ = true;
  if (running_ || folders_.List.IsTerminated || !tree_.Has(FolderTree::TopRow)) return;
  running_ = true;
  HeedCancel();
  Pacer pace(folders_.List.Services.Clock, folders_.List.Services.Pump);
  stopped_ = false;
  const platform::WaitScope waits(folders_.List.Services.Pump, [&](const std::string&) {
    stopped_ = stopped_ || Pump(pace) == Outcome::Stopped;
    return !stopped_ && !again_;
  });
  while (again_) {
    again_ = false;
    const std::uint8_t wanted = Wanted();
    if (wanted == NoFacts || FillAll(wanted, pace) == Outcome::Stopped) break;
  }
  running_ = false;
}

FolderFactReader::Outcome FolderFactReader::FillAll(std::uint8_t wanted, Pacer& pace) {
  std::vector<RowId> branches = tree_.BranchesOnShow();
  branches.insert(branches.begin(), RootRow);
  for (const RowId branch : branches) {
    std::uint8_t here = wanted;
    if (!ShowsColours(branch)) here &= static_cast<std::uint8_t>(~ColourFact);
    const Outcome outcome = Fill(branch, here, pace);
    if (outcome != Outcome::Done) return outcome;
  }
  return Outcome::Done;
}

FolderFactReader::Outcome FolderFactReader::Fill(RowId branch, std::uint8_t wanted, Pacer& pace) {
  std::unique_ptr<platform::OpenedFolder> opened;
  bool any = false;
  int first = 0, last = -1;  // what has changed since the view was told
  const auto tell = [&] {
    if (first <= last) folders_.View().CellsChanged(branch, first, last);
    last = -1;
  };
  const int count = static_cast<int>(tree_.Node(branch).Children.size());
  for (int position = 0; position < count; ++position) {
    const RowId row = tree_.Node(branch).Children[static_cast<std::size_t>(position)];
    const auto missing = static_cast<std::uint8_t>(wanted & ~tree_.Node(row).Tried);
    if (missing == NoFacts) continue;
    if (pace.IsDue()) {
      tell();
      const Outcome outcome = Pump(pace);
      if (outcome != Outcome::Done) return outcome;
    }
    if (!std::exchange(any, true)) opened = Open(branch);
    const bool isOther = !stopped_ && !again_ && FillRow(row, missing, opened.get());
    // Where another machine was waited for, the branch may not be what it was.
    if (stopped_ || again_) {
      folders_.View().Repaint();
      return stopped_ ? Outcome::Stopped : Outcome::Changed;
    }
    if (!isOther) continue;
    if (last < 0) first = position;
    last = position;
  }
  tell();
  const HeadingId sorted = folders_.List.Keys.Entries()[0].Heading;
  if (any && (FactsOfHeading(sorted) & wanted) != 0) tree_.SortBranch(branch, folders_.View());
  return Outcome::Done;
}

std::unique_ptr<platform::OpenedFolder> FolderFactReader::Open(RowId branch) const {
  const base::PathSyntax& syntax = folders_.List.Syntax;
  const std::string& top = tree_.Node(FolderTree::TopRow).Name;
  const std::string folder = branch == RootRow ? syntax.ParentOf(top) : tree_.PathOf(branch);
  if (branch == RootRow && syntax.Same(folder, top)) return nullptr;
  base::Status status;
  return folders_.List.Services.Files.OpenFolder(folder, status);
}

bool FolderFactReader::FillRow(RowId row, std::uint8_t wanted,
                               const platform::OpenedFolder* opened) {
  const std::string_view name = folders_.List.Syntax.LastComponent(tree_.Node(row).Name);
  FolderFacts facts = tree_.FactsOf(row);
  if ((wanted & AttributeFacts) != 0) {
    platform::ItemAttributes attributes;
    facts.HasAttributes =
        static_cast<bool>(opened != nullptr ? opened->ReadAttributes(name, attributes)
                                            : folders_.List.Services.Files.ReadAttributes(
                                                  tree_.PathOf(row), "", attributes));
    if (!facts.HasAttributes) attributes = {};
    facts.Modified = attributes.Modified;
    facts.Created = attributes.Created;
    facts.Accessed = attributes.Accessed;
    facts.Mode = attributes.Mode;
  }
  const auto note = [&](platform::ExtendedAttribute kind) {
    std::string text;
    if (opened == nullptr || !opened->ReadExtendedAttribute(name, kind, text)) text.clear();
    return text;
  };
  if ((wanted & ColourFact) != 0)
    facts.Colour = ColourOfWord(note(platform::ExtendedAttribute::Colour));
  if ((wanted & CommentFact) != 0) facts.Comment = note(platform::ExtendedAttribute::Comment);
  return tree_.Has(row) && tree_.SetFacts(row, wanted, facts);
}

FolderFactReader::Outcome FolderFactReader::Pump(Pacer& pace) {
  pace.Pump();
  if (HeedCancel() || folders_.List.IsTerminated) return Outcome::Stopped;
  return again_ ? Outcome::Changed : Outcome::Done;
}

// Others may be at work further out: they learn of Escape too.
bool FolderFactReader::HeedCancel() {
  sizes_.HeedCancel();
  return std::exchange(folders_.List.Fields.CancelRequested, false);
}

}  // namespace tarnwell::lister
