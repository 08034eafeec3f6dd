#include "desktop/tables/entry_model.h"

#include "desktop/qt_text.h"

namespace kalvo {

int EntryModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

QVariant EntryModel::data(const QModelIndex& index, int role) const {
  const EntryLine& line = list_.lines()[static_cast<std::size_t>(index.row())];
  const auto joined = [](std::initializer_list<const std::string*> texts) {
    QStringList words;
    for (const std::string* text : texts) {
      if (const QString word = ToQt(*text).trimmed(); !word.isEmpty()) words << word;
    }
    return words.join(QStringLiteral("  "));
  };
  switch (role) {
    case Qt::DisplayRole:
      return joined({&line.name, &line.text});
    case Qt::AccessibleTextRole:
    case Qt::ToolTipRole:
      return joined({&line.name, &line.text, &line.detail});
    case Qt::CheckStateRole:
      if (!list_.ticks) return {};
      return list_.IsTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

void EntryModel::Changed() {
  if (shown_ != list_.count()) {
    beginResetModel();
    shown_ = list_.count();
    endResetModel();
  } else if (shown_ > 0) {
    Q_EMIT dataChanged(index(0), index(shown_ - 1));
  }
}

}  // namespace kalvo
