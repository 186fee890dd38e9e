// The questions of a running file operation, each in its window. Nothing is decided here; Enter and
// Escape give the answers that lose nothing.
#pragma once

#include <functional>
#include <memory>

#include "ui/operation/OperationMailbox.h"
#include "ui/operation/OperationTools.h"
#include "ui/operation/QuestionWindow.h"

namespace tarnwell::ui {

// Runs once, inside an event of the window, with the alternative that belongs to the question.
using TakeAnswer = std::function<void(const OperationAnswer&)>;

std::unique_ptr<QuestionWindow> WindowOf(const ConflictQuestion& question,
                                         const OperationTools& tools, TakeAnswer take);
std::unique_ptr<QuestionWindow> WindowOf(const platform::OperationTrouble& trouble,
                                         const OperationTools& tools, TakeAnswer take);
std::unique_ptr<QuestionWindow> WindowOf(const NoTrashQuestion& question,
                                         const OperationTools& tools, TakeAnswer take);
std::unique_ptr<QuestionWindow> WindowOf(const LossQuestion& question, const OperationTools& tools,
                                         TakeAnswer take);
std::unique_ptr<QuestionWindow> WindowOf(const MissingFolderQuestion& question,
                                         const OperationTools& tools, TakeAnswer take);
// `seen` runs once, likewise.
std::unique_ptr<QuestionWindow> WindowOf(const OperationRemarks& remarks,
                                         const OperationTools& tools, std::function<void()> seen);

}  // namespace tarnwell::ui
