#include "Test.h"
#include "platform/pcre/PcreRegex.h"

namespace tarnwell::platform {
namespace {

constexpr RegexOptions literal{.IsLiteral = true}, anyCase{.IgnoresCase = true};
constexpr RegexOptions lines{.HasLines = true};

std::unique_ptr<Regex> Compiled(std::string_view expression, const RegexOptions& options = {}) {
  RegexFault fault;
  auto regex = CompilePcre(expression, options, fault);
  EXPECT_TRUE(regex) << expression << ": " << fault.Reason;
  return regex;
}

bool Finds(std::string_view expression, std::string_view text, const RegexOptions& options = {}) {
  return Compiled(expression, options)->Find(text) == RegexOutcome::Found;
}

std::string Replaced(std::string_view expression, std::string_view replacement,
                     std::string_view text, const RegexOptions& options = {}) {
  const auto regex = Compiled(expression, options);
  RegexFault fault;
  EXPECT_TRUE(regex->SetReplacement(replacement, fault)) << fault.Reason;
  std::string result;
  regex->Replace(text, result);
  return result;
}

TEST(PcreRegexTest, FindsInNamesOfEveryKind) {
  EXPECT_TRUE(Finds("^a.c$", "a\nc"));
  EXPECT_FALSE(Finds("^ab$", "ab\n"));
  EXPECT_TRUE(Finds("^\u00e4.$", "\u00c4\u00f6", anyCase));
  EXPECT_TRUE(Finds("^caf.\\.(txt)$", "caf\xe9.txt"));
  EXPECT_TRUE(Finds("a.c*", "xa.c*", literal));
  EXPECT_FALSE(Finds("a.c", "abc", literal));
  constexpr RegexOptions words{.IsLiteral = true, .IsWholeWords = true};
  EXPECT_TRUE(Finds("-f", "x -f.", words));
  EXPECT_FALSE(Finds("stra", "stra\u00dfe", words));
  EXPECT_TRUE(Finds("a|b", "a ab", {.IsWholeWords = true}));
  EXPECT_FALSE(Finds("a|b", "ab", {.IsWholeWords = true}));
}

TEST(PcreRegexTest, MatchesEachLineForItself) {
  EXPECT_TRUE(Finds("^b.*d$", "a\r\nb cd\r\ne", lines));
  EXPECT_FALSE(Finds("b\\s+c", "a b\nc", lines));
  EXPECT_TRUE(Finds("\u00fcb", "\xff\xfe\n\xfc\u00fcb\xff", lines));
  const std::string longLine(300'000, '\x80');
  EXPECT_TRUE(Finds("z$", longLine + "z", lines));
}

TEST(PcreRegexTest, ReplacesByGroups) {
  EXPECT_EQ(Replaced("(?<year>\\d+)-(\\d+)", "$2_\\1_${year}_$0_$$1", "x 2026-11 y"),
            "x 11_2026_2026_2026-11_$1 y");
  EXPECT_EQ(Replaced("(a)|b", "[$1]$10", "ab"), "[a]a0[]0");
  EXPECT_EQ(Replaced(".*", "x", "abc"), "x");
  EXPECT_EQ(Replaced("x*", "-", "\u00e4xb"), "-\u00e4-b-");
  EXPECT_EQ(Replaced("(.)\\.txt$", "$1.md", "caf\xe9.txt"), "caf\xe9.md");
  EXPECT_EQ(Replaced("a.", "$0\\1", "a.b a.", literal), "$0\\1b $0\\1");
  EXPECT_EQ(Replaced("b", "c", "aaa"), "aaa");
}

TEST(PcreRegexTest, TellsWhereATextIsNoExpression) {
  RegexFault fault;
  EXPECT_FALSE(CompilePcre("ab(c", {}, fault));
  EXPECT_EQ(fault.At, 4U);
  EXPECT_NE(fault.Reason.find("parenthesis"), std::string::npos) << fault.Reason;
  EXPECT_FALSE(CompilePcre("a)|(b", {.IsWholeWords = true}, fault));
  EXPECT_FALSE(CompilePcre(std::string(1 << 20, 'a'), {}, fault));
  const auto regex = Compiled("(a)(b)");
  for (const auto& [text, at] : {std::pair("$1$3", 2U), {"x${", 1U}, {"${no}", 0U}, {"\\9", 0U}}) {
    EXPECT_FALSE(regex->SetReplacement(text, fault)) << text;
    EXPECT_EQ(fault.At, at) << text;
  }
}

TEST(PcreRegexTest, GivesUpRatherThanRunForEver) {
  const std::string text(40'000, 'a');
  for (const char* const expression : {"(a+)+$", "(?:a|aa)+$", "((a*)*)*b(?=c)"}) {
    const auto regex = Compiled(expression, lines);
    EXPECT_NE(regex->Find(text + "!"), RegexOutcome::Found) << expression;
  }
  EXPECT_EQ(Compiled("(a+)+$")->Find(text + "!"), RegexOutcome::TooMuch);
}

}  // namespace
}  // namespace tarnwell::platform
