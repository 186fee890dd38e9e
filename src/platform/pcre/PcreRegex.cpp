#include "platform/pcre/PcreRegex.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>
#include <vector>

#include "platform/pcre/Replacement.h"

namespace tarnwell::platform {
namespace {

// What one try may cost, at one place of the text; an expression gives up there that would try a
// number of ways that doubles with each character.
constexpr std::uint32_t mostTries = 1'000'000;
constexpr std::uint32_t mostDepth = 1'000'000;
constexpr std::uint32_t mostHeap = 32 * 1024;  // KiB
constexpr std::size_t firstStack = std::size_t{32} << 10, mostStack = std::size_t{8} << 20;
// Places to begin at are tried so many at a time, with a look at the clock in between.
constexpr std::size_t placesAtOnce = 4096;
constexpr std::chrono::seconds patience(3);  // with one text
// Of an expression, in bytes: more is no text that somebody typed.
constexpr std::size_t longestExpression = 32'768;

struct FreePcre {
  void operator()(pcre2_code* code) const { pcre2_code_free(code); }
  void operator()(pcre2_compile_context* context) const { pcre2_compile_context_free(context); }
  void operator()(pcre2_match_context* context) const { pcre2_match_context_free(context); }
  void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
  void operator()(pcre2_jit_stack* stack) const { pcre2_jit_stack_free(stack); }
};
template <typename Type>
using Freed = std::unique_ptr<Type, FreePcre>;

PCRE2_SPTR BytesOf(std::string_view text) {
  return reinterpret_cast<PCRE2_SPTR>(text.empty() ? "" : text.data());
}

bool IsUtfError(int outcome) {
  return outcome == PCRE2_ERROR_BADUTFOFFSET ||
         (outcome <= PCRE2_ERROR_UTF8_ERR1 && outcome >= PCRE2_ERROR_UTF8_ERR21);
}

bool IsAsciiWord(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
         (byte >= 'A' && byte <= 'Z') || byte == '_';
}

// An expression that finds just the text. A backslash takes the meaning of all that is no letter.
std::string LiteralExpression(std::string_view text, bool isWholeWords) {
  std::string expression(isWholeWords ? "(?<!\\w)" : "");
  for (const char byte : text) {
    if (!IsAsciiWord(byte) && static_cast<unsigned char>(byte) < 0x80) expression += '\\';
    expression += byte;
  }
  return expression + (isWholeWords ? "(?!\\w)" : "");
}

// The first place from there on at which a character may begin.
std::size_t PlaceBehind(std::string_view text, std::size_t at) {
  while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) ++at;
  return std::min(at, text.size());
}

std::uint32_t FlagsOf(const RegexOptions& options) {
  std::uint32_t flags =
      PCRE2_UCP | PCRE2_DOLLAR_ENDONLY | PCRE2_NEVER_BACKSLASH_C | PCRE2_USE_OFFSET_LIMIT;
  if (options.IgnoresCase) flags |= PCRE2_CASELESS;
  if (!options.HasLines) flags |= PCRE2_DOTALL;
  return flags;
}

Freed<pcre2_code> Compile(const std::string& expression, std::uint32_t flags, bool isBetweenWords,
                          RegexFault& fault) {
  const Freed<pcre2_compile_context> context(pcre2_compile_context_create(nullptr));
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
  pcre2_set_max_pattern_length(context.get(), 2 * longestExpression + 32);
  if (isBetweenWords) pcre2_set_compile_extra_options(context.get(), PCRE2_EXTRA_MATCH_WORD);
  int error = 0;
  PCRE2_SIZE at = 0;
  Freed<pcre2_code> code(
      pcre2_compile(BytesOf(expression), expression.size(), flags, &error, &at, context.get()));
  if (code) {
    // Where the system lets no code be made, matching is slower and gives the same.
    pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
    return code;
  }
  std::array<PCRE2_UCHAR, 256> reason{};
  pcre2_get_error_message(error, reason.data(), reason.size());
  fault = {reinterpret_cast<const char*>(reason.data()), std::min(at, expression.size())};
  return nullptr;
}

class PcreRegex : public Regex {
 public:
  PcreRegex(const RegexOptions& options, Freed<pcre2_code> characters, Freed<pcre2_code> bytes)
      : options_(options),
        characters_(std::move(characters)),
        bytes_(std::move(bytes)),
        context_(pcre2_match_context_create(nullptr)),
        data_(pcre2_match_data_create_from_pattern(characters_.get(), nullptr)),
        stack_(pcre2_jit_stack_create(firstStack, mostStack, nullptr)) {
    pcre2_set_match_limit(context_.get(), mostTries);
    pcre2_set_depth_limit(context_.get(), mostDepth);
    pcre2_set_heap_limit(context_.get(), mostHeap);
    pcre2_jit_stack_assign(context_.get(), nullptr, stack_.get());
  }

  RegexOutcome Find(std::string_view text, LineEnds ends) override {
    const auto start = Clock::now();
    if (!options_.HasLines || options_.IsLiteral) return Match(text, 0, 0, start);
    bool begins = ends.Begins;
    while (!text.empty()) {
      const std::size_t end = std::min(text.find('\n'), text.size());
      const bool isWhole = ends.Ends || end < text.size();
      std::string_view line = text.substr(0, end);
      if (isWhole && line.ends_with('\r')) line.remove_suffix(1);
      const std::uint32_t flags = (begins ? 0 : PCRE2_NOTBOL) | (isWhole ? 0 : PCRE2_NOTEOL);
      if (const RegexOutcome outcome = Match(line, 0, flags, start);
          outcome != RegexOutcome::None) {
        return outcome;
      }
      begins = true;
      text.remove_prefix(std::min(end + 1, text.size()));
    }
    return RegexOutcome::None;
  }

