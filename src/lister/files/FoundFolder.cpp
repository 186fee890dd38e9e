#include "lister/files/FoundFolder.h"

namespace tarnwell::lister {

std::string_view FoundFolder::Enter(std::string_view name) const {
  const std::size_t last = name.rfind(files_.Syntax().Separator);
  const std::string_view part = name.substr(0, last == name.npos ? 0 : last);
  if (!isTried_ || part != part_) {
    isTried_ = true;
    part_ = part;
    status_ = {};
    opened_.reset();  // two at a time are one too many
    opened_ =
        files_.OpenFolder(part.empty() ? folder_ : files_.Syntax().Join(folder_, part), status_);
  }
  return name.substr(last + 1);
}

base::Status FoundFolder::ReadAttributes(std::string_view name,
                                         platform::ItemAttributes& attributes) const {
  const std::string_view own = Enter(name);
  return opened_ ? opened_->ReadAttributes(own, attributes) : status_;
}

base::Status FoundFolder::ReadExtendedAttribute(std::string_view name,
                                                platform::ExtendedAttribute attribute,
                                                std::string& text) const {
  const std::string_view own = Enter(name);
  return opened_ ? opened_->ReadExtendedAttribute(own, attribute, text) : status_;
}

}  // namespace tarnwell::lister
