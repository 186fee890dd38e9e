#include "tools/PlaceAddress.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/Text.h"

namespace tarnwell::tools {
namespace {

constexpr std::array<PlaceKind, 6> placeKinds = {{
    {"sftp", "SSH (sftp)", "sftp://name@server/folder"},
    {"smb", "Windows share (smb)", "smb://server/share"},
    {"davs", "Web folder, secure (davs)", "davs://server/folder"},
    {"dav", "Web folder (dav)", "dav://server/folder"},
    {"ftp", "FTP (ftp)", "ftp://server/folder"},
    {"nfs", "NFS (nfs)", "nfs://server/folder"},
}};

// What people have at hand for the same.
constexpr std::array<std::array<std::string_view, 2>, 6> otherSchemes = {{
    {"ssh", "sftp"},
    {"cifs", "smb"},
    {"http", "dav"},
    {"https", "davs"},
    {"webdav", "dav"},
    {"webdavs", "davs"},
}};

constexpr std::string_view schemeMark = "://";
constexpr std::string_view digits = "0123456789";
constexpr std::string_view hexDigits = "0123456789ABCDEFabcdef";
constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int mostPorts = 65535;

bool IsOneOf(char byte, std::string_view set) {
  return set.find(byte) != std::string_view::npos;
}

bool IsAll(std::string_view text, std::string_view set) {
  return text.find_first_not_of(set) == std::string_view::npos;
}

// Where what follows the scheme begins.
std::size_t BehindScheme(std::string_view typed) {
  const std::size_t mark = typed.find(schemeMark);
  if (mark == std::string_view::npos) return typed.starts_with("//") ? 2 : 0;
  const std::string_view scheme = typed.substr(0, mark);
  const bool isScheme = std::ranges::all_of(scheme, [](char byte) {
    return IsOneOf(byte, letters) || IsOneOf(byte, digits) || IsOneOf(byte, "+-.");
  });
  return isScheme ? mark + schemeMark.size() : 0;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& byte : lower) {
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  }
  return lower;
}

struct Authority {
  std::string_view User;
  std::string_view Host;
  std::string_view Port;
  bool HasUser = false;
  bool HasPort = false;
};

// The colon before the port; npos where there is none. Those within brackets are of the host.
std::size_t PortMark(std::string_view hostAndPort) {
  const std::size_t bracket = hostAndPort.rfind(']');
  return hostAndPort.find(':', bracket == std::string_view::npos ? 0 : bracket);
}

Authority SplitAuthority(std::string_view text) {
  Authority parts;
  const std::size_t at = text.rfind('@');
  parts.HasUser = at != std::string_view::npos;
  if (parts.HasUser) parts.User = text.substr(0, at);
  parts.Host = parts.HasUser ? text.substr(at + 1) : text;
  const std::size_t colon = PortMark(parts.Host);
  parts.HasPort = colon != std::string_view::npos;
  if (parts.HasPort) {
    parts.Port = parts.Host.substr(colon + 1);
    parts.Host = parts.Host.substr(0, colon);
  }
  return parts;
}

// Where the name of the user, and what stands with it, ends in what follows the scheme: at an @, or
// nowhere. A password may hold slashes that nobody has encoded; a port never does.
std::size_t EndOfUser(std::string_view rest) {
  const std::string_view authority = rest.substr(0, rest.find_first_of("/?#\\"));
  if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) return at;
  const std::size_t colon = PortMark(authority);
  if (colon == std::string_view::npos) return colon;
  return IsAll(authority.substr(colon + 1), digits) ? std::string_view::npos : rest.rfind('@');
}

bool IsHost(std::string_view host) {
  if (host.starts_with('[')) {
    if (!host.ends_with(']') || host.size() < 3) return false;
    const std::string_view address = host.substr(1, host.size() - 2);
    const std::size_t zone = std::min(address.find('%'), address.size());  // "fe80::1%eth0"
    return IsAll(address.substr(0, zone), "0123456789ABCDEFabcdef:.") &&
           std::ranges::all_of(address.substr(zone), [](char byte) {
             return IsOneOf(byte, letters) || IsOneOf(byte, digits) || IsOneOf(byte, "-._~%");
           });
  }
  // A dash at the start would be taken for an option by programs on the way.
  return !host.starts_with('-') && std::ranges::all_of(host, [](char byte) {
    return IsOneOf(byte, letters) || IsOneOf(byte, digits) || IsOneOf(byte, "-._~") || byte < 0;
  });
}

bool IsPort(std::string_view text) {
  int port = 0;
  const char* const end = text.data() + text.size();
  return std::from_chars(text.data(), end, port).ptr == end && port > 0 && port <= mostPorts;
}

