#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "fakes/FakePlatform.h"
#include "lister/NameOrder.h"

namespace tarnwell::lister {
namespace {

TEST(NameOrder, PutsNamesAsPeopleExpectThem) {
  // Each name stands before the next one.
  const std::vector<std::string> names = {
      "",
      "1",
      "2",
      "10",
      "10a",
      "a",
      "a 2",
      "A1",
      "a01",
      "a1b",
      "a2",
      "a10",
      "a99999999999999999999998",
      "a99999999999999999999999",
      "B",
      "b.txt",
      "File9",
      "file10",
      "\xC3\xA4",  // a letter beyond ASCII
      "\xFF",      // no UTF-8
  };
  auto sorted = names;
  std::shuffle(sorted.begin(), sorted.end(), std::mt19937(7));
  const fakes::FakeCollation collation;
  const NameOrder order(collation);
  std::sort(sorted.begin(), sorted.end(),
            [&](const auto& left, const auto& right) { return order.Before(left, right); });
  EXPECT_EQ(sorted, names);
}

}  // namespace
}  // namespace tarnwell::lister
