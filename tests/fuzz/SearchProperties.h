// What must hold for any bytes as an expression with its replacement, and as a text that is
// searched in pieces: as RecordProperties.h for records.
#pragma once

#include <algorithm>

#include "platform/pcre/PcreRegex.h"
#include "platform/search/TextScan.h"

namespace tarnwell::fuzz {

// Of the text in pieces of that size.
inline platform::ScanOutcome ScanInPieces(platform::TextScan& scan, std::string_view text,
                                          std::size_t size) {
  scan.Begin();
  for (;;) {
    const std::size_t count = std::min(size, text.size());
    text.copy(scan.Room(), count);
    text.remove_prefix(count);
    const platform::ScanOutcome outcome = scan.Take(count, text.empty());
    if (outcome != platform::ScanOutcome::GoesOn || text.empty()) return outcome;
  }
}

// The first rule that the content breaks; empty when it breaks none. Its first part is taken for an
// expression, the second for a replacement, the third for the text.
inline std::string BrokenSearchRule(std::string_view content) {
  using platform::RegexOutcome;
  const std::size_t third = content.size() / 3;
  const std::string_view expression = content.substr(0, third);
  const std::string_view replacement = content.substr(third, third);
  const std::string_view text = content.substr(2 * third);
  platform::RegexFault fault;
  for (const bool isLiteral : {false, true}) {
    for (const bool hasLines : {false, true}) {
      const platform::RegexOptions options{.IsLiteral = isLiteral, .HasLines = hasLines};
      const auto regex = platform::CompilePcre(expression, options, fault);
      if (!regex) {
        if (fault.At > expression.size() || fault.Reason.empty()) return "a fault out of place";
        continue;
      }
      const RegexOutcome found = regex->Find(text);
      if (isLiteral && !hasLines && text.find(expression) == text.npos &&
          found == RegexOutcome::Found) {
        return "a literal found that is not there";
      }
      if (!regex->SetReplacement(replacement, fault)) {
        if (fault.At >= replacement.size() || fault.Reason.empty()) return "a replacement's fault";
        continue;
      }
      std::string result;
      const RegexOutcome replaced = regex->Replace(text, result);
      if (replaced != RegexOutcome::Found && result != text) return "replaced what is not found";
      if (!hasLines && replaced != found) return "finds and replaces otherwise";
    }
  }
  if (expression.empty()) return "";
  // Lines are whole in every piece, where a mark at the start is, too.
  const std::string whole = "--" + std::string(text), mark = "\xFF\xFE";
  for (const std::string& each : {whole, mark + std::string(text)}) {
    platform::TextScan scan(std::string(expression), true);
    const platform::ScanOutcome atOnce = ScanInPieces(scan, each, each.size());
    for (const std::size_t size : {2, 3, 7}) {
      if (ScanInPieces(scan, each, size) != atOnce) return "the pieces of a text make a difference";
    }
    if (auto regex = platform::CompilePcre(expression, {.HasLines = true}, fault)) {
      platform::TextScan lines(std::move(regex), true);
      const platform::ScanOutcome outcome = ScanInPieces(lines, each, each.size());
      for (const std::size_t size : {2, 3, 7}) {
        if (ScanInPieces(lines, each, size) != outcome) return "the pieces of lines differ";
      }
    }
  }
  return "";
}

}  // namespace tarnwell::fuzz
