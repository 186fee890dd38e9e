// What the thread of a running file operation and the user interface have to say to each other.
//
// Keeps the newest progress, holds the operation up for a pause or a question, and carries the
// answer back. Shows nothing; whoever waits here is let go by Cancel and Leave, so that an
// operation always comes to its end, whether or not there is still a window to ask in.
#pragma once

#include <QImage>
#include <algorithm>
#include <array>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "base/PathSyntax.h"
#include "platform/OperationEngine.h"
#include "platform/OperationUser.h"

namespace tarnwell::ui {

inline bool IsFolder(const platform::ConflictSide& side) {
  return side.Kind == platform::ItemKind::Folder && !side.IsLink;
}

struct ConflictQuestion {
  platform::OperationConflict Conflict;
  QImage SourcePicture;  // null for what is no picture
  QImage TargetPicture;
};
struct NoTrashQuestion {
  std::string Path;
};
struct LossQuestion {
  std::string Path;
};
struct MissingFolderQuestion {
  std::string Path;
};
// What there is to say at the end.
struct OperationRemarks {
  struct List {
    std::vector<std::string> Paths;  // the first of them
    std::size_t Count = 0;
  };
  std::array<List, platform::OperationRemarkCount> Lists;  // by remark
  std::string Failure;  // why the work was given up though nobody was asked; empty where it was not
  bool IsEmpty() const {
    return Failure.empty() &&
           std::ranges::all_of(Lists, [](const List& list) { return list.Count == 0; });
  }
};
using OperationQuestion = std::variant<ConflictQuestion, platform::OperationTrouble,
                                       NoTrashQuestion, LossQuestion, MissingFolderQuestion>;
using OperationAnswer =
    std::variant<platform::ConflictAnswer, platform::TroubleChoice, platform::NoTrashAnswer,
                 platform::LossAnswer, platform::MissingFolderChoice>;

using platform::ProgressReport;

class OperationMailbox : public platform::OperationUser {
 public:
  // `wake` runs on the operation's thread when a question waits to be taken.
  OperationMailbox(const base::PathSyntax& syntax, std::function<void()> wake)
      : syntax_(syntax), wake_(std::move(wake)) {}

  // --- For the user interface. None of these waits.

  void Pause(bool on);
  // For good: a question that waits, and all to come, are answered so.
  void Cancel();
  // The same, and nothing is told at the end either: the program is to go on, or to end, at once.
  void Leave();
  bool IsCancelled() const;
  ProgressReport Progress() const;
  // The question that waits, once; nothing if it has been taken or there is none.
  std::optional<OperationQuestion> TakeQuestion();
  // To the question taken last; its alternative must be that of the question.
  void Answer(const OperationAnswer& answer);
  // What there was to remark, unless nothing is to be told. To be called when the operation's
  // thread is done.
  OperationRemarks TakeRemarks();

  // --- For the operation, on its thread.

  void OnProgress(const platform::OperationProgress& progress) override;
  bool GoesOn() override;
  bool AsksToMerge() const override { return true; }
  // Folders within one that the user had merged are merged without a question.
  platform::ConflictAnswer OnConflict(const platform::OperationConflict& conflict) override;
  platform::TroubleChoice OnTrouble(const platform::OperationTrouble& trouble) override;
  platform::NoTrashAnswer OnNoTrash(const std::string& path) override;
  platform::LossAnswer OnLoss(const std::string& path) override;
  platform::MissingFolderChoice OnMissingFolder(const std::string& path) override;
  void OnRemark(platform::OperationRemark remark, const std::string& path) override;

 private:
  template <typename Reply>
  Reply Ask(OperationQuestion question, const Reply& cancelled);

  const base::PathSyntax& syntax_;
  const std::function<void()> wake_;
  // Of the operation's thread:
  std::string merged_;  // path of the folder that was merged last
  OperationRemarks remarks_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  bool paused_ = false;
  bool cancelled_ = false;
  bool leaving_ = false;
  ProgressReport progress_;
  std::optional<OperationQuestion> question_;
  std::optional<OperationAnswer> answer_;
};

}  // namespace tarnwell::ui
