// The frame of a question, such as a running file operation asks: a picture, what it is about,
// facts, a check box maybe, and buttons. Gives its answer once.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QVBoxLayout>
#include <functional>
#include <string>

namespace tarnwell::ui {

class QuestionWindow : public QDialog {
 public:
  using Choice = std::function<void()>;

  QuestionWindow(const QString& title, const QString& heading, const QIcon& picture);

  // From the top down.
  void AddText(const QString& text);
  // One line: bytes of a name or path, given up in the middle where it is too long.
  void AddPath(const QString& caption, const std::string& path);
  void AddFact(const QString& caption, const QString& text);
  // A text and the lines that it is about, as they stand.
  void AddList(const QString& text, const QStringList& lines);
  void AddPart(QWidget& part);
  QCheckBox& AddCheck(const QString& text);

  enum class Role { Plain, Default, Cancel, DefaultCancel, Aside };
  // From left to right. One is the default, which has the keyboard; one is the cancel, which
  // Escape and the frame's close button press too; one may be both. One aside stands by itself at
  // the left, and is for a choice that is no answer.
  void AddButton(const QString& caption, Role role, Choice choose);

 protected:
  void reject() override { Choose(cancel_); }

 private:
  void AddRow(const QString& caption, const QString& text, QWidget& content);
  void Describe(const QString& line);  // to screen readers
  void Choose(const Choice& choice);

  QVBoxLayout* body_;
  QGridLayout* facts_ = nullptr;  // those at hand
  QHBoxLayout* buttons_;
  Choice cancel_;
  bool answered_ = false;
};

}  // namespace tarnwell::ui
