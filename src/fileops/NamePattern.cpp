#include "fileops/NamePattern.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

#include "base/Text.h"

namespace tarnwell::fileops {
namespace {

constexpr int MostDigits = 18;  // of a 64-bit number

std::string Digits(std::int64_t number, int least) {
  char text[32];
  std::snprintf(text, sizeof text, "%0*lld",
                std::clamp(least, 1, MostDigits) + (number < 0 ? 1 : 0),
                static_cast<long long>(number));
  return text;
}

std::string_view StemOf(const NameSubject& subject) {
  return std::string_view(subject.Name).substr(0, ExtensionStart(subject.Name, subject.IsFolder));
}

std::string_view ExtensionOf(const NameSubject& subject) {
  const std::size_t start = ExtensionStart(subject.Name, subject.IsFolder);
  return std::string_view(subject.Name).substr(std::min(start + 1, subject.Name.size()));
}

// Characters by their numbers from 1 on, or from the end where they are below 0.
std::string_view PartOf(std::string_view text, int first, int last) {
  const int count = static_cast<int>(base::CodePointCount(text));
  const auto place = [count](int number) { return number < 0 ? count + number + 1 : number; };
  const int from = std::max(place(first), 1), to = std::min(place(last), count);
  if (from > to) return {};
  const std::string_view head = base::FirstCodePoints(text, static_cast<std::size_t>(to));
  return base::LastCodePoints(head, static_cast<std::size_t>(to - from + 1));
}

// Wraps rather than overflows: a counter that large is nobody's wish.
std::int64_t CountOf(const NameCounter& counter, std::size_t number) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(counter.Start) +
                                   static_cast<std::uint64_t>(counter.Step) * number);
}

std::optional<int> ReadPlace(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 1) return {};
  return number;
}

}  // namespace

std::size_t ExtensionStart(std::string_view name, bool isFolder) {
  const std::size_t dot = isFolder ? std::string_view::npos : name.rfind('.');
  const bool begins = dot != std::string_view::npos && dot != 0 && dot + 1 != name.size();
  return begins ? dot : name.size();
}

struct NamePattern::Row {
  std::string_view Word;
  Field Kind;
};

const NamePattern::Row NamePattern::Rows[] = {
    {"name", Field::Name},     {"ext", Field::Extension}, {"counter", Field::Counter},
    {"parent", Field::Parent}, {"date", Field::Date},     {"time", Field::Time},
    {"year", Field::Year},     {"month", Field::Month},   {"day", Field::Day},
    {"hour", Field::Hour},     {"minute", Field::Minute}, {"second", Field::Second},
};

bool NamePattern::ReadPart(std::string_view range, Piece& piece) {
  piece.Kind = Field::Part;
  const bool fromEnd = range.starts_with('-');
  if (fromEnd) range.remove_prefix(1);
  const std::size_t dash = range.find('-');
  const auto first = ReadPlace(range.substr(0, dash));
  if (!first) return false;
  piece.First = fromEnd ? -*first : *first;
  if (dash == std::string_view::npos) {
    piece.Last = piece.First;
    return true;
  }
  const std::string_view end = range.substr(dash + 1);
  if (end.empty()) return true;  // to the end
  const auto last = ReadPlace(end);
  if (!last || fromEnd || *last < *first) return false;
  piece.Last = *last;
  return true;
}

bool NamePattern::ReadField(std::string_view inside, Piece& piece) {
  constexpr std::string_view part = "part ";
  if (inside.starts_with(part)) return ReadPart(base::Trim(inside.substr(part.size())), piece);
  const Row* const row = std::ranges::find(Rows, inside, &Row::Word);
  if (row == std::end(Rows)) return false;
  piece.Kind = row->Kind;
  return true;
}

bool NamePattern::Read(std::string_view text, Fault& fault) {
  std::vector<Piece> pieces;
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char byte = text[at];
    const bool isBrace = byte == '{' || byte == '}';
    if (!isBrace || (at + 1 < text.size() && text[at + 1] == byte)) {
      plain += byte;
      if (isBrace) ++at;
      continue;
    }
    const std::size_t end = text.find('}', at);
    Piece field;
    if (byte == '}') {
      fault = {"\"}\" ends no field. Type }} for a brace.", at};
      return false;
    }
    if (end == std::string_view::npos) {
      fault = {"The field has no \"}\" at its end. Type {{ for a brace.", at};
      return false;
    }
    const std::string_view inside = text.substr(at + 1, end - at - 1);
    if (!ReadField(inside, field)) {
      fault = {"There is no field {" + base::ForDisplay(inside) + "}.", at};
      return false;
    }
    if (!plain.empty()) pieces.push_back({.Kind = Field::Text, .Text = std::exchange(plain, {})});
    pieces.push_back(std::move(field));
    at = end;
  }
  if (!plain.empty()) pieces.push_back({.Kind = Field::Text, .Text = std::move(plain)});
  pieces_ = std::move(pieces);
  return true;
}

std::string NamePattern::TextOf(const Piece& piece, const NameSubject& subject,
                                const NameCounter& counter, std::size_t number) {
  const platform::LocalTime& time = subject.Modified;
  switch (piece.Kind) {
    case Field::Text:
      return piece.Text;
    case Field::Name:
      return std::string(StemOf(subject));
    case Field::Extension:
      return std::string(ExtensionOf(subject));
    case Field::Part:
      return std::string(PartOf(StemOf(subject), piece.First, piece.Last));
    case Field::Counter:
      return Digits(CountOf(counter, number), counter.Digits);
    case Field::Parent:
      return subject.Parent;
    case Field::Date:
      return Digits(time.Year, 4) + "-" + Digits(time.Month, 2) + "-" + Digits(time.Day, 2);
    case Field::Time:
      return Digits(time.Hour, 2) + "-" + Digits(time.Minute, 2) + "-" + Digits(time.Second, 2);
    case Field::Year:
      return Digits(time.Year, 4);
    case Field::Month:
      return Digits(time.Month, 2);
    case Field::Day:
      return Digits(time.Day, 2);
    case Field::Hour:
      return Digits(time.Hour, 2);
    case Field::Minute:
      return Digits(time.Minute, 2);
    case Field::Second:
      return Digits(time.Second, 2);
  }
  return {};
}

std::string NamePattern::NameOf(const NameSubject& subject, const NameCounter& counter,
                                std::size_t number) const {
  std::string name;
  for (const Piece& piece : pieces_) {
    const std::string text = TextOf(piece, subject, counter, number);
    if (piece.Kind == Field::Extension && text.empty() && name.ends_with('.')) name.pop_back();
    name += text;
  }
  return name;
}

bool NamePattern::UsesTime() const {
  return std::ranges::any_of(pieces_, [](const Piece& piece) { return piece.Kind >= Field::Date; });
}

}  // namespace tarnwell::fileops
