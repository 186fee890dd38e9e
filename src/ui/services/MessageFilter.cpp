#include "ui/services/MessageFilter.h"

#include <QAction>
#include <QActionEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMetaEnum>
#include <QMouseEvent>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QVariant>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>

namespace tarnwell::ui {
namespace {

using tools::Rate;

QString PointText(QPoint point) {
  return QStringLiteral(" %1,%2").arg(point.x()).arg(point.y());
}

// " Shift+Control+"; empty for none.
QString ModifierText(Qt::KeyboardModifiers modifiers) {
  QString text;
  for (const Qt::KeyboardModifier each :
       {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    if (!modifiers.testFlag(each)) continue;
    text += QLatin1String(QMetaEnum::fromType<Qt::KeyboardModifiers>().valueToKey(each));
    text.replace(QLatin1String("Modifier"), QLatin1String("+"));
  }
  return text;
}

// Keys that may be a part of what is typed are all called "key", with or without the Shift key.
QString KeyText(const QEvent& event) {
  const auto& key = static_cast<const QKeyEvent&>(event);
  const bool composes =
      key.key() >= Qt::Key_Multi_key && key.key() <= Qt::Key_Dead_Longsolidusoverlay;
  const bool types = key.key() < Qt::Key_Escape || key.key() == Qt::Key_unknown || composes;
  const QLatin1String name(QMetaEnum::fromType<Qt::Key>().valueToKey(key.key()));
  const Qt::KeyboardModifiers shown =
      types ? key.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier) : key.modifiers();
  QString text = u' ' + ModifierText(shown);
  text += types || name.isEmpty() ? QStringLiteral("key") : QString(name).remove("Key_");
  return key.isAutoRepeat() ? text + QStringLiteral(" repeated") : text;
}

QString MouseText(const QEvent& event) {
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  const QLatin1String name(
      QMetaEnum::fromType<Qt::MouseButtons>().valueToKey(static_cast<int>(mouse.button())));
  return u' ' + ModifierText(mouse.modifiers()) + name + PointText(mouse.position().toPoint());
}

QString WheelText(const QEvent& event) {
  const auto& wheel = static_cast<const QWheelEvent&>(event);
  return u' ' + ModifierText(wheel.modifiers()) + PointText(wheel.angleDelta()).mid(1);
}

QString FocusText(const QEvent& event) {
  const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
  return u' ' + QString(QMetaEnum::fromType<Qt::FocusReason>().valueToKey(reason));
}

QString MoveText(const QEvent& event) {
  return PointText(static_cast<const QMoveEvent&>(event).pos());
}

QString ResizeText(const QEvent& event) {
  const QSize size = static_cast<const QResizeEvent&>(event).size();
  return QStringLiteral(" %1x%2").arg(size.width()).arg(size.height());
}

enum class Of {
  All,
  Focused,   // and what has a name, and windows
  Named,     // and windows
  Shown,     // of the named ones
  InWindow,  // and windows; not what only comes and goes with its window
  Windows,
  Forms,  // whatever of a form it happens to
};

struct LoggedEvent {
  QEvent::Type Type;
  Of Whom = Of::All;
  Rate How = Rate::Each;
  QString (*Detail)(const QEvent&) = nullptr;
};
constexpr LoggedEvent LoggedEvents[] = {
    {QEvent::MouseButtonPress, Of::All, Rate::Each, MouseText},
    {QEvent::MouseButtonRelease, Of::All, Rate::Each, MouseText},
    {QEvent::MouseButtonDblClick, Of::All, Rate::Each, MouseText},
    {QEvent::MouseMove, Of::All, Rate::Often},
    {QEvent::Wheel, Of::All, Rate::Often, WheelText},
    {QEvent::ContextMenu, Of::All},
    {QEvent::ShortcutOverride, Of::Windows, Rate::Each, KeyText},  // a form acts on some keys here
    {QEvent::KeyPress, Of::Focused, Rate::Each, KeyText},
    {QEvent::KeyRelease, Of::Focused, Rate::Each, KeyText},
    {QEvent::InputMethod, Of::Focused},
    {QEvent::Shortcut, Of::All},
    {QEvent::FocusIn, Of::All, Rate::Each, FocusText},
    {QEvent::FocusOut, Of::All, Rate::Each, FocusText},
    {QEvent::Enter, Of::Named},
    {QEvent::Leave, Of::Named},
    {QEvent::DragEnter, Of::All},
    {QEvent::DragMove, Of::All, Rate::Often},
    {QEvent::DragLeave, Of::All},
    {QEvent::Drop, Of::All},
    {QEvent::Show, Of::InWindow},
    {QEvent::Hide, Of::InWindow},
    {QEvent::Move, Of::Shown, Rate::Each, MoveText},
    {QEvent::Resize, Of::Shown, Rate::Each, ResizeText},
    {QEvent::EnabledChange, Of::Shown},
    {QEvent::Paint, Of::Forms, Rate::Masses},
    {QEvent::PaletteChange, Of::Forms, Rate::Masses},
    {QEvent::FontChange, Of::Forms, Rate::Masses},
    {QEvent::Close, Of::Windows},
    {QEvent::WindowActivate, Of::Windows},
    {QEvent::WindowDeactivate, Of::Windows},
    {QEvent::WindowBlocked, Of::Windows},
    {QEvent::WindowUnblocked, Of::Windows},
    {QEvent::WindowStateChange, Of::Windows},
};

struct Notification {
  const char* Class;
  const char* Signal;
  const char* Property = nullptr;  // noted with it, where it tells nothing that was typed
};
constexpr Notification Notifications[] = {
    {"QAbstractButton", "clicked(bool)"},
    {"QAbstractButton", "toggled(bool)", "checked"},
    {"QAction", "triggered(bool)"},
    {"QAction", "toggled(bool)", "checked"},
    {"QLineEdit", "textChanged(QString)"},
    {"QLineEdit", "returnPressed()"},
    {"QLineEdit", "editingFinished()"},
    {"QTextEdit", "textChanged()"},
    {"QPlainTextEdit", "textChanged()"},
    {"QComboBox", "activated(int)", "currentIndex"},
    {"QComboBox", "currentIndexChanged(int)", "currentIndex"},
    {"QTabBar", "currentChanged(int)", "currentIndex"},
    {"QAbstractSlider", "actionTriggered(int)"},
    {"QAbstractItemView", "clicked(QModelIndex)"},
    {"QAbstractItemView", "doubleClicked(QModelIndex)"},
    {"QAbstractItemView", "activated(QModelIndex)"},
    {"QHeaderView", "sectionClicked(int)"},
    {"QHeaderView", "sectionMoved(int,int,int)"},
    {"QDialog", "finished(int)"},
};

constexpr QLatin1String ToolkitPrefix("qt_");  // of names that the toolkit gives to its own parts

// Of other classes, labels above all, the accessible name is what they show.
constexpr const char* ClassesWithNames[] = {"QAbstractButton",  "QLineEdit",         "QComboBox",
                                            "QAbstractSpinBox", "QAbstractItemView", "QToolBar"};

// A form's menus and lists that drop down are the form's own.
const QWidget& FormOf(const QWidget& widget) {
  const QWidget* window = widget.window();
  while (window->windowType() == Qt::Popup && window->parentWidget() != nullptr) {
    window = window->parentWidget()->window();
  }
  return *window;
}

QString NameOrClass(const QObject& object) {
  QString name = object.objectName();
  if (!name.isEmpty() && !name.startsWith(ToolkitPrefix)) return name;
  const QLatin1String type(object.metaObject()->className());
  return type.mid(type.lastIndexOf(':') + 1);
}

// Empty where it has none.
QString OwnName(const QObject& object) {
  QString name = object.objectName();
  if (!name.isEmpty() && !name.startsWith(ToolkitPrefix)) return name;
  const bool named = std::ranges::any_of(
      ClassesWithNames, [&object](const char* each) { return object.inherits(each); });
  if (!named) return {};
  QString accessible = static_cast<const QWidget&>(object).accessibleName();
  if (!accessible.isEmpty()) return accessible;
  return object.inherits("QAbstractButton") ? object.property("text").toString().remove('&')
                                            : QString();
}

// A control without a name is told by its class, after the next above it that has one.
QString ControlName(const QObject& control, const QWidget& form) {
  if (&control == &form) return {};
  QString own = OwnName(control);
  if (!own.isEmpty()) return own;
  if (control.objectName() == QLatin1String("qt_scrollarea_viewport")) {
    return ControlName(*control.parent(), form);  // what is shown in it is the control's
  }
  QString kind = NameOrClass(control);
  for (const QObject* above = control.parent(); above != nullptr && above != &form;
       above = above->parent()) {
    QString name = OwnName(*above);
    if (!name.isEmpty()) return name + QLatin1String(" > ") + kind;
  }
  return kind;
}

bool Concerns(Of whom, const QWidget& widget) {
  const bool named = widget.isWindow() || !OwnName(widget).isEmpty();
  switch (whom) {
    case Of::All:
      return true;
    case Of::Focused:
      return named || widget.hasFocus();
    case Of::Named:
      return named;
    case Of::Shown:
      return named && widget.isVisible();
    case Of::InWindow: {
      const QWindow* const shown = widget.window()->windowHandle();
      return widget.isWindow() || (named && shown != nullptr && shown->isVisible());
    }
    case Of::Windows:
      return widget.isWindow();
    case Of::Forms:
      return widget.isVisible();
  }
  return false;
}

// Even the number of keys would tell of it.
bool HidesText(const QObject& control) {
  const auto* const widget = qobject_cast<const QWidget*>(&control);
  return widget != nullptr && widget->inputMethodHints().testFlag(Qt::ImhHiddenText);
}

}  // namespace

MessageFilter::MessageFilter(QCoreApplication& application, tools::MessageLog& log) : log_(log) {
  const QString start = QStringLiteral("start, Qt %1, %2")
                            .arg(QLatin1String(qVersion()), QGuiApplication::platformName());
  log_.Note("Tarnwell", {}, start.toStdString());
  application.installEventFilter(this);
}

MessageFilter::~MessageFilter() {
  log_.Note("Tarnwell", {}, "end");
}

bool MessageFilter::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType()) return false;
  const auto& widget = static_cast<const QWidget&>(*watched);
  if (event->type() == QEvent::Polish) Listen(*watched);
  if (event->type() == QEvent::ActionAdded) Listen(*static_cast<QActionEvent*>(event)->action());
  NoteEvent(widget, *event);
  return false;
}

