#include "lister/list/FolderSizes.h"

#include <algorithm>
#include <utility>

#include "lister/list/Pacer.h"
#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

using platform::CountedText;

using platform::FolderTotal;

struct FolderSizes::Job {
  Job(const ListState& list, bool isAll, std::string place, std::vector<Target> folders)
      : IsAll(isAll),
        Place(std::move(place)),
        Folders(std::move(folders)),
        Pace(list.Services.Clock, list.Services.Pump) {}

  const bool IsAll;
  const std::string Place;
  std::vector<Target> Folders;
  Pacer Pace;
  FolderSizes::Standing Standing = FolderSizes::Standing::Going;
  std::size_t Done = 0;
  FolderTotal Sum;  // of the folders that are done
  platform::CountedFiles Counted;
  FolderTotal Current;         // of the one that is being measured, so far
  std::uint64_t Troubled = 0;  // folders that could not be read to their end
  std::string Trouble;         // what was wrong with the first of them
};

namespace {

void Add(FolderTotal& sum, const FolderTotal& other) {
  sum.Bytes += other.Bytes - other.RepeatedBytes;
  sum.Files += other.Files;
  sum.Folders += other.Folders;
}

std::string Content(const platform::NumberForms& forms, const FolderTotal& total) {
  return platform::Counted(forms, CountedText::ItemsOfSize, total.Files + total.Folders,
                           {ByteText(forms, total.Bytes)});
}

}  // namespace

void FolderSizes::AskForAll() {
  DropWishesFromElsewhere();
  if (job_ == nullptr || !job_->IsAll || job_->Place != Place()) allAsked_ = true;
}

void FolderSizes::AskForItem() {
  const RowId row = list_.View().RowUnderPointer();
  if (!IsFolder(row)) return;
  DropWishesFromElsewhere();
  Target folder{row, PathOf(row)};
  if (std::ranges::none_of(itemsAsked_, [&](auto& asked) { return asked.Path == folder.Path; })) {
    itemsAsked_.push_back(std::move(folder));
  }
}

void FolderSizes::DropWishes() {
  allAsked_ = false;
  itemsAsked_.clear();
}

void FolderSizes::DropWishesFromElsewhere() {
  std::string here = Place();
  if (here != place_) DropWishes();
  place_ = std::move(here);
}

void FolderSizes::HeedCancel() {
  if (job_ != nullptr) LookAround(*job_);
}

void FolderSizes::Work() {
  DropWishesFromElsewhere();
  while (job_ == nullptr && !list_.IsTerminated && HasWishes()) {
    std::vector<Target> folders;
    const bool isAll = std::exchange(allAsked_, false);
    if (isAll) {
      for (const RowId row : Folders()) folders.push_back({row, PathOf(row)});
    } else {
      folders.push_back(std::move(itemsAsked_.front()));
      itemsAsked_.pop_front();
    }
    Job job(list_, isAll, Place(), std::move(folders));
    job_ = &job;
    const struct Release {
      Job*& Slot;
      ~Release() { Slot = nullptr; }
    } release{job_};
    Perform(job);
  }
}

void FolderSizes::Perform(Job& job) {
  list_.Fields.CancelRequested = false;
  const platform::WaitScope waits(list_.Services.Pump,
                                  [&](const std::string&) { return GoesOn(job); });
  for (const Target& folder : job.Folders) {
    if (!GoesOn(job)) break;
    Measure(job, folder);
  }
  if (job.Standing == Standing::Superseded) return;
  if (job.Standing == Standing::Cancelled) {
    list_.Fields.CancelRequested = false;
    DropWishes();
  }
  if (job.Done > 0) Finish();
  if (job.IsAll || job.Done + job.Troubled > 0 || job.Standing == Standing::Cancelled) {
    list_.SetStatus(Summary(job));
  }
}

void FolderSizes::Measure(Job& job, const Target& folder) {
  const auto isThere = [&] { return IsFolder(folder.Row) && PathOf(folder.Row) == folder.Path; };
  if (!isThere()) return;
  const platform::FileSystem& files = list_.Services.Files;
  platform::ItemAttributes attributes;
  FolderTotal total;
  total.Counted = &job.Counted;
  base::Status status = files.ReadAttributes(folder.Path, "", attributes);
  const bool isSeen = status.Code == 0;
  if (isSeen) {
    const auto goOn = [&](const FolderTotal& soFar) {
      job.Current = soFar;
      return GoesOn(job);
    };
    status = files.MeasureFolder(folder.Path, goOn, total);
  }
  job.Current = {};
  if (job.Standing != Standing::Going) return;
  if (!status || total.Unreadable > 0) NoteTrouble(job, folder, status, total);
  if (!isSeen) return;
  if (status) {
    Add(job.Sum, total);
    ++job.Done;
  }
  const FolderSize size{total.Bytes, status.Code == 0 && total.Unreadable == 0};
  sizes_.Keep(folder.Path, attributes.Modified, size);
  if (isThere()) Show(folder.Row, size);
}

void FolderSizes::NoteTrouble(Job& job, const Target& folder, const base::Status& status,
                              const FolderTotal& total) const {
  if (job.Troubled++ > 0) return;
  const platform::NumberForms& forms = list_.Services.Forms;
  job.Trouble = status
                    ? platform::Counted(forms, CountedText::NotReadIn, total.Unreadable,
                                        {NameText(list_.Syntax, folder.Path), total.Trouble.Reason})
                    : CannotRead(folder.Path, status);
}

bool FolderSizes::GoesOn(Job& job) {
  if (job.Standing == Standing::Going && job.Pace.IsDue()) {
    list_.SetStatus(Progress(job));
    job.Pace.Pump();
    LookAround(job);
  }
  return job.Standing == Standing::Going;
}

void FolderSizes::LookAround(Job& job) const {
  if (list_.IsTerminated || job.Place != Place()) {
    job.Standing = Standing::Superseded;
  } else if (list_.Fields.CancelRequested && job.Standing == Standing::Going) {
    job.Standing = Standing::Cancelled;
  }
}

std::string FolderSizes::Progress(const Job& job) const {
  const platform::NumberForms& forms = list_.Services.Forms;
  FolderTotal total = job.Sum;
  Add(total, job.Current);
  const std::string content = Content(forms, total);
  return job.IsAll ? platform::Counted(forms, CountedText::Sizing, job.Folders.size(),
                                       {forms.Grouped(job.Done), content})
                   : platform::Filled("Size of %1: %2; Escape stops",
                                      {NameText(list_.Syntax, job.Folders[0].Path), content});
}

std::string FolderSizes::Summary(const Job& job) const {
  const platform::NumberForms& forms = list_.Services.Forms;
  std::string text;
  if (job.Standing == Standing::Cancelled) {
    text = platform::Counted(forms, CountedText::SizingStopped, job.Folders.size(),
                             {forms.Grouped(job.Done)});
  } else if (job.IsAll) {
    text = platform::Counted(forms, CountedText::Sized, job.Done, {Content(forms, job.Sum)});
  } else if (job.Done > 0) {
    text = platform::Filled("Size of %1: %2",
                            {NameText(list_.Syntax, job.Folders[0].Path), Content(forms, job.Sum)});
  }
  if (job.Troubled > 0) text += (text.empty() ? "" : ". ") + job.Trouble;
  if (job.Troubled > 1) {
    text = platform::Counted(forms, CountedText::WithMoreFolders, job.Troubled - 1, {text});
  }
  return text;
}

}  // namespace tarnwell::lister
