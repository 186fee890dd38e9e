// What people are told of an operation in one line, and what they can do with it there. Pure rules.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fileops/OperationQueue.h"
#include "platform/NumberForms.h"

namespace tarnwell::fileops {

enum class OperationDeed : std::uint8_t {
  Pause,
  Continue,
  Answer,  // brings the question
  StartNow,
  MoveUp,
  TakeAway,
  Cancel,
};
inline constexpr std::size_t OperationDeedCount = 7;

std::string_view CaptionOf(OperationDeed deed);

// Whether it can be done with the operation as it is. `isNext` tells that no other waits ahead.
bool CanDo(OperationDeed deed, const OperationRecord& record, bool isNext);

void Do(OperationDeed deed, OperationQueue& queue, platform::OperationId operation);

// 0 to 100; less than 0 while that is not known.
int PercentOf(const OperationRecord& record);

// "12.3 MiB/s, about 5 minutes left", or why it does not go on.
std::string StatusOf(const OperationRecord& record, const platform::NumberForms& forms);

// Paths of the item at hand, and where it goes: the first of all before it begins, and the folder
// that they go to. Empty where they go nowhere.
std::string FromOf(const OperationRecord& record);
std::string ToOf(const OperationRecord& record);

// "1.2 GiB of 5 GiB, 12 of 300 items"; empty before it begins.
std::string AmountOf(const OperationRecord& record, const platform::NumberForms& forms);

// The program's picture of what it does.
std::string_view PictureOf(const OperationRecord& record);

}  // namespace tarnwell::fileops
