#pragma once

#include <QDialog>
#include <QList>
#include <functional>
#include <utility>

#include "study/prompter.h"

class QPushButton;

namespace kalvo {

/// Shows a box in the program's own manner: the lines one by one, the default button filled and
/// with the focus, Esc for cancel, or no, or OK. A letter underlined in a button answers too, with
/// Alt or without. It does not beep.
class MessageBox : public QDialog {
  Q_OBJECT

 public:
  explicit MessageBox(const Box& box, QWidget* parent = nullptr);

  /// Called with the box when the user asks for help on it.
  void OnHelp(std::function<void(QWidget& box)> help) { help_ = std::move(help); }

  [[nodiscard]] Answer GivenAnswer() const { return answer_; }
  /// Left to right, as in the style of the box.
  [[nodiscard]] const QList<QPushButton*>& Buttons() const { return buttons_; }

  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeBody(const Box& box);
  /// Captions with their values, and under them the table that a button unfolds.
  QWidget* MakeFacts(const MessageFacts& facts);
  /// The buttons stay in reach when the table unfolds.
  void KeepOnScreen();
  QWidget* MakeBar(const Box& box);

  QList<QPushButton*> buttons_;
  QPushButton* default_button_ = nullptr;
  std::function<void(QWidget& box)> help_;
  Answer escape_answer_;
  Answer answer_;
};

}  // namespace kalvo
