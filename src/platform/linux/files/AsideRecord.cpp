#include "platform/linux/files/AsideRecord.h"

#include <unistd.h>

#include "base/ItemList.h"
#include "platform/FileOperation.h"
#include "platform/linux/files/ReplaceFile.h"

namespace tarnwell::platform {

AsideRecord::AsideRecord(const std::string& programFolder) {
  if (!programFolder.empty()) file_ = programFolder + "/" + std::string(AsideRecordName);
}

void AsideRecord::Keep(const std::string& item, const std::string& aside) const {
  if (!file_.empty()) ReplaceFile(file_, base::ItemList::TextOf({item, aside}));
}

void AsideRecord::Drop() const {
  if (!file_.empty()) unlink(file_.c_str());
}

}  // namespace tarnwell::platform
