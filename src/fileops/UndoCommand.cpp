#include "fileops/UndoCommand.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

#include "fileops/UndoColours.h"
#include "fileops/UndoRules.h"
#include "lister/list/Pacer.h"
#include "lists/ShowPlaced.h"
#include "lists/WatchPanes.h"
#include "platform/CountedTexts.h"

namespace tarnwell::fileops {

using platform::CountedText;

namespace {

struct UndoWords {
  std::string_view Verb;
  std::string_view Doing;
  std::string_view Done;
  std::string_view Left;
  std::string_view Nothing;
};
constexpr UndoWords WordsOfWays[] = {
    {"Undo", "Undoing", "Undone", "Not undone", "There is nothing to undo"},
    {"Redo", "Redoing", "Redone", "Not done again", "There is nothing to do again"}};

const UndoWords& WordsOf(UndoWay way) {
  return WordsOfWays[static_cast<std::size_t>(way)];
}

std::string Named(std::string_view word, const std::string& step) {
  return std::string(word) + ": " + step;
}

// True for as long as it lives.
class BusyScope {
 public:
  explicit BusyScope(bool& flag) : flag_(flag) { flag_ = true; }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;
  ~BusyScope() { flag_ = false; }

 private:
  bool& flag_;
};

std::string LeftText(const ColourOutcome& outcome, const platform::NumberForms& forms) {
  std::string text = "These items keep the colour that they have:\r\n";
  for (const std::string& line : outcome.Left) text += "\r\n" + line;
  const std::size_t more = outcome.LeftCount - outcome.Left.size();
  if (more > 0) text += "\r\n" + platform::Counted(forms, CountedText::AndMore, more);
  return text;
}

}  // namespace

std::string UndoCommand::Caption() const {
  const UndoStep* const step = services_.History.Next(UndoWay::Undo);
  if (step == nullptr) return "";
  return Named(WordsOf(UndoWay::Undo).Verb, TextOf(*step, UndoWay::Undo));
}

void UndoCommand::NoteColours(std::vector<lister::ColouredItem> items) {
  UndoStep step{.Kind = platform::CommandKind::Colour, .Colours = std::move(items)};
  for (const OperationRecord* const record : services_.Operations.Records())
    step.Operation = std::max(step.Operation, record->Id);
  services_.History.Add(std::move(step));
}

std::string UndoCommand::TextOf(const UndoStep& step, UndoWay way) const {
  return StepText(step, way, services_.Files.Syntax(), services_.Forms);
}

void UndoCommand::Show(const std::string& text) {
  auto* const list = workspace_.Lists.Find(workspace_.CurrentList);
  if (list != nullptr) list->ShowStatus(text);
}

bool UndoCommand::HasJustBegun() const {
  const OperationRecord* const record = services_.Operations.Find(last_);
  return record != nullptr && record->IsQuiet;
}

void UndoCommand::TakeBack(UndoWay way) {
  if (isBusy_) return;
  if (HasJustBegun()) return next_.push_back(way);
  {
    const BusyScope busy(isBusy_);
    if (!MayBegin(way)) return;
    if (!services_.History.Next(way)->Colours.empty()) return GiveColoursBack(way);
  }
  Start(way);
}

bool UndoCommand::MayBegin(UndoWay way) {
  const UndoStep* step = services_.History.Next(way);
  if (step == nullptr) {
    Show(std::string(WordsOf(way).Nothing));
    return false;
  }
  for (std::string work = WorkSince(*step); !work.empty();) {
    const std::string text = TextOf(*step, way);
    services_.Messages.Message(
        "This is still at work:\r\n" + work +
            "\r\n\r\nDo you want to leave that to itself, and go on with this?\r\n" +
            Named(WordsOf(way).Verb, text),
        forms::MessageKind::YesNo);
    if (services_.Messages.MessageResult() != "YES") return false;
    // Others may have been done, or begun, while the question was open.
    step = services_.History.Next(way);
    if (step == nullptr) return false;
    if (TextOf(*step, way) == text) break;
    work = WorkSince(*step);
  }
  for (const platform::OperationRequest& request : InverseOf(*step, way)) {
    const std::string refusal = services_.Operations.Refusal(request.Function, request.Items);
    if (refusal.empty()) continue;
    services_.Messages.Message(refusal, forms::MessageKind::Ok);
    return false;
  }
  return true;
}

std::string UndoCommand::WorkSince(const UndoStep& step) const {
  for (const OperationRecord* const record : services_.Operations.Records()) {
    if (record->Id > step.Operation && record->State != OperationState::Done) return record->Title;
  }
  return "";
}

void UndoCommand::Start(UndoWay way) {
  using platform::CommandKind;
  const auto step = std::make_shared<UndoStep>(services_.History.Take(way));
  platform::OperationOrder order{
      .Kind = way == UndoWay::Undo ? CommandKind::Undo : CommandKind::Redo,
      .Requests = InverseOf(*step, way),
      .Title = Named(WordsOf(way).Doing, TextOf(*step, way))};
  lists::WatchBracket watches(workspace_, [this] { lists::WatchResumePanesAll(workspace_); });
  const lister::ListId list = workspace_.CurrentList;
  const lists::CursorMark mark = lists::MarkCursor(workspace_, list);
  last_ = services_.Operations.Start(std::move(order));
  watches.EndAfter(
      services_.Operations, last_,
      [this, way, step, mark, list, operation = last_](const platform::OperationResult& result) {
        const bool stands = lists::StandsAt(workspace_, mark);
        Finish(way, *step, operation, result);
        if (auto* const shown = workspace_.Lists.Find(list)) shown->RefreshList();
        if (stands) lists::ShowPlaced(workspace_, list, result.Placed);
        const UndoWords& words = WordsOf(way);
        Show(Named(result.Done.empty() ? words.Left : words.Done, TextOf(*step, way)));
        if (result.Aborted) next_.clear();
        if (next_.empty()) return;
        const UndoWay next = next_.front();
        next_.pop_front();
        TakeBack(next);
      });
}

void UndoCommand::Finish(UndoWay way, const UndoStep& step, platform::OperationId operation,
                         const platform::OperationResult& result) {
  FollowItems(services_.History, way, step, result, services_.Files.Syntax());
  UndoStep after = StepAfter(step, way, result);
  after.Operation = operation;
  services_.History.Finish(way, std::move(after),
                           result.Aborted ? RestOf(step, result) : UndoStep());
}

void UndoCommand::GiveColoursBack(UndoWay way) {
  const UndoStep step = services_.History.Take(way);
  const std::string text = TextOf(step, way);
  lister::Pacer pace(services_.Clock, services_.Pump);
  givenUp_ = false;
  ColourOutcome outcome = RestoreColours(step.Colours, services_.Files, [&](std::size_t done) {
    if (pace.IsDue()) {
      const auto show = [&](CountedText words) {
        Show(platform::Counted(services_.Forms, words, step.Colours.size(),
                               {Named(WordsOf(way).Doing, text), services_.Forms.Grouped(done)}));
      };
      show(CountedText::GivingColoursBack);
      pace.Pump();
      if (givenUp_) show(CountedText::GivingColoursStopped);
    }
    return !givenUp_;
  });
  UndoStep after{.Kind = step.Kind,
                 .Items = {},
                 .Colours = std::move(outcome.Done),
                 .Irrevocable = 0,
                 .Operation = step.Operation};
  UndoStep rest{.Kind = step.Kind,
                .Items = {},
                .Colours = std::move(outcome.Rest),
                .Irrevocable = 0,
                .Operation = step.Operation};
  services_.History.Finish(way, std::move(after), std::move(rest));
  if (givenUp_) return;
  if (auto* const list = workspace_.Lists.Find(workspace_.CurrentList)) list->RefreshList();
  Show(Named(WordsOf(way).Done, text));
  if (outcome.LeftCount > 0)
    services_.Messages.Message(LeftText(outcome, services_.Forms), forms::MessageKind::Ok);
}

}  // namespace tarnwell::fileops
