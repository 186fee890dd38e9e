#include "platform/search/SearchPart.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/PathSyntax.h"

namespace tarnwell::platform {
namespace {

// Files that tell no size, of the system's own kind, may have no end.
constexpr std::uint64_t mostOfNoSize = std::uint64_t{64} << 20;

}  // namespace

std::unique_ptr<TextScan> ScanFor(const SearchRequest& request, std::unique_ptr<Regex> test) {
  if (test) return std::make_unique<TextScan>(std::move(test), request.LooksIntoBinary);
  if (request.Content.empty()) return {};
  return std::make_unique<TextScan>(request.Content, request.LooksIntoBinary);
}

SearchPart::SearchPart(SearchTally& tally, const SearchRequest& request, SearchNameTest takesName,
                       std::unique_ptr<TextScan> scan)
    : request_(request),
      takesName_(std::move(takesName)),
      scan_(std::move(scan)),
      tally_(tally),
      nameStart_(base::PathSyntax::Native().AddSeparator(request.Folder).size()) {}

void SearchPart::LookInto(std::string_view name, std::uint64_t size, const ReadPiece& read) {
  if (size > request_.LargestFile) {
    ++share_.Counts.TooLarge;
    return;
  }
  ++share_.Counts.LookedInto;
  base::Status reason;
  switch (Scan(size, read, reason)) {
    case ScanOutcome::Found:
      Find(name, ItemKind::File);
      break;
    case ScanOutcome::Binary:
      ++share_.Counts.Binary;
      break;
    case ScanOutcome::TooMuch:
      Note(PathOf(name), {EOVERFLOW, "The expression tries too many ways on this text"});
      break;
    case ScanOutcome::GoesOn:
      if (tally_.IsWanted()) Note(PathOf(name), reason);
      break;
    case ScanOutcome::None:
      break;
  }
}

// As far as the file went when it was opened: one that grows all the time has an end, too. GoesOn
// where it cannot be read.
ScanOutcome SearchPart::Scan(std::uint64_t size, const ReadPiece& read, base::Status& reason) {
  scan_->Begin();
  const std::uint64_t most = size > 0 ? size : std::min(mostOfNoSize, request_.LargestFile);
  std::uint64_t done = 0;
  std::size_t filled = 0;  // of the piece
  while (tally_.IsWanted()) {
    const std::ptrdiff_t got = read(scan_->Room() + filled, TextScan::PieceSize - filled, reason);
    if (got < 0) break;
    done += static_cast<std::uint64_t>(got);
    filled += static_cast<std::size_t>(got);
    share_.Counts.Bytes += static_cast<std::uint64_t>(got);
    const bool isLast = got == 0 || done >= most;
    // Some file systems give little at a time, and the first piece is to tell what the file is.
    if (!isLast && filled < TextScan::PieceSize) continue;
    const ScanOutcome outcome = scan_->Take(std::exchange(filled, 0), isLast);
    if (outcome != ScanOutcome::GoesOn) return outcome;
  }
  return ScanOutcome::GoesOn;
}

std::string SearchPart::PathOf(std::string_view name) const {
  return base::PathSyntax::Native().Join(here_, name);
}

void SearchPart::Find(std::string_view name, ItemKind kind, bool isLink) {
  ++share_.Counts.Found;
  share_.Found.push_back(
      {PathOf(name).substr(nameStart_), isLink ? ItemKind::Unknown : kind, isLink});
}

void SearchPart::Note(std::string path, const base::Status& reason) {
  ++share_.Counts.Troubles;
  if (share_.Troubles.size() < MostSearchTroubles) {
    share_.Troubles.push_back({std::move(path), reason});
  }
}

}  // namespace tarnwell::platform
