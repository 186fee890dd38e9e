#include "fileops/OperationLine.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/ItemList.h"
#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::fileops {
namespace {

using platform::CommandKind;
using platform::CountedText;
using platform::OperationProgress;

struct DeedRow {
  OperationDeed Deed;
  std::string_view Caption;
  bool (*IsOffered)(const OperationRecord& record, bool isNext);
  void (*Do)(OperationQueue& queue, platform::OperationId operation);
};

bool IsWaiting(const OperationRecord& record, bool) {
  return record.State == OperationState::Waiting;
}

bool GoesOnAtAll(const OperationRecord& record) {
  return record.State == OperationState::Running && !record.IsCancelling;
}

bool MayBeHeldUp(const OperationRecord& record) {
  return GoesOnAtAll(record) && !record.IsAsking && !record.Report.Numbers.IsBySystem;
}

// What the system does comes to its end first.
bool MayBeCancelled(const OperationRecord& record) {
  const bool isLast = record.At + 1 >= record.Order.Requests.size();
  return GoesOnAtAll(record) && !(record.Report.Numbers.IsBySystem && isLast);
}

constexpr auto DeedRows = std::to_array<DeedRow>({
    {OperationDeed::Pause, "Pause",
     [](const OperationRecord& record, bool) { return MayBeHeldUp(record) && !record.IsPaused; },
     [](OperationQueue& queue, platform::OperationId id) { queue.Pause(id, true); }},
    {OperationDeed::Continue, "Continue",
     [](const OperationRecord& record, bool) { return MayBeHeldUp(record) && record.IsPaused; },
     [](OperationQueue& queue, platform::OperationId id) { queue.Pause(id, false); }},
    {OperationDeed::Answer, "Answer...",
     [](const OperationRecord& record, bool) { return GoesOnAtAll(record) && record.IsAsking; },
     [](OperationQueue& queue, platform::OperationId id) { queue.ShowQuestion(id); }},
    {OperationDeed::StartNow, "Start Now", IsWaiting,
     [](OperationQueue& queue, platform::OperationId id) { queue.StartNow(id); }},
    {OperationDeed::MoveUp, "Move Up",
     [](const OperationRecord& record, bool isNext) {
       return IsWaiting(record, isNext) && !isNext;
     },
     [](OperationQueue& queue, platform::OperationId id) { queue.MoveUp(id); }},
    {OperationDeed::TakeAway, "Take Away", IsWaiting,
     [](OperationQueue& queue, platform::OperationId id) { queue.Cancel(id); }},
    {OperationDeed::Cancel, "Cancel",
     [](const OperationRecord& record, bool) { return MayBeCancelled(record); },
     [](OperationQueue& queue, platform::OperationId id) { queue.Cancel(id); }},
});
static_assert(DeedRows.size() == OperationDeedCount);

const DeedRow& RowOf(OperationDeed deed) {
  return DeedRows.at(static_cast<std::size_t>(deed));
}

struct PictureRow {
  CommandKind Kind;
  std::string_view Name;
};

constexpr auto PictureRows = std::to_array<PictureRow>({
    {CommandKind::Move, "op_move"},
    {CommandKind::Rename, "op_move"},
    {CommandKind::NewFolder, "newfolder"},
    {CommandKind::Trash, "user-trash"},
    {CommandKind::Delete, "op_delete"},
    {CommandKind::Restore, "op_restore"},
    {CommandKind::Colour, "colorcode"},
    {CommandKind::Undo, "op_undo"},
    {CommandKind::Redo, "op_redo"},
});

}  // namespace

std::string_view CaptionOf(OperationDeed deed) {
  return RowOf(deed).Caption;
}

bool CanDo(OperationDeed deed, const OperationRecord& record, bool isNext) {
  return RowOf(deed).IsOffered(record, isNext);
}

void Do(OperationDeed deed, OperationQueue& queue, platform::OperationId operation) {
  RowOf(deed).Do(queue, operation);
}

int PercentOf(const OperationRecord& record) {
  if (record.State == OperationState::Waiting) return 0;
  const OperationProgress& now = record.Report.Numbers;
  if (now.IsCounting || (now.BytesTotal == 0 && now.ItemsTotal == 0)) return -1;
  return now.BytesTotal > 0 ? PercentOf(now.BytesDone, now.BytesTotal)
                            : PercentOf(now.ItemsDone, now.ItemsTotal);
}

std::string StatusOf(const OperationRecord& record, const platform::NumberForms& forms) {
  if (record.State == OperationState::Waiting) return "Waits for its turn";
  if (record.IsCancelling) return "Cancelling...";
  if (record.IsAsking) return "Waits for your answer";
  if (record.Report.Numbers.IsBySystem) return "The system shows how far it is";
  if (record.IsPaused) return "Paused";
  const OperationProgress& now = record.Report.Numbers;
  if (now.IsCounting) return "Counting...";
  std::string text;
  if (const std::uint64_t speed = record.Meter.BytesPerSecond(); speed > 0) {
    text = platform::Counted(forms, CountedText::SizePerSecond, speed,
                             {lister::ByteText(forms, speed)});
  }
  const auto seconds = record.Meter.SecondsLeft(now.BytesTotal, now.ItemsTotal);
  if (!seconds) return text;
  return (text.empty() ? text : text + " - ") + TimeLeftText(forms, *seconds);
}

std::string FromOf(const OperationRecord& record) {
  if (!record.Report.From.empty() || record.Order.Requests.empty()) return record.Report.From;
  return std::string(base::ItemList(record.Order.Requests.front().Items).First());
}

std::string ToOf(const OperationRecord& record) {
  if (!record.Report.From.empty() || record.Order.Requests.empty()) return record.Report.To;
  return std::string(base::ItemList(record.Order.Requests.front().Destination).First());
}

std::string AmountOf(const OperationRecord& record, const platform::NumberForms& forms) {
  const OperationProgress& now = record.Report.Numbers;
  if (record.State == OperationState::Waiting || now.ItemsTotal == 0) return {};
  std::string text;
  if (now.BytesTotal > 0) {
    text = platform::Counted(
               forms, CountedText::SizeOfSize, now.BytesTotal,
               {lister::ByteText(forms, now.BytesDone), lister::ByteText(forms, now.BytesTotal)}) +
           ", ";
  }
  return text + platform::Counted(forms, CountedText::NumberOfItems, now.ItemsTotal,
                                  {forms.Grouped(now.ItemsDone)});
}

std::string_view PictureOf(const OperationRecord& record) {
  const auto row = std::ranges::find(PictureRows, record.Order.Kind, &PictureRow::Kind);
  return row == PictureRows.end() ? "op_copy" : row->Name;
}

}  // namespace tarnwell::fileops
