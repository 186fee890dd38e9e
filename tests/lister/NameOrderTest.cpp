#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "fakes/FakePlatform.h"
#include "lister/rows/NameOrder.h"

namespace tarnwell::lister {
namespace {

TEST(NameOrder, PutsNamesAsPeopleExpectThem) {
  // Each name stands before the next one.
  const std::vector<std::string> names = {
      "", "1", "2", "10", "10a", "a", "a 2", "A1", "a01", "a1b", "a2", "a10",
      // Longer than any number, and than what is told of a number at a time.
      "a99999999999999999999998", "a99999999999999999999999", "a" + std::string(249, '9'),
      "a" + std::string(250, '1'), "a" + std::string(500, '1'), "a" + std::string(500, '2'),
      // Letters beyond ASCII, then what is no UTF-8.
      "B", "b.txt", "File9", "file10", "\xC3\xA4", "\xC3\xA4x", "\x80", "\xC3", "\xFF"};
  auto sorted = names;
  std::shuffle(sorted.begin(), sorted.end(), std::mt19937(7));
  const fakes::FakeCollation collation;
  const NameOrder order(collation);
  std::sort(sorted.begin(), sorted.end(),
            [&](const auto& left, const auto& right) { return order.Before(left, right); });
  EXPECT_EQ(sorted, names);
  EXPECT_EQ(order.Compare("Read 007", "rEAD 7"), 0);
  EXPECT_EQ(order.Compare("0", "000"), 0);
}

}  // namespace
}  // namespace tarnwell::lister
