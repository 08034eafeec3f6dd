#include "desktop/bindings/binding.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/icons.h"
#include "desktop/widgets/kind/kind_card.h"

namespace kalvo {

QString ToneName(Tone tone) {
  switch (tone) {
    case Tone::kQuiet:
      return QStringLiteral("quiet");
    case Tone::kAlarm:
      return QStringLiteral("alarm");
    case Tone::kCalculated:
      return QStringLiteral("calculated");
    case Tone::kImposed:
      return QStringLiteral("imposed");
    case Tone::kCritical:
      return QStringLiteral("crit");
    case Tone::kPlain:
      break;
  }
  return {};
}

void StyleAnew(QWidget& widget) {
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

void SetStyleProperty(QWidget& widget, const char* name, const QVariant& value) {
  if (widget.property(name) == value || (!widget.property(name).isValid() && value == QString())) {
    return;
  }
  widget.setProperty(name, value);
  StyleAnew(widget);
}

namespace {

void PaintPresence(QWidget& widget, const Control& part) {
  if (widget.isVisibleTo(widget.parentWidget()) != part.visible) widget.setVisible(part.visible);
  if (widget.isEnabledTo(widget.parentWidget()) != part.enabled) widget.setEnabled(part.enabled);
}

class FieldBinding : public Binding {
 public:
  FieldBinding(Form& form, Field& field, QLineEdit& edit, const Act& act)
      : field_(field), edit_(edit) {
    if (const QString icon = edit.property("iconName").toString(); !icon.isEmpty()) {
      edit.addAction(ThemeIcon(icon), QLineEdit::LeadingPosition);
    }
    connect(&edit, &QLineEdit::textEdited, this, [this, &form, act](const QString& text) {
      const TextEdit done = WhatWasDone(text);
      act([&] { form.Type(field_, {done.before, done.piece, done.after}); });
    });
    connect(&edit, &QLineEdit::selectionChanged, this, [this] { NotePlace(); });
    connect(&edit, &QLineEdit::cursorPositionChanged, this, [this] { NotePlace(); });
  }

  void Paint() override {
    PaintPresence(edit_, field_);
    const QString text = ToQt(field_.text);
    if (edit_.text() != text) {
      // A character was refused, or taken as another one.
      const auto longer = static_cast<int>(text.size() - edit_.text().size());
      const int cursor = edit_.cursorPosition() + longer;
      edit_.setText(text);
      if (edit_.hasFocus()) edit_.setCursorPosition(cursor);
    }
    if (edit_.isReadOnly() != field_.locked) {
      edit_.setReadOnly(field_.locked);
      StyleAnew(edit_);
    }
    const bool refused = field_.refused || !field_.refusal().empty();
    SetStyleProperty(edit_, "state", refused ? QStringLiteral("refused") : ToneName(field_.tone));
    PaintRefusal();
    if (field_.whole_selected && edit_.hasFocus()) {
      edit_.selectAll();
      field_.whole_selected = false;
    }
  }
  [[nodiscard]] QWidget* widget() const override { return &edit_; }

 private:
  struct TextEdit {
    std::string before;
    std::string piece;
    std::string after;
  };

  void NotePlace() {
    place_ = edit_.hasSelectedText() ? edit_.selectionStart() : edit_.cursorPosition();
  }

  // The edit that has made the text this one. What was typed or pasted ends at the cursor and
  // began where the cursor or the selection was; only what really stayed counts as kept.
  [[nodiscard]] TextEdit WhatWasDone(const QString& text) const {
    const QString old = ToQt(field_.text);
    const auto same_start = std::ranges::mismatch(old, text).in2 - text.begin();
    auto start =
        std::min({qsizetype{same_start}, qsizetype{place_}, qsizetype{edit_.cursorPosition()}});
    if (start > 0 && text[start - 1].isHighSurrogate()) --start;
    auto end = qsizetype{edit_.cursorPosition()};
    while (end < text.size() && !old.endsWith(QStringView(text).mid(end))) ++end;
    if (end < text.size() && text[end].isLowSurrogate()) ++end;
    return {text.left(start).toStdString(), text.mid(start, end - start).toStdString(),
            text.mid(end).toStdString()};
  }

  // Why a key or a paste was refused shows under the field and is read aloud with it.
  void PaintRefusal() {
    const QString why = ToQt(field_.refusal());
    edit_.setAccessibleDescription(why.isEmpty() ? designed_description_ : why);
    const bool is_new = std::exchange(shown_refusals_, field_.refusals()) != field_.refusals();
    if (is_new && !why.isEmpty() && edit_.isVisible()) {
      QToolTip::showText(edit_.mapToGlobal(QPoint(0, edit_.height() / 2)), why, &edit_);
    } else if (why.isEmpty() && tells_refusal_) {
      QToolTip::hideText();
    }
    tells_refusal_ = !why.isEmpty();
  }

  Field& field_;
  QLineEdit& edit_;
  QString designed_description_ = edit_.accessibleDescription();
  int place_ = 0;  ///< where the next edit begins
  int shown_refusals_ = 0;
  bool tells_refusal_ = false;
};

class LabelBinding : public Binding {
 public:
  LabelBinding(Label& label, QLabel& widget)
      : label_(label), widget_(widget), designed_tone_(widget.property("tone").toString()) {}

  void Paint() override {
    PaintPresence(widget_, label_);
    const QString text = ToQt(label_.text);
    if (widget_.text() != text) {
      widget_.setText(text);
      widget_.setAccessibleName(text.trimmed());
    }
    const QString tone = ToneName(label_.tone);
    SetStyleProperty(widget_, "tone", tone.isEmpty() ? designed_tone_ : tone);
  }
  [[nodiscard]] QWidget* widget() const override { return &widget_; }

 private:
  Label& label_;
  QLabel& widget_;
  QString designed_tone_;
};

class CommandBinding : public Binding {
 public:
  CommandBinding(Form& form, Command& command, QAbstractButton& button, const Act& act)
      : command_(command), button_(button) {
    connect(&button, &QAbstractButton::clicked, this,
            [&form, &command, act] { act([&] { form.Run(command); }); });
  }

  void Paint() override {
    PaintPresence(button_, command_);
    const QString caption = ToQt(command_.caption);
    if (button_.text() != caption) {
      button_.setText(caption);
      button_.setAccessibleName(caption.trimmed());
    }
    const QString hint = ToQt(command_.Hint());
    if (button_.property("hint").toString() != hint) button_.setProperty("hint", hint);
    const QString icon = ToQt(command_.icon);
    if (!icon.isEmpty() && button_.property("iconName").toString() != icon) {
      button_.setProperty("iconName", icon);
    }
    SetStyleProperty(button_, "tone", ToneName(command_.tone));
  }
  [[nodiscard]] QWidget* widget() const override { return &button_; }

 private:
  Command& command_;
  QAbstractButton& button_;
};

class ToggleBinding : public Binding {
 public:
  ToggleBinding(Toggle& toggle, QAbstractButton& button, const Act& act)
      : toggle_(toggle), button_(button) {
    button.setText(ToQt(toggle.caption).trimmed());
    button.setAccessibleName(button.text().remove(QLatin1Char('&')));
    connect(&button, &QAbstractButton::toggled, this, [this, act](bool on) {
      if (!painting_) act([&] { toggle_.Set(on); });
    });
    if (auto* card = qobject_cast<KindCard*>(button.parentWidget())) {
      connect(card, &KindCard::Chosen, this, [&toggle, act] {
        if (toggle.on_double_click) act(toggle.on_double_click);
      });
    }
  }

  void Paint() override {
    painting_ = true;
    PaintPresence(button_, toggle_);
    if (button_.isChecked() != toggle_.on) {
      // One of a group of options cannot be switched off while the group excludes the others.
      const bool exclusive = button_.autoExclusive();
      button_.setAutoExclusive(false);
      button_.setChecked(toggle_.on);
      button_.setAutoExclusive(exclusive);
    }
    painting_ = false;
  }
  [[nodiscard]] QWidget* widget() const override { return &button_; }

 private:
  Toggle& toggle_;
  QAbstractButton& button_;
  bool painting_ = false;
};

class ChoiceBinding : public Binding {
 public:
  ChoiceBinding(Choice& choice, QComboBox& box, const Act& act) : choice_(choice), box_(box) {
    connect(&box, &QComboBox::activated, this,
            [&choice, act](int position) { act([&] { choice.Select(position); }); });
    box.installEventFilter(this);
  }

  // The wheel scrolls what stands around; a choice is made by opening the list or by keys.
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return Binding::eventFilter(watched, event);
    event->ignore();
    return true;
  }

  void Paint() override {
    PaintPresence(box_, choice_);
    if (shown_ != choice_.entries) {
      shown_ = choice_.entries;
      box_.clear();
      for (const std::string& entry : shown_) {
        box_.addItem(ToQt(entry).trimmed());
      }
      box_.setCurrentIndex(-1);
    }
    if (box_.currentIndex() != choice_.selected) box_.setCurrentIndex(choice_.selected);
    if (box_.toolTip() != box_.currentText()) box_.setToolTip(box_.currentText());
  }
  [[nodiscard]] QWidget* widget() const override { return &box_; }

 private:
  Choice& choice_;
  QComboBox& box_;
  std::vector<std::string> shown_;
};

// The part and the widget as these kinds, if both are.
template <typename Part, typename Widget>
struct Pair {
  Pair(Control& control, QWidget& shown)
      : part(dynamic_cast<Part*>(&control)), widget(qobject_cast<Widget*>(&shown)) {}
  explicit operator bool() const { return part != nullptr && widget != nullptr; }
  Part* part;
  Widget* widget;
};

}  // namespace

std::unique_ptr<Binding> MakeBinding(Form& form, Control& part, QWidget& widget, const Act& act) {
  if (const Pair<Field, QLineEdit> pair(part, widget); pair) {
    return std::make_unique<FieldBinding>(form, *pair.part, *pair.widget, act);
  }
  if (const Pair<Label, QLabel> pair(part, widget); pair) {
    return std::make_unique<LabelBinding>(*pair.part, *pair.widget);
  }
  if (const Pair<Command, QAbstractButton> pair(part, widget); pair) {
    return std::make_unique<CommandBinding>(form, *pair.part, *pair.widget, act);
  }
  if (const Pair<Toggle, QAbstractButton> pair(part, widget); pair) {
    return std::make_unique<ToggleBinding>(*pair.part, *pair.widget, act);
  }
  if (const Pair<Choice, QComboBox> pair(part, widget); pair) {
    return std::make_unique<ChoiceBinding>(*pair.part, *pair.widget, act);
  }
  if (auto table = MakeTableBinding(part, widget, act)) {
    return table;
  }
  return MakePictureBinding(part, widget);
}

}  // namespace kalvo
