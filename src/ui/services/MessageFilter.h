// Notes in the message log what windows and controls are told, and what the controls tell.
//
// Sees every event of the program while it lives. Of keys only those are named that type nothing,
// and controls are called by names of the code's, never by what they show.
#pragma once

#include <QCoreApplication>
#include <QWidget>

#include "tools/MessageLog.h"

namespace tarnwell::ui {

class MessageFilter : public QObject {
  Q_OBJECT

 public:
  MessageFilter(QCoreApplication& application, tools::MessageLog& log);
  ~MessageFilter() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private slots:
  void Notified();

 private:
  void Listen(QObject& control);
  void NoteEvent(const QWidget& widget, const QEvent& event);
  void Note(const QObject& control, const QString& what, tools::Rate rate);

  tools::MessageLog& log_;
};

}  // namespace tarnwell::ui