void MessageFilter::NoteEvent(const QWidget& widget, const QEvent& event) {
  const auto* const logged = std::ranges::find(LoggedEvents, event.type(), &LoggedEvent::Type);
  if (logged == std::end(LoggedEvents) || !Concerns(logged->Whom, widget)) return;
  const bool ofTyping = logged->Detail == KeyText || event.type() == QEvent::InputMethod;
  const QWidget* const typist = widget.window()->focusWidget();
  if (ofTyping && (HidesText(widget) || (typist != nullptr && HidesText(*typist)))) return;
  QString what = QString::fromLatin1(QMetaEnum::fromType<QEvent::Type>().valueToKey(event.type()));
  if (logged->Detail != nullptr) what += logged->Detail(event);
  Note(logged->Whom == Of::Forms ? FormOf(widget) : widget, what, logged->How);
}

// To a control that is listened to already this adds nothing.
void MessageFilter::Listen(QObject& control) {
  const QMetaObject& own = *metaObject();
  const QMetaMethod slot = own.method(own.indexOfSlot("Notified()"));
  for (const Notification& each : Notifications) {
    if (!control.inherits(each.Class)) continue;
    const QMetaObject& its = *control.metaObject();
    connect(&control, its.method(its.indexOfSignal(each.Signal)), this, slot, Qt::UniqueConnection);
  }
}

void MessageFilter::Notified() {
  const QObject& control = *sender();
  if (HidesText(control)) return;
  const QMetaMethod signal = control.metaObject()->method(senderSignalIndex());
  const QByteArray signature = signal.methodSignature();
  const auto* const known = std::ranges::find_if(
      Notifications, [&signature](const Notification& each) { return signature == each.Signal; });
  QString what = QString::fromLatin1(signal.name());
  if (known != std::end(Notifications) && known->Property != nullptr) {
    what += u' ' + control.property(known->Property).toString();
  }
  Note(control, what, Rate::Each);
}

void MessageFilter::Note(const QObject& control, const QString& what, Rate rate) {
  const QObject* owner = &control;  // of an action, the first widget that it belongs to
  while (owner != nullptr && !owner->isWidgetType()) owner = owner->parent();
  QString form;
  QString name = NameOrClass(control);
  if (owner != nullptr) {
    const QWidget& window = FormOf(static_cast<const QWidget&>(*owner));
    form = NameOrClass(window);
    name = ControlName(control, window);
  }
  log_.Note(form.toStdString(), name.toStdString(), what.toStdString(), rate);
}

}  // namespace tarnwell::ui
