// Port: the order of letters in the user's language.
#pragma once

#include <string>
#include <string_view>

namespace tarnwell::platform {

class Collation {
 public:
  virtual ~Collation() = default;
  // Appends the weights of the text to `key`: the bytes of two keys compare as the texts do. Case
  // and accents make no difference. The text is valid UTF-8 in lower case; the key holds no byte
  // below 2, so that a caller can put marks between keys.
  virtual void AppendWeights(std::string_view text, std::string& key) const = 0;
};

}  // namespace tarnwell::platform
