// What each thread of a search does on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSearch.h"
#include "platform/search/SearchTally.h"
#include "platform/search/TextScan.h"

namespace tarnwell::platform {

// What looks into the files of the request; null where content does not matter. `test` may be null.
std::unique_ptr<TextScan> ScanFor(const SearchRequest& request, std::unique_ptr<Regex> test);

// Looks into files, and keeps what was found and what went wrong until it tells.
class SearchPart {
 protected:
  // Tally and request must outlive it.
  SearchPart(SearchTally& tally, const SearchRequest& request, SearchNameTest takesName,
             std::unique_ptr<TextScan> scan);
  ~SearchPart() = default;

  // Reads into the room, as many bytes at most; gives how many, 0 at the end, and -1 with the
  // reason where that fails.
  using ReadPiece =
      std::function<std::ptrdiff_t(char* room, std::size_t most, base::Status& reason)>;
  // A file of the folder at hand that is open, and has this many bytes.
  void LookInto(std::string_view name, std::uint64_t size, const ReadPiece& read);

  // Of an item of the folder at hand.
  std::string PathOf(std::string_view name) const;
  void Find(std::string_view name, ItemKind kind, bool isLink = false);
  void Note(std::string path, const base::Status& reason);
  void Tell() { tally_.Tell(share_, here_); }

  const SearchRequest& request_;
  const SearchNameTest takesName_;  // may be empty
  std::unique_ptr<TextScan> scan_;  // null where content does not matter
  std::string here_;                // path of the folder at hand
  SearchShare share_;

 private:
  ScanOutcome Scan(std::uint64_t size, const ReadPiece& read, base::Status& reason);

  SearchTally& tally_;
  const std::size_t nameStart_;  // in a full path
};

}  // namespace tarnwell::platform
