#include "ui/properties/GeneralPage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"

namespace tarnwell::ui {
namespace {

using platform::CountedText;
using platform::ItemFacts;
using platform::ItemKind;

constexpr int ItemPictureSize = 48;  // logical pixels
constexpr int GeneralRowSpacing = 7;
constexpr int ValueWidth = 330;
constexpr int CaptionWidth = 92;
constexpr int MostLines = 6;
constexpr const char* Various = "various";

QString TypeText(const ItemFacts& facts, bool withName) {
  if (facts.IsBroken) return QStringLiteral("Broken link");
  QString text = ToQString(facts.Type);
  if (!text.isEmpty()) text.replace(0, 1, text.left(1).toUpper());
  const bool isKnown = withName && facts.Kind != ItemKind::Folder && !facts.TypeName.empty();
  if (isKnown) text += QStringLiteral(" (%1)").arg(ToQString(facts.TypeName));
  return facts.IsLink ? QStringLiteral("Link to: ") + text : text;
}

}  // namespace

GeneralPage::GeneralPage(const std::vector<std::string>& paths, const OperationTools& tools)
    : paths_(paths),
      tools_(tools),
      name_(new ReadOnlyText(CaptionWidth + ValueWidth - ItemPictureSize, MostLines, this)),
      grid_(new QGridLayout) {
  picture_.setFixedSize(ItemPictureSize, ItemPictureSize);
  picture_.setAlignment(Qt::AlignCenter);
  QFont bold = name_->font();
  bold.setBold(true);
  name_->setFont(bold);
  name_->setAccessibleName(QStringLiteral("Name"));
  name_->ShowText(IsOne() ? ToQString(lister::NameText(tools_.Syntax, paths_.front()))
                          : NumberedItems(paths_.size()));
  auto* const head = new QHBoxLayout;
  head->setSpacing(PageSpacing);
  head->addWidget(&picture_, 0, Qt::AlignTop);
  head->addWidget(name_, 0, Qt::AlignVCenter);
  head->addStretch();
  auto* const line = new QFrame(this);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  grid_->setHorizontalSpacing(PageSpacing);
  grid_->setVerticalSpacing(GeneralRowSpacing);
  grid_->setColumnMinimumWidth(0, CaptionWidth);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(PageSpacing);
  column->addLayout(head);
  column->addWidget(line);
  column->addLayout(grid_);
  column->addStretch();
}

QString GeneralPage::NumberedItems(std::uint64_t count) const {
  return ToQString(platform::Counted(tools_.Forms, CountedText::Items, count));
}

void GeneralPage::AddRow(const char* caption, QWidget& value) {
  auto* const label = new QLabel(QLatin1String(caption) + ':', this);
  const int row = grid_->rowCount();
  grid_->addWidget(label, row, 0, Qt::AlignTop);
  grid_->addWidget(&value, row, 1, Qt::AlignTop);
  values_[caption] = &value;
}

void GeneralPage::ShowFact(const char* caption, const QString& text) {
  QWidget*& value = values_[caption];
  if (value == nullptr) {
    auto* const made = new QLabel(this);
    made->setTextFormat(Qt::PlainText);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse);
    made->setWordWrap(true);
    // Beside its caption, also in a script that is written from right to left.
    made->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
    made->setFixedWidth(ValueWidth);
    AddRow(caption, *made);
  }
  auto* const label = static_cast<QLabel*>(value);
  if (label->text() == text) return;
  label->setText(text);
  label->setAccessibleName(QLatin1String(caption) + QStringLiteral(": ") + text);
}

void GeneralPage::ShowCopied(const char* caption, const QString& text) {
  QWidget*& value = values_[caption];
  if (value == nullptr) {
    auto* const made = new ReadOnlyText(ValueWidth, MostLines, this);
    made->setAccessibleName(QLatin1String(caption));
    AddRow(caption, *made);
  }
  static_cast<ReadOnlyText*>(value)->ShowText(text);
}

void GeneralPage::ShowDate(const char* caption, std::int64_t nanoseconds) {
  const std::string text = lister::DateText(tools_.Forms, tools_.Clock, nanoseconds);
  if (!text.empty()) ShowFact(caption, ToQString(text));
}

