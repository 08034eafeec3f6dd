#include "desktop/bindings/field_binding.h"

#include <QEvent>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/bindings/control_look.h"
#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "desktop/style_property.h"

namespace kalvo {

FieldBinding::FieldBinding(Form& form, Field& field, QLineEdit& edit, const Act& act)
    : field_(field), edit_(edit), designed_description_(edit.accessibleDescription()) {
  if (const QString icon = edit.property("iconName").toString(); !icon.isEmpty()) {
    edit.addAction(ThemeIcon(icon), QLineEdit::LeadingPosition);
  }
  connect(&edit, &QLineEdit::textEdited, this, [this, &form, act](const QString& text) {
    const TextEdit done = WhatWasDone(text);
    act([&] { form.Type(field_, {done.before, done.piece, done.after}); });
  });
  edit.installEventFilter(this);
  connect(&edit, &QLineEdit::selectionChanged, this, [this] { NotePlace(); });
  connect(&edit, &QLineEdit::cursorPositionChanged, this, [this] { NotePlace(); });
}

void FieldBinding::Paint() {
  PaintPresence(edit_, field_);
  PaintText();
  if (edit_.isReadOnly() != field_.locked) {
    edit_.setReadOnly(field_.locked);
    StyleAnew(edit_);
  }
  const bool refused = field_.refused || !field_.refusal().empty();
  SetStyleProperty(edit_, "state", refused ? QStringLiteral("refused") : ToneName(field_.tone));
  PaintRefusal();
  if (std::exchange(field_.highlight_dropped, false)) edit_.deselect();
  if (field_.whole_selected && edit_.hasFocus()) {
    edit_.selectAll();
    field_.whole_selected = false;
  }
}

void FieldBinding::PaintText() {
  const QString text = ToQt(field_.text);
  if (edit_.text() == text) return;
  // A character was refused, or taken as another one.
  const auto longer = static_cast<int>(text.size() - edit_.text().size());
  const int cursor = edit_.cursorPosition() + longer;
  edit_.setText(text);
  if (edit_.hasFocus()) edit_.setCursorPosition(cursor);
}

// A double click selects a number whole, its decimal sign and both sides of it.
bool FieldBinding::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonDblClick || !field_.numeric()) {
    return Binding::eventFilter(watched, event);
  }
  edit_.selectAll();
  return true;
}

void FieldBinding::NotePlace() {
  place_ = edit_.hasSelectedText() ? edit_.selectionStart() : edit_.cursorPosition();
}

// What was typed or pasted ends at the cursor and began where the cursor or the selection was;
// only what really stayed counts as kept.
FieldBinding::TextEdit FieldBinding::WhatWasDone(const QString& text) const {
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
void FieldBinding::PaintRefusal() {
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

}  // namespace kalvo