  bool SetReplacement(std::string_view replacement, RegexFault& fault) override {
    if (options_.IsLiteral) {
      pieces_ = {{std::string(replacement), {}}};
      return true;
    }
    const auto groupOfName = [this](const std::string& name) -> std::optional<std::size_t> {
      const int group = pcre2_substring_number_from_name(
          characters_.get(), reinterpret_cast<PCRE2_SPTR>(name.c_str()));
      if (group < 0) return {};
      return static_cast<std::size_t>(group);
    };
    const std::size_t groups = pcre2_get_ovector_count(data_.get()) - 1;
    auto pieces = ReadReplacement(replacement, groups, groupOfName, fault);
    if (!pieces) return false;
    pieces_ = *std::move(pieces);
    return true;
  }

  RegexOutcome Replace(std::string_view text, std::string& result) override {
    const auto start = Clock::now();
    result.clear();
    std::size_t done = 0;
    bool hasFound = false;  // right behind a match there is none that holds nothing
    for (;;) {
      const RegexOutcome outcome = Match(text, done, hasFound ? PCRE2_NOTEMPTY_ATSTART : 0, start);
      if (outcome == RegexOutcome::TooMuch) {
        result = text;
        return outcome;
      }
      if (outcome == RegexOutcome::None) break;
      const PCRE2_SIZE* const places = pcre2_get_ovector_pointer(data_.get());
      if (places[0] < done || places[1] < places[0]) break;  // by a \K that goes back
      result += text.substr(done, places[0] - done);
      for (const ReplacementPiece& piece : pieces_) {
        result += piece.Text;
        if (!piece.Group) continue;
        const PCRE2_SIZE* const group = places + 2 * *piece.Group;
        if (group[0] == PCRE2_UNSET || group[1] < group[0]) continue;
        result += text.substr(group[0], group[1] - group[0]);
      }
      done = places[1];
      hasFound = true;
    }
    result += text.substr(done);
    return hasFound ? RegexOutcome::Found : RegexOutcome::None;
  }

 private:
  using Clock = std::chrono::steady_clock;

  // The first match from that place on, whose ends are in `data_` then. Patience is over some time
  // after the start, by which also many texts that take long are taken together.
  RegexOutcome Match(std::string_view text, std::size_t from, std::uint32_t flags,
                     Clock::time_point start) {
    const pcre2_code* code = characters_.get();
    for (;;) {
      const std::size_t last = PlaceBehind(text, from + placesAtOnce);
      pcre2_set_offset_limit(context_.get(), last);
      const int outcome =
          pcre2_match(code, BytesOf(text), text.size(), from, flags, data_.get(), context_.get());
      if (outcome >= 0) return RegexOutcome::Found;
      if (outcome == PCRE2_ERROR_NOMATCH) {
        if (Clock::now() - start > patience) return RegexOutcome::TooMuch;
        if (last == text.size()) return RegexOutcome::None;
        from = last;
        flags &= ~PCRE2_NOTEMPTY_ATSTART;
      } else if (IsUtfError(outcome) && code != bytes_.get()) {
        code = bytes_.get();
        if (code == nullptr) return RegexOutcome::None;
      } else {
        return RegexOutcome::TooMuch;
      }
    }
  }

  const RegexOptions options_;
  const Freed<pcre2_code> characters_;
  const Freed<pcre2_code> bytes_;  // of names that are no UTF-8; may be null
  const Freed<pcre2_match_context> context_;
  const Freed<pcre2_match_data> data_;
  const Freed<pcre2_jit_stack> stack_;
  std::vector<ReplacementPiece> pieces_;
};

}  // namespace

std::unique_ptr<Regex> CompilePcre(std::string_view expression, const RegexOptions& options,
                                   RegexFault& fault) {
  if (expression.size() > longestExpression) {
    fault = {"The expression is too long", longestExpression};
    return nullptr;
  }
  const std::string text = options.IsLiteral ? LiteralExpression(expression, options.IsWholeWords)
                                             : std::string(expression);
  const bool isBetweenWords = options.IsWholeWords && !options.IsLiteral;
  const std::uint32_t flags = FlagsOf(options);
  Freed<pcre2_code> characters =
      Compile(text, flags | PCRE2_UTF | (options.HasLines ? PCRE2_MATCH_INVALID_UTF : 0),
              isBetweenWords, fault);
  if (!characters) {
    fault.At = std::min(fault.At, expression.size());
    return nullptr;
  }
  RegexFault ofBytes;
  Freed<pcre2_code> bytes;
  if (!options.HasLines) bytes = Compile(text, flags, isBetweenWords, ofBytes);
  return std::make_unique<PcreRegex>(options, std::move(characters), std::move(bytes));
}

std::string PcreVersion() {
  std::array<char, 64> version{};
  pcre2_config(PCRE2_CONFIG_VERSION, version.data());
  const std::string_view text(version.data());
  return std::string(text.substr(0, text.find(' ')));
}

}  // namespace tarnwell::platform