void GeneralPage::Show(const FactsReport& report) {
  const ItemsSummary& summary = report.Summary;
  const std::string folder = tools_.Syntax.ParentOf(paths_.front());
  const bool sameFolder = std::ranges::all_of(paths_, [&](const std::string& path) {
    return tools_.Syntax.Same(tools_.Syntax.ParentOf(path), folder);
  });
  if (report.HasSummary) ShowPicture(summary);
  ShowType(report);
  ShowCopied("Location", sameFolder ? ToShownQString(folder) : QStringLiteral("various folders"));
  if (!report.HasSummary) return;
  if (IsOne() && summary.First.IsLink) {
    ShowCopied("Leads to", ToShownQString(summary.First.LinkTarget));
  }
  if (summary.Count > 0) {
    ShowSizes(report);
    if (IsOne()) {
      ShowDate("Modified", summary.First.Modified);
      ShowDate("Accessed", summary.First.Accessed);
      ShowDate("Created", summary.First.Created);
    }
    ShowOwner(summary);
    ShowVolume(summary);
  }
  if (!summary.Unread.empty()) {
    const auto& [path, reason] = summary.Unread.front();
    std::string text = lister::CannotRead(path, reason);
    if (const std::size_t more = summary.Unread.size() - 1; more > 0) {
      text = platform::Counted(tools_.Forms, CountedText::WithMoreItems, more, {text});
    }
    ShowCopied("Problem", ToShownQString(text));
  }
}

void GeneralPage::ShowPicture(const ItemsSummary& summary) {
  const bool isFolder =
      summary.Count > 0 && (IsOne() ? summary.First.Kind == ItemKind::Folder : summary.Files == 0);
  const bool isDrive = IsOne() && tools_.Syntax.Same(summary.Volume.MountPoint, paths_.front());
  const QIcon icon = isDrive    ? tools_.Icons.Drive()
                     : isFolder ? tools_.Icons.Folder()
                     : IsOne()  ? tools_.Icons.File(paths_.front())
                                : tools_.Icons.AnyFile();
  picture_.setPixmap(icon.pixmap(QSize(ItemPictureSize, ItemPictureSize), devicePixelRatio()));
}

void GeneralPage::ShowType(const FactsReport& report) {
  const ItemsSummary& summary = report.Summary;
  if (summary.Count == 0) {
    const char* const text = report.HasSummary ? "unknown" : "reading...";
    return ShowFact("Type", QString::fromLatin1(text));
  }
  ShowFact("Type", summary.SameType ? TypeText(summary.First, summary.SameTypeName)
                                    : QString::fromLatin1(Various));
}

void GeneralPage::ShowSizes(const FactsReport& report) {
  const ItemsSummary& summary = report.Summary;
  const ItemFacts& first = summary.First;
  if (IsOne() && (first.IsLink || first.Kind == ItemKind::Other)) return;
  const bool counts = summary.Folders > 0 || !IsOne();
  const std::uint64_t size = counts ? report.Total.Bytes : first.Size;
  const std::uint64_t onDisk = counts ? report.Total.OnDisk : first.SizeOnDisk;
  ShowFact("Size", ToQString(lister::SizeText(tools_.Forms, size)));
  ShowFact("Size on disk", ToQString(lister::SizeText(tools_.Forms, onDisk)));
  if (counts) {
    const platform::NumberForms& forms = tools_.Forms;
    QString text =
        ToQString(platform::Counted(forms, CountedText::Files, report.Total.Files) + ", " +
                  platform::Counted(forms, CountedText::Folders, report.Total.Folders));
    if (!report.IsCounted) text += QStringLiteral(", counting...");
    if (report.Total.Unreadable > 0) {
      text +=
          '\n' + ToQString(platform::Counted(forms, CountedText::NotRead, report.Total.Unreadable,
                                             {report.Total.Trouble.Reason}));
    }
    ShowFact("Contents", text);
  } else if (first.HardLinks > 1) {
    ShowFact("Hard links", ToQString(tools_.Forms.Grouped(first.HardLinks)));
  }
}

void GeneralPage::ShowOwner(const ItemsSummary& summary) {
  const auto text = [](bool same, const std::string& name) {
    return same ? ToQString(name) : QString::fromLatin1(Various);
  };
  ShowFact("Owner", text(summary.SameOwner, summary.First.Owner));
  ShowFact("Group", text(summary.SameGroup, summary.First.Group));
}

void GeneralPage::ShowVolume(const ItemsSummary& summary) {
  const platform::VolumeFacts& volume = summary.Volume;
  if (summary.Folders == 0 || volume.MountPoint.empty()) return;
  ShowFact("Volume", QStringLiteral("%1 (%2)").arg(ToShownQString(volume.MountPoint),
                                                   ToQString(volume.FileSystem)));
  if (volume.Space.Total == 0) return;
  ShowFact("Free space",
           ToQString(platform::Counted(tools_.Forms, CountedText::SizeOfSize, volume.Space.Total,
                                       {lister::ByteText(tools_.Forms, volume.Space.Free),
                                        lister::ByteText(tools_.Forms, volume.Space.Total)})));
}

}  // namespace tarnwell::ui