// What stands for itself stays, and so does what is encoded already.
std::string Encode(std::string_view text, std::string_view plain) {
  constexpr std::string_view upperHex = "0123456789ABCDEF";
  std::string encoded;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char byte = text[at];
    const bool isEncoded = byte == '%' && at + 2 < text.size() &&
                           IsOneOf(text[at + 1], hexDigits) && IsOneOf(text[at + 2], hexDigits);
    if (isEncoded || IsOneOf(byte, letters) || IsOneOf(byte, digits) || IsOneOf(byte, plain)) {
      encoded += byte;
      continue;
    }
    const auto value = static_cast<unsigned char>(byte);
    encoded += '%';
    encoded += upperHex[value / 16];
    encoded += upperHex[value % 16];
  }
  return encoded;
}

std::string Trouble(std::string_view scheme, const std::vector<std::string>& available) {
  const auto* const kind = std::ranges::find(placeKinds, scheme, &PlaceKind::Scheme);
  if (kind == placeKinds.end()) {
    return "“" + base::ForDisplay(base::FirstCodePoints(scheme, 20)) +
           "” is none of the kinds that can be connected. The list of kinds has them.";
  }
  if (std::ranges::count(available, scheme) > 0) return {};
  return "This desktop cannot connect " + std::string(kind->Caption) + ".";
}

std::string Trouble(const Authority& parts) {
  if (parts.Host.empty()) return "The address names no server.";
  if (!IsHost(parts.Host)) return "The address holds no name that a server can have.";
  if (parts.HasPort && !IsPort(parts.Port)) {
    return "The port of the address is no number from 1 to 65535.";
  }
  const bool hasControls =
      std::ranges::any_of(parts.User, [](char byte) { return byte >= 0 && byte < ' '; });
  return hasControls ? "The name of the user holds what no name can hold." : "";
}

}  // namespace

std::span<const PlaceKind> PlaceKinds() {
  return placeKinds;
}

SplitAddress TakePassword(std::string_view typed) {
  SplitAddress split{std::string(typed), {}, false};
  const std::size_t start = BehindScheme(typed);
  const std::string_view rest = typed.substr(start);
  const std::size_t end = EndOfUser(rest);
  const std::size_t colon = rest.substr(0, end).find(':');
  if (end == std::string_view::npos || colon == std::string_view::npos) return split;
  split.HadPassword = true;
  split.Password = rest.substr(colon + 1, end - colon - 1);
  split.Address.erase(start + colon, end - colon);
  return split;
}

std::string SchemeOf(std::string_view typed) {
  typed = base::Trim(typed);
  if (typed.starts_with("\\\\")) return "smb";
  const std::size_t start = BehindScheme(typed);
  if (start < schemeMark.size()) return {};
  std::string scheme = Lower(typed.substr(0, start - schemeMark.size()));
  for (const auto& [other, usual] : otherSchemes) {
    if (scheme == other) return std::string(usual);
  }
  return scheme;
}

std::string WithScheme(std::string_view typed, std::string_view scheme) {
  typed = base::Trim(typed);
  const std::size_t start = typed.starts_with("\\\\") ? 2 : BehindScheme(typed);
  return std::string(scheme) + std::string(schemeMark) + std::string(typed.substr(start));
}

std::string HostOf(std::string_view address) {
  const std::string_view rest = address.substr(BehindScheme(address));
  const std::string_view authority = rest.substr(0, rest.find('/'));
  return std::string(authority.substr(authority.rfind('@') + 1));
}

ReadAddress ReadPlaceAddress(std::string_view typed, std::string_view kind,
                             const std::vector<std::string>& available) {
  std::string whole = TakePassword(base::Trim(typed)).Address;
  std::string scheme = SchemeOf(whole);
  if (scheme.empty()) scheme = kind;
  whole = WithScheme(whole, scheme);
  if (typed.find("\\\\") != std::string_view::npos) std::ranges::replace(whole, '\\', '/');
  if (std::string trouble = Trouble(scheme, available); !trouble.empty()) return {{}, trouble};
  const std::string_view rest = std::string_view(whole).substr(BehindScheme(whole));
  if (rest.find_first_of("?#") != std::string_view::npos) {
    return {{}, "An address holds no ? and no #. In the name of a folder they are %3F and %23."};
  }
  const std::string_view path = rest.substr(std::min(rest.find('/'), rest.size()));
  const Authority parts = SplitAuthority(rest.substr(0, rest.size() - path.size()));
  if (std::string trouble = Trouble(parts); !trouble.empty()) return {{}, trouble};
  if (scheme == "smb" && IsAll(path, "/")) {
    return {{}, "The address names no share of the server. It is to be smb://server/share."};
  }

  std::string address = scheme + std::string(schemeMark);
  if (!parts.User.empty()) address += Encode(parts.User, "-._~!$&'()*+,;=") + "@";
  address += Encode(parts.Host, "-._~[]:");
  if (parts.HasPort) address += ":" + std::string(parts.Port);
  return {address + Encode(path, "-._~!$&'()*+,;=:@/"), {}};
}

}  // namespace tarnwell::tools
