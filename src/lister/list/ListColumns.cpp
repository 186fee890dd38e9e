#include "lister/list/ListColumns.h"

#include "lister/list/ListBody.h"
#include "lister/rows/CellText.h"

namespace tarnwell::lister {
namespace {

bool IsHeading(int heading) {
  return heading >= 0 && heading < HeadingCount;
}

}  // namespace

void ListColumns::Click(int heading) {
  if (!IsHeading(heading)) return;
  list_.ActiveHeading = heading;
  list_.View().HeadingsChanged();
}

void ListColumns::Choose(bool left) {
  const int heading = list_.Table.Beside(list_.ActiveHeading, left);
  if (heading < 0) return;
  Click(heading);
  list_.View().ShowHeading(heading);
}

void ListColumns::MoveActive(bool left) {
  if (!list_.Table.Move(list_.ActiveHeading, left)) return;
  list_.View().HeadingsChanged();
  list_.View().ShowHeading(list_.ActiveHeading);
}

void ListColumns::DoubleClick(int heading, bool shift) {
  if (!IsHeading(heading)) return;
  Click(heading);
  const SortKey* const key = list_.Keys.Find(static_cast<HeadingId>(heading));
  // A heading that is among the keys already changes its direction, in a new sort if it is the only
  // one.
  const bool turns =
      key != nullptr && !key->Descending && (shift || list_.Keys.Entries().size() == 1);
  Sort(turns, shift);
}

void ListColumns::Toggle(int heading) {
  if (!IsHeading(heading)) return;
  const auto id = static_cast<HeadingId>(heading);
  const bool shown = list_.Table.IsShown(id);
  if (id == HeadingId::Path) list_.Table.LendsPath = false;
  Set(heading, "active", base::Value(!shown));
  list_.Events.HeadingsChanged(list_.Id);
}

void ListColumns::Set(int heading, std::string_view attribute, const base::Value& value) {
  list_.Table.SetProperty(heading, attribute, value);
  body_.SettingsChanged();
  list_.View().HeadingsChanged();
}

void ListColumns::Fit(const NeedsOf& needsOf) {
  const ListServices& services = list_.Services;
  for (int number = 0; number < HeadingCount; ++number) {
    const auto id = static_cast<HeadingId>(number);
    list_.Table.SetNeeds(id, needsOf(id, SampleText(services.Forms, services.Clock, id),
                                     BriefSample(services.Forms, services.Clock, id)));
  }
  list_.View().HeadingsChanged();
}

void ListColumns::TakeWidths(const ColumnWidths& widths) {
  for (int number = 0; number < HeadingCount; ++number) {
    const base::Twips width = widths[static_cast<std::size_t>(number)];
    if (width > 0) list_.Table.SetProperty(number, "Width", base::Value(width));
  }
  list_.Table.NameSized = true;
  list_.View().HeadingsChanged();
}

void ListColumns::ReleaseWidths() {
  list_.Table.ResetWidths();
  list_.View().HeadingsChanged();
}

void ListColumns::Sort(bool descending, bool adds) {
  const SortKey key{static_cast<HeadingId>(list_.ActiveHeading), descending};
  if (adds) {
    list_.Keys.Add(key);
  } else {
    list_.Keys.StartNew(key);
  }
  Resort();
}

void ListColumns::Resort() {
  body_.Resort();
  list_.View().HeadingsChanged();
}

}  // namespace tarnwell::lister
