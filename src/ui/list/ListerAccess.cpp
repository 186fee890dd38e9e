#include "ui/list/ListerAccess.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QHeaderView>
#include <cstddef>
#include <utility>
#include <vector>

#include "ui/list/ListerTree.h"

namespace tarnwell::ui {
namespace {

// Passes everything on to what the toolkit makes.
class PassedOn : public QAccessibleInterface {
 public:
  bool isValid() const override { return Made() != nullptr && Made()->isValid(); }
  QObject* object() const override { return Made()->object(); }
  QWindow* window() const override { return Made()->window(); }
  QList<std::pair<QAccessibleInterface*, QAccessible::Relation>> relations(
      QAccessible::Relation match) const override {
    return Made()->relations(match);
  }
  QAccessibleInterface* focusChild() const override { return Made()->focusChild(); }
  QAccessibleInterface* childAt(int x, int y) const override { return Made()->childAt(x, y); }
  QAccessibleInterface* parent() const override { return Made()->parent(); }
  QAccessibleInterface* child(int place) const override { return Made()->child(place); }
  int childCount() const override { return Made()->childCount(); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return Made()->indexOfChild(child);
  }
  QString text(QAccessible::Text kind) const override { return Made()->text(kind); }
  void setText(QAccessible::Text kind, const QString& text) override {
    Made()->setText(kind, text);
  }
  QRect rect() const override { return Made()->rect(); }
  QAccessible::Role role() const override { return Made()->role(); }
  QAccessible::State state() const override { return Made()->state(); }
  QColor foregroundColor() const override { return Made()->foregroundColor(); }
  QColor backgroundColor() const override { return Made()->backgroundColor(); }
  void virtual_hook(int id, void* data) override { Made()->virtual_hook(id, data); }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return Made()->interface_cast(type);
  }

 private:
  virtual QAccessibleInterface* Made() const = 0;
};

class HeadingAccess final : public PassedOn {
 public:
  HeadingAccess(const QAccessibleInterface& list, const QTreeView& tree, int section)
      : list_(list), tree_(tree), section_(section) {}

  QObject* object() const override { return nullptr; }
  QAccessible::State state() const override {
    QAccessible::State state = PassedOn::state();
    state.invisible = state.invisible || tree_.header()->isSectionHidden(section_);
    return state;
  }

 private:
  // The toolkit makes it anew when rows come.
  QAccessibleInterface* Made() const override { return list_.child(section_); }

  const QAccessibleInterface& list_;  // as the toolkit has made it
  const QTreeView& tree_;
  const int section_;
};

// The first children are the headings, in the order of their sections.
class ListAccess final : public PassedOn {
 public:
  ListAccess(QAccessibleInterface& made, const QTreeView& tree)
      : made_(made), id_(QAccessible::uniqueId(&made)) {
    for (int section = 0; section < lister::HeadingCount; ++section) {
      headings_.push_back(
          QAccessible::registerAccessibleInterface(new HeadingAccess(made, tree, section)));
    }
  }
  ~ListAccess() override {
    for (const QAccessible::Id heading : headings_) QAccessible::deleteAccessibleInterface(heading);
    QAccessible::deleteAccessibleInterface(id_);  // the toolkit keeps it until it is told so
  }

  QAccessibleInterface* child(int place) const override {
    const bool isHeading = place >= 0 && place < static_cast<int>(headings_.size());
    return isHeading ? QAccessible::accessibleInterface(headings_[static_cast<std::size_t>(place)])
                     : PassedOn::child(place);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (int place = 0; place < static_cast<int>(headings_.size()); ++place) {
      if (this->child(place) == child) return place;
    }
    return PassedOn::indexOfChild(child);
  }

 private:
  QAccessibleInterface* Made() const override { return &made_; }

  QAccessibleInterface& made_;
  const QAccessible::Id id_;
  std::vector<QAccessible::Id> headings_;
};

QAccessibleInterface* MakeListAccess(const QString&, QObject* object) {
  static bool asking = false;
  auto* const tree = qobject_cast<ListerTree*>(object);
  if (tree == nullptr || asking) return nullptr;  // the toolkit makes its own
  asking = true;
  QAccessibleInterface* const made = QAccessible::queryAccessibleInterface(tree);
  asking = false;
  return made != nullptr ? new ListAccess(*made, *tree) : nullptr;
}

}  // namespace

void TellOfHiddenHeadings() {
  QAccessible::installFactory(&MakeListAccess);
}

}  // namespace tarnwell::ui
