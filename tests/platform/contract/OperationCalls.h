// Operations on real items, and a user who answers as told.
#pragma once

#include "TempFolder.h"
#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/OperationUser.h"

namespace tarnwell::platform {

struct ScriptedUser : OperationUser {
  int CancelAt = -1;  // which question whether to go on is the last
  int Asked = 0;
  ConflictAnswer Conflict;
  TroubleChoice Trouble = TroubleChoice::Skip;
  NoTrashAnswer NoTrash;
  std::function<void()> Meanwhile;
  std::string Heard;  // what was asked about, each followed by a blank
  OperationProgress Last;

  static std::string NameOf(const std::string& path) {
    return std::string(base::PathSyntax::Native().LastComponent(path));
  }
  bool GoesOn() override {
    if (Meanwhile) Meanwhile();
    return Asked++ != CancelAt;
  }
  void OnProgress(const OperationProgress& progress) override { Last = progress; }
  ConflictAnswer OnConflict(const OperationConflict& conflict) override {
    Heard += "conflict:" + NameOf(conflict.Target.Path) + " ";
    return Conflict;
  }
  TroubleChoice OnTrouble(const OperationTrouble& trouble) override {
    Heard += NameOf(trouble.Path) + ":" + std::to_string(trouble.Reason.Code) + " ";
    return Trouble;
  }
  void OnRemark(OperationRemark, const std::string& path) override {
    Heard += "remark:" + NameOf(path) + " ";
  }
  NoTrashAnswer OnNoTrash(const std::string&) override { return NoTrash; }
  MissingFolderChoice OnMissingFolder(const std::string& path) override {
    Heard += "missing:" + NameOf(path) + " ";
    return MissingFolderChoice::Make;
  }
};

// OperationFixture.h of each system has these.
inline OperationResult CarryOut(const OperationRequest& request, OperationUser& user);
inline ItemFingerprint PrintOf(const std::string& path, bool isWhole);

inline OperationResult DoAll(OperationUser& user, FileFunction function,
                             const std::vector<std::string>& items,
                             const std::vector<std::string>& to, int flags,
                             const std::vector<ItemFingerprint>& expected = {}) {
  return CarryOut({function, base::ItemList::TextOf(items), base::ItemList::TextOf(to),
                   static_cast<std::uint16_t>(flags), expected},
                  user);
}

inline OperationResult Do(OperationUser& user, FileFunction function,
                          const std::vector<std::string>& items, const std::string& to,
                          int flags = 0) {
  return DoAll(user, function, items, {to}, flags);
}

// Each item that was done as "from>to " without the folder of the test, with a "*" where it was
// made with all below it. Each stands there as told, and what has moved is no more where it was.
inline std::string Told(const OperationResult& result, std::size_t root) {
  std::string told;
  for (const DoneItem& item : result.Done) {
    const bool isWhole = item.Print.Below != 0;
    EXPECT_NE(item.Print.Kind, 0U) << item.To;
    EXPECT_EQ(PrintOf(item.To, isWhole), item.Print) << item.To;
    const std::string from = item.From.empty() ? "" : item.From.substr(root);
    told += from + ">" + item.To.substr(root) + (isWhole ? "* " : " ");
  }
  return told;
}

}  // namespace tarnwell::platform
