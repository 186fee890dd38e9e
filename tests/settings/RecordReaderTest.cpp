#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/RecordReader.h"

namespace tarnwell::settings {
namespace {

using base::Value;

const Value nothing;

Value Text(const char* text) {
  return std::string(text);
}

std::vector<SettingRecord> ReadAll(std::string_view content) {
  RecordReader reader(content);
  std::vector<SettingRecord> records;
  for (SettingRecord record; reader.Read(record);) records.push_back(record);
  return records;
}

void ExpectRecord(std::string_view content, const std::string& key,
                  const std::array<Value, 5>& fields) {
  const std::vector<SettingRecord> records = ReadAll(content);
  ASSERT_EQ(records.size(), 1u) << content;
  EXPECT_EQ(records[0].Key, key) << content;
  for (std::size_t index = 0; index < fields.size(); ++index) {
    EXPECT_EQ(records[0].Fields[index], fields[index]) << content << " F" << index + 1;
  }
}

TEST(RecordReaderTest, TellsTypesByTheirForm) {
  ExpectRecord("\"Heading\",100,3,\"Width\",#TRUE#,#false#\r\n", "Heading",
               {100.0, 3.0, Text("Width"), true, false});
  ExpectRecord("PercentWidth,.5,-.25,1.5E+07,+4100,5.\r\n", "PercentWidth",
               {.5, -.25, 1.5e7, 4100.0, 5.0});
  ExpectRecord("k,,\"\",\"1\",\"#TRUE#\",nan\n", "k",
               {nothing, Text(""), Text("1"), Text("#TRUE#"), Text("nan")});
  ExpectRecord("k,1e,+-1,12 apples,#TRUE,1E+999\n", "k",
               {Text("1e"), Text("+-1"), Text("12 apples"), Text("#TRUE"), Text("1E+999")});
  ExpectRecord("7,-7,0,1e-05,0001,.\n", "7", {-7.0, 0.0, 1e-5, 1.0, Text(".")});
}

TEST(RecordReaderTest, BlanksAndQuotesBoundFields) {
  ExpectRecord(" \"a\" ,\t 1 , b c , \" d \" ,  ,x\"y\r\n", "a",
               {1.0, Text("b c"), Text(" d "), nothing, Text("x\"y")});
  // What follows a closing quote is a field of its own.
  ExpectRecord("\"a\"b,\"c\"\"d\" 2,", "a", {Text("b"), Text("c"), Text("d"), 2.0, nothing});
  // A quote left open ends with its line, and keeps the commas.
  ExpectRecord("\"Skin\",\"ROXY,0,0\r\n1,2,3", "Skin", {Text("ROXY,0,0"), 1.0, 2.0, 3.0, nothing});
}

TEST(RecordReaderTest, LineEndsAreDelimitersLikeCommas) {
  for (const char* end : {"\r\n", "\n", "\r"}) {
    const std::string content =
        std::string("a,1,2,3,4,5") + end + "b,1" + end + "c,2,3" + end + end + "d,6,7,8,9,10" + end;
    const std::vector<SettingRecord> records = ReadAll(content);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[1].Key, "b");  // goes on into the lines behind it
    EXPECT_EQ(records[1].Fields, (std::array<Value, 5>{1.0, Text("c"), 2.0, 3.0, nothing}));
    EXPECT_EQ(records[2].Key, "d");
    EXPECT_EQ(records[2].Fields[4], Value(10.0));
  }
}

TEST(RecordReaderTest, TheEndLeavesFieldsEmpty) {
  EXPECT_TRUE(ReadAll("").empty());
  ExpectRecord("\"Sho", "Sho", {});
  ExpectRecord("\n", "", {});
  ExpectRecord("a,1,", "a", {1.0});
  EXPECT_EQ(ReadAll("a,1,2,3,4,5").size(), 1u);
  EXPECT_EQ(ReadAll("a,1,2,3,4,5\r\n").size(), 1u);
  EXPECT_EQ(ReadAll("a,1,2,3,4,5\r\n ").size(), 2u);
}

}  // namespace
}  // namespace tarnwell::settings
