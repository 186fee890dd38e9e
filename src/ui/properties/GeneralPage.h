// The first page of a properties window: what the items are, where, how large, and since when.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QWidget>
#include <map>
#include <string>
#include <vector>

#include "ui/operation/OperationTools.h"
#include "ui/properties/PropertiesWork.h"
#include "ui/toolkit/ReadOnlyText.h"

namespace tarnwell::ui {

class GeneralPage : public QWidget {
 public:
  // `paths` outlives the page.
  GeneralPage(const std::vector<std::string>& paths, const OperationTools& tools);

  // To be called again while the count goes on.
  void Show(const FactsReport& report);

 private:
  QString NumberedItems(std::uint64_t count) const;
  bool IsOne() const { return paths_.size() == 1; }
  void ShowFact(const char* caption, const QString& text);
  void ShowCopied(const char* caption, const QString& text);
  void ShowDate(const char* caption, std::int64_t nanoseconds);
  void AddRow(const char* caption, QWidget& value);
  void ShowPicture(const ItemsSummary& summary);
  void ShowType(const FactsReport& report);
  void ShowSizes(const FactsReport& report);
  void ShowOwner(const ItemsSummary& summary);
  void ShowVolume(const ItemsSummary& summary);

  const std::vector<std::string>& paths_;
  const OperationTools tools_;
  QLabel picture_;
  ReadOnlyText* name_;
  QGridLayout* grid_;
  std::map<QByteArray, QWidget*> values_;  // by caption
};

}  // namespace tarnwell::ui
