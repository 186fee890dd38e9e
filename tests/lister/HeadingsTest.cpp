#include <gtest/gtest.h>

#include <stdexcept>

#include "lister/rows/Headings.h"

namespace tarnwell::lister {
namespace {

TEST(Headings, HoldValuesToWhatAListCanShow) {
  Headings table(true);
  table.SetProperty(2, "WIDTH", std::int32_t{-5});
  EXPECT_EQ(std::get<std::int32_t>(table.Property(2, "width")), 300);
  table.SetProperty(2, "WIDTH", std::int32_t{2147483647});
  EXPECT_EQ(std::get<std::int32_t>(table.Property(2, "width")), 30000);
  table.SetProperty(0, "active", false);
  EXPECT_TRUE(table[HeadingId::Name].Active);
  table.SetProperty(2, "active", std::string("False"));
  EXPECT_FALSE(table.IsActive("Size"));
  table.SetProperty(1, "key", std::string("sName"));
  EXPECT_EQ(table[HeadingId::Extension].Key, "sExtension");
  table.SetProperty(1, "Caption", std::string("Ext"));
  EXPECT_EQ(std::get<std::string>(table.Property(1, "Caption")), "Ext");

  EXPECT_THROW(table.SetProperty(2, "Width", std::string("wide")), base::ConversionError);
  EXPECT_THROW(table.SetProperty(2, "Colour", std::int32_t{1}), std::out_of_range);
  EXPECT_THROW(table.SetProperty(HeadingCount, "Width", std::int32_t{1}), std::out_of_range);
  EXPECT_THROW(table.Property(-1, "Width"), std::out_of_range);
}

TEST(Headings, EveryPlaceHasOneHeading) {
  Headings table(true);
  table.SetProperty(0, "Index", std::int32_t{2});
  EXPECT_EQ(table[HeadingId::Size].Index, 0);
  EXPECT_EQ(table.Order()[2], HeadingId::Name);
  table.SetProperty(0, "Index", std::int32_t{11});
  table.SetProperty(0, "Index", std::int32_t{-1});
  EXPECT_EQ(table[HeadingId::Name].Index, 2);

  // A whole order comes back heading by heading, as settings hand it in.
  for (int number = 0; number < HeadingCount; ++number) {
    table.SetProperty(number, "Index", std::int32_t{HeadingCount - 1 - number});
  }
  for (int place = 0; place < HeadingCount; ++place) {
    EXPECT_EQ(static_cast<int>(table.Order()[static_cast<std::size_t>(place)]),
              HeadingCount - 1 - place);
  }
}

}  // namespace
}  // namespace tarnwell::lister
