// Addresses of folders on other machines, "sftp://ann@host:22/folder", as users type them and as
// they are connected to and kept (RFC 3986).
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::tools {

struct PlaceKind {
  std::string_view Scheme;
  std::string_view Caption;  // in the list of kinds
  std::string_view Example;  // an address of the kind
};

// All that there may be, in the order in which they are offered.
std::span<const PlaceKind> PlaceKinds();

// An address and the password that stood in it.
struct SplitAddress {
  std::string Address;  // byte for byte what was typed, less the password and its colon
  std::string Password;
  bool HadPassword = false;
};
// Also of an address that is only half typed, or wrong: whatever may be a password counts as one.
SplitAddress TakePassword(std::string_view typed);

// Scheme of a typed address in small letters, the usual one where others are in use for the same;
// empty where it has none.
std::string SchemeOf(std::string_view typed);
// The typed address with another scheme in front.
std::string WithScheme(std::string_view typed, std::string_view scheme);
// The host and port of a whole address, for people.
std::string HostOf(std::string_view address);

// An address that can be connected to, or else the sentence that says what is wrong with it. That
// never repeats any of it but the scheme.
struct ReadAddress {
  std::string Address;  // percent-encoded, without a password
  std::string Trouble;  // empty where there is none
};
// `kind` is the scheme of what has none; `available` are the schemes that can be connected to.
ReadAddress ReadPlaceAddress(std::string_view typed, std::string_view kind,
                             const std::vector<std::string>& available);

}  // namespace tarnwell::tools
