#include "platform/afar/FarFileSystem.h"

#include "platform/afar/FarFolder.h"

namespace tarnwell::platform {
namespace {

// Its state by a call that may outlast whoever asked: `work` is given a value of its own, which
// becomes the caller's once the call is done.
template <typename Value, typename Work>
base::Status AskFor(const FarCalls& calls, const std::string& path, Value& value, Work work) {
  const auto own = std::make_shared<Value>(value);
  base::Status status = calls.Ask(path, [own, work = std::move(work)] { return work(*own); });
  if (status) value = std::move(*own);
  return status;
}

}  // namespace

std::unique_ptr<OpenedFolder> FarFileSystem::OpenFolder(const std::string& folder,
                                                        base::Status& status) const {
  const FarPlaces* const places = calls_.Places();
  if (places == nullptr) return files_->OpenFolder(folder, status);
  if (!places->Any()) {
    std::shared_ptr<OpenedFolder> opened = files_->OpenFolder(folder, status);
    if (!opened) return nullptr;
    return std::make_unique<NearFolder>(std::move(opened), calls_, folder);
  }
  std::string plain;
  const std::optional<FarPlace> place = places->Find(folder, LastLink::Followed, plain);
  struct Answer {
    std::shared_ptr<OpenedFolder> Folder;
    base::Status Status;
  };
  const auto answer = std::make_shared<Answer>();
  status = calls_.RunAt(place, [answer, files = files_, folder] {
    answer->Folder = files->OpenFolder(folder, answer->Status);
  });
  if (!status) return nullptr;
  status = answer->Status;
  if (!answer->Folder) return nullptr;
  if (place) return std::make_unique<FarFolder>(std::move(answer->Folder), calls_, *place);
  return std::make_unique<NearFolder>(std::move(answer->Folder), calls_, std::move(plain));
}

base::Status FarFileSystem::ReadAttributes(const std::string& folder, const std::string& name,
                                           ItemAttributes& attributes) const {
  const std::string path = name.empty() ? folder : Syntax().Join(folder, name);
  return AskFor(calls_, path, attributes, [files = files_, folder, name](ItemAttributes& own) {
    return files->ReadAttributes(folder, name, own);
  });
}

bool FarFileSystem::FolderExists(const std::string& path) const {
  return calls_.Get<bool>(
      path, [files = files_, path] { return files->FolderExists(path); }, false);
}

bool FarFileSystem::Exists(const std::string& path) const {
  return calls_.Get<bool>(
      path, [files = files_, path] { return files->Exists(path); }, false, LastLink::Itself);
}

std::string FarFileSystem::ReadLink(const std::string& path) const {
  return calls_.Get<std::string>(
      path, [files = files_, path] { return files->ReadLink(path); }, "", LastLink::Itself);
}

base::Status FarFileSystem::CheckTarget(const std::string& path) const {
  return calls_.Ask(path, [files = files_, path] { return files->CheckTarget(path); });
}

base::Status FarFileSystem::MeasureFolder(const std::string& folder, const GoOn& goOn,
                                          FolderTotal& total) const {
  const FarPlaces* const places = calls_.Places();
  if (places == nullptr) return files_->MeasureFolder(folder, goOn, total);
  std::string plain;
  std::optional<FarPlace> place = places->Find(folder, LastLink::Followed, plain);
  // The walk enters no other volume, but has to look at where it is mounted.
  if (!place) place = places->FindBelow(plain);
  return place ? MeasureAt(*place, folder, goOn, total)
               : files_->MeasureFolder(folder, goOn, total);
}

base::Status FarFileSystem::MeasureAt(const FarPlace& place, const std::string& folder,
                                      const GoOn& goOn, FolderTotal& total) const {
  struct Walk {
    CountedFiles Counted;
    FolderTotal SoFar;
    FolderTotal Total;
    base::Status Status;
  };
  const auto walk = std::make_shared<Walk>();
  CountedFiles* const counted = total.Counted;
  if (counted != nullptr) walk->Counted = *counted;
  base::Status status;
  const auto call = calls_.Begin(
      place,
      [walk, files = files_, folder](FarCall& its) {
        walk->Total.Counted = &walk->Counted;
        const auto tell = [&](const FolderTotal& soFar) {
          const std::lock_guard lock(its.Mutex);
          walk->SoFar = soFar;
          return !its.IsLeft;
        };
        walk->Status = files->MeasureFolder(folder, tell, walk->Total);
      },
      status);
  if (!call) return status;
  constexpr std::chrono::milliseconds step(20);
  for (;;) {
    FolderTotal soFar;
    {
      std::unique_lock lock(call->Mutex);
      if (call->Told.wait_for(lock, step, [&] { return call->IsDone; })) break;
      soFar = walk->SoFar;
    }
    if (goOn(soFar)) continue;
    calls_.Leave(place, *call, false);
    total = soFar;
    total.Counted = counted;
    return {};
  }
  if (call->Failure) std::rethrow_exception(call->Failure);
  total = walk->Total;
  total.Counted = counted;
  if (counted != nullptr) *counted = std::move(walk->Counted);
  return walk->Status;
}

base::Status FarFileSystem::ReadSpace(const std::string& folder, Space& space) const {
  return AskFor(calls_, folder, space,
                [files = files_, folder](Space& own) { return files->ReadSpace(folder, own); });
}

base::Status FarFileSystem::WriteExtendedAttribute(const std::string& path,
                                                   ExtendedAttribute attribute,
                                                   const std::string& text) {
  return calls_.Ask(path, [files = files_, path, attribute, text] {
    return files->WriteExtendedAttribute(path, attribute, text);
  });
}

base::Status FarFileSystem::MakeFolder(const std::string& path) {
  return calls_.Ask(
      path, [files = files_, path] { return files->MakeFolder(path); }, LastLink::Itself);
}

base::Status FarFileSystem::Rename(const std::string& from, const std::string& to) {
  const bool isFar = calls_.PlaceOf(from, LastLink::Itself).has_value();
  return calls_.Ask(
      isFar ? from : to, [files = files_, from, to] { return files->Rename(from, to); },
      LastLink::Itself);
}

base::Status FarFileSystem::ReadFile(const std::string& path, std::string& content) const {
  return AskFor(calls_, path, content,
                [files = files_, path](std::string& own) { return files->ReadFile(path, own); });
}

base::Status FarFileSystem::WriteFile(const std::string& path, const std::string& content) {
  return calls_.Ask(path,
                    [files = files_, path, content] { return files->WriteFile(path, content); });
}

base::Status FarFileSystem::RemoveFile(const std::string& path) {
  return calls_.Ask(
      path, [files = files_, path] { return files->RemoveFile(path); }, LastLink::Itself);
}

}  // namespace tarnwell::platform
