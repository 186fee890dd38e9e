#include <locale>

#include "Test.h"
#include "fuzz/RecordProperties.h"

namespace tarnwell::settings {
namespace {

using base::Value;
using Fields = std::array<Value, 5>;

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

void ExpectRecord(std::string_view content, const std::string& key, const Fields& fields) {
  const std::vector<SettingRecord> records = ReadAll(content);
  ASSERT_EQ(records.size(), 1u) << content;
  EXPECT_EQ(records[0].Key, key) << content;
  for (std::size_t index = 0; index < fields.size(); ++index) {
    EXPECT_EQ(records[0].Fields[index], fields[index]) << content << " F" << index + 1;
  }
}

std::string Line(const SettingRecord& record) {
  std::string line;
  EXPECT_TRUE(AppendRecord(line, record));
  return line;
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

TEST(RecordReaderTest, BlanksQuotesAndTheEndBoundFields) {
  ExpectRecord(" \"a\" ,\t 1 , b c , \" d \" ,  ,x\"y\r\n", "a",
               {1.0, Text("b c"), Text(" d "), nothing, Text("x\"y")});
  // What follows a closing quote is a field of its own.
  ExpectRecord("\"a\"b,\"c\"\"d\" 2,", "a", {Text("b"), Text("c"), Text("d"), 2.0, nothing});
  // A quote left open ends with its line, and keeps the commas.
  ExpectRecord("\"Skin\",\"ROXY,0,0\r\n1,2,3", "Skin", {Text("ROXY,0,0"), 1.0, 2.0, 3.0, nothing});
  ExpectRecord("\"Sho", "Sho", {});
  ExpectRecord("\n", "", {});
  EXPECT_EQ(ReadAll("a,1,2,3,4,5\r\n").size(), 1u);
  EXPECT_EQ(ReadAll("a,1,2,3,4,5\r\n ").size(), 2u);
}

TEST(RecordReaderTest, LineEndsAreDelimitersLikeCommas) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    const std::vector<SettingRecord> records =
        ReadAll("a,1,2,3,4,5" + end + "b,1" + end + "c,2,3" + end + end + "d,6,7,8,9,10" + end);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[1].Key, "b");  // goes on into the lines behind it
    EXPECT_EQ(records[1].Fields, (Fields{1.0, Text("c"), 2.0, 3.0, nothing}));
    EXPECT_EQ(records[2].Key, "d");
    EXPECT_EQ(records[2].Fields[4], Value(10.0));
  }
}

struct CommaForPoint : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST(RecordWriterTest, SpellsValuesWhateverTheLocale) {
  const std::locale before = std::locale::global({std::locale::classic(), new CommaForPoint});
  EXPECT_EQ(Line({"k", {true, false, -2147483647 - 1, std::string(), std::string("a,b")}}),
            "\"k\",#TRUE#,#FALSE#,-2147483648,\"\",\"a,b\"\r\n");
  EXPECT_EQ(Line({"single", {.5f, -.25f, 4100.f, 1.5e7f, 1e-5f}}),
            "\"single\",.5,-.25,4100,1.5E+07,1E-05\r\n");
  EXPECT_EQ(Line({"single", {1.f / 3, 9999999.f, .0001f, -0.f, 16777216.f}}),
            "\"single\",.3333333,9999999,.0001,0,1.677722E+07\r\n");
  EXPECT_EQ(Line({"double", {1. / 3, 1e14, 1e15, -1.05, {}}}),
            "\"double\",.333333333333333,100000000000000,1E+15,-1.05,0\r\n");
  using Limits = std::numeric_limits<double>;
  EXPECT_EQ(Line({"far",
                  {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max(),
                   std::numeric_limits<float>::infinity()}}),
            "\"far\",0,0,0,1.79769313486231E+308,0\r\n");
  std::locale::global(before);
}

TEST(RecordWriterTest, LeavesOutWhatCannotBeCarried) {
  for (const char* text : {"a\"b", "a\rb", "a\n"}) {
    std::string file = "before";
    EXPECT_FALSE(AppendRecord(file, {text, {}}));
    EXPECT_FALSE(AppendRecord(file, {"BookMark", {0, {}, {}, {}, std::string(text)}}));
    EXPECT_EQ(file, "before");
  }
}

TEST(RecordFuzzTest, KeptContentsBreakNoRuleWholeOrCutShort) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TARNWELL_TESTS "/fuzz/corpus")) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(file), {});
    for (std::size_t size = 0; size <= content.size(); ++size) {
      ASSERT_EQ(fuzz::BrokenRule(std::string_view(content).substr(0, size)), "")
          << entry.path() << ", first " << size << " bytes";
    }
    ++count;
  }
  EXPECT_GT(count, 10);
}

}  // namespace
}  // namespace tarnwell::settings
