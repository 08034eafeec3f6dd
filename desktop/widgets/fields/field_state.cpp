#include "desktop/widgets/fields/field_state.h"

#include <QLineEdit>
#include <QStyle>

namespace kalvo {

void SetFieldState(QWidget& field, const char* state) {
  field.setProperty("state", state);
  field.style()->unpolish(&field);
  field.style()->polish(&field);
}

void RefuseField(QLineEdit& field) {
  SetFieldState(field, "refused");
  field.setFocus();
  field.selectAll();
  QObject::connect(
      &field, &QLineEdit::textEdited, &field, [&field] { SetFieldState(field, ""); },
      Qt::SingleShotConnection);
}

}  // namespace kalvo
