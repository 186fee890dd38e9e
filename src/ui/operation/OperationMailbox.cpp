#include "ui/operation/OperationMailbox.h"

#include <QImageReader>
#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "lister/rows/CellText.h"
#include "ui/toolkit/FilePath.h"

namespace tarnwell::ui {
namespace {

using Lock = std::unique_lock<std::mutex>;

// Device pixels: enough for a screen of double density.
constexpr int PictureEdge = 128;
// The user waits for the question meanwhile.
constexpr std::uint64_t LargestPicture = 32U << 20;  // bytes
// Of each remark; more are counted only.
constexpr std::size_t MostRemarks = 1000;
constexpr const char* PictureTypes[] = {"png", "jpg", "jpeg", "gif", "bmp", "webp"};

QImage ReadPicture(const platform::ConflictSide& side) {
  if (side.Kind != platform::ItemKind::File || side.IsLink || side.Size > LargestPicture) return {};
  const std::string_view extension = lister::ExtensionOf(side.Path);
  if (std::ranges::none_of(PictureTypes, [extension](const char* type) {
        return base::EqualsIgnoringCase(extension, type);
      })) {
    return {};
  }
  QImageReader reader(ToQtPath(side.Path));
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (!size.isValid()) return {};
  if (size.width() > PictureEdge || size.height() > PictureEdge) {
    reader.setScaledSize(
        size.scaled(PictureEdge, PictureEdge, Qt::KeepAspectRatio).expandedTo({1, 1}));
  }
  return reader.read();
}

}  // namespace

// --- The user interface's side

void OperationMailbox::Pause(bool on) {
  const Lock lock(mutex_);
  paused_ = on;
  changed_.notify_all();
}

void OperationMailbox::Cancel() {
  const Lock lock(mutex_);
  cancelled_ = true;
  changed_.notify_all();
}

void OperationMailbox::Leave() {
  const Lock lock(mutex_);
  cancelled_ = leaving_ = true;
  changed_.notify_all();
}

bool OperationMailbox::IsCancelled() const {
  const Lock lock(mutex_);
  return cancelled_;
}

ProgressReport OperationMailbox::Progress() const {
  const Lock lock(mutex_);
  return progress_;
}

std::optional<OperationQuestion> OperationMailbox::TakeQuestion() {
  const Lock lock(mutex_);
  std::optional<OperationQuestion> question = std::exchange(question_, std::nullopt);
  if (cancelled_) question.reset();
  return question;
}

void OperationMailbox::Answer(const OperationAnswer& answer) {
  const Lock lock(mutex_);
  answer_ = answer;
  changed_.notify_all();
}

OperationRemarks OperationMailbox::TakeRemarks() {
  const Lock lock(mutex_);
  return leaving_ ? OperationRemarks() : std::exchange(remarks_, {});
}

// --- The operation's side

void OperationMailbox::OnProgress(const platform::OperationProgress& progress) {
  const Lock lock(mutex_);
  progress_.Numbers = progress;
  progress_.From = progress.From;
  progress_.To = progress.To;
  progress_.Numbers.From = progress_.Numbers.To = {};
}

bool OperationMailbox::GoesOn() {
  Lock lock(mutex_);
  changed_.wait(lock, [this] { return cancelled_ || !paused_; });
  return !cancelled_;
}

template <typename Reply>
Reply OperationMailbox::Ask(OperationQuestion question, const Reply& cancelled) {
  Lock lock(mutex_);
  if (cancelled_) return cancelled;
  answer_.reset();
  question_ = std::move(question);
  lock.unlock();
  wake_();
  lock.lock();
  changed_.wait(lock, [this] { return cancelled_ || answer_; });
  question_.reset();
  return cancelled_ ? cancelled : std::get<Reply>(*answer_);
}

platform::ConflictAnswer OperationMailbox::OnConflict(const platform::OperationConflict& conflict) {
  if (IsCancelled()) return {.Choice = platform::ConflictChoice::Cancel};
  const bool areFolders = IsFolder(conflict.Source) && IsFolder(conflict.Target);
  if (areFolders && !conflict.IsOtherSpelling && !merged_.empty() &&
      syntax_.IsWithin(conflict.Target.Path, merged_)) {
    return {.Choice = platform::ConflictChoice::Replace};
  }
  // Read here: this thread may wait for a slow disk.
  const auto answer = Ask<platform::ConflictAnswer>(
      ConflictQuestion{conflict, ReadPicture(conflict.Source), ReadPicture(conflict.Target)},
      {.Choice = platform::ConflictChoice::Cancel});
  if (areFolders && answer.Choice == platform::ConflictChoice::Replace) {
    merged_ = conflict.Target.Path;
  }
  return answer;
}

platform::TroubleChoice OperationMailbox::OnTrouble(const platform::OperationTrouble& trouble) {
  return Ask(trouble, platform::TroubleChoice::Cancel);
}

platform::NoTrashAnswer OperationMailbox::OnNoTrash(const std::string& path) {
  return Ask<platform::NoTrashAnswer>(NoTrashQuestion{path},
                                      {.Choice = platform::NoTrashChoice::Cancel});
}

platform::LossAnswer OperationMailbox::OnLoss(const std::string& path) {
  return Ask<platform::LossAnswer>(LossQuestion{path}, {.Choice = platform::LossChoice::Cancel});
}

platform::MissingFolderChoice OperationMailbox::OnMissingFolder(const std::string& path) {
  return Ask(MissingFolderQuestion{path}, platform::MissingFolderChoice::Cancel);
}

void OperationMailbox::OnRemark(platform::OperationRemark remark, const std::string& path) {
  OperationRemarks::List& list = remarks_.Lists.at(static_cast<std::size_t>(remark));
  if (list.Count++ < MostRemarks) list.Paths.push_back(path);
}

}  // namespace tarnwell::ui
