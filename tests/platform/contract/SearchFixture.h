// Searches of a folder, and what came of them.
#pragma once

#include "FolderServices.h"
#include "RunUntil.h"
#include "TempFolder.h"
#include "platform/pcre/PcreRegex.h"

namespace tarnwell::platform {

// What came of a search by its end; names with "/" between their parts.
struct SearchTold {
  std::multiset<std::string> Names;
  std::vector<SearchTrouble> Troubles;
  SearchUpdate Last;

  std::string Text() const {
    std::string text;
    for (const std::string& name : Names) text += name + " ";
    return text;
  }
};

inline std::function<std::unique_ptr<Regex>()> Regexes(const std::string& expression,
                                                       RegexOptions options = {}) {
  options.HasLines = true;
  return [expression, options] {
    RegexFault fault;
    return CompilePcre(expression, options, fault);
  };
}

inline SearchRequest NamesWith(const std::string& part) {
  SearchRequest request;
  request.MakeNameTest = [part] {
    return [part](std::string_view name, bool) { return name.find(part) != name.npos; };
  };
  return request;
}

class SearchFixture : public testing::Test {
 protected:
  SearchTold Search(SearchRequest request) {
    if (request.Folder.empty()) request.Folder = folder_.Path();
    SearchTold told;
    const auto search = search_.Start(std::move(request), [&](SearchUpdate update) {
      EXPECT_FALSE(told.Last.IsDone);
      for (FoundItem& item : update.Found) {
        std::ranges::replace(item.Name, base::PathSyntax::Native().Separator, '/');
        told.Names.insert(item.Name);
      }
      for (const SearchTrouble& trouble : update.Troubles) told.Troubles.push_back(trouble);
      told.Last = std::move(update);
    });
    EXPECT_TRUE(RunUntil([&] { return told.Last.IsDone; }));
    EXPECT_EQ(told.Last.Counts.Found, told.Names.size());
    return told;
  }
  std::string Names(SearchRequest request) { return Search(std::move(request)).Text(); }
  std::string WithContent(const std::string& content) {
    return Names({.Folder = {}, .Content = content});
  }

  const TempFolder folder_;
  TestedSearch search_;
};

}  // namespace tarnwell::platform
