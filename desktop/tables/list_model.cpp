#include "desktop/tables/list_model.h"

#include "desktop/qt_text.h"
#include "desktop/tables/cell_roles.h"

namespace kalvo {

namespace {

// Blanks that pad a number on the left are shown as wide as the digits they stand for.
QString WithWideBlanks(QString line) {
  constexpr QChar kFigureSpace(0x2007);
  for (qsizetype at = 0; at < line.size() && line[at] == QLatin1Char(' '); ++at) {
    line[at] = kFigureSpace;
  }
  return line;
}

}  // namespace

int ListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : list_.count();
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  const QString line = ToQt(list_.lines()[row]);
  switch (role) {
    case Qt::DisplayRole:
      return WithWideBlanks(line);
    case kDepthRole:
      return row < list_.depths().size() ? list_.depths()[row] : 0;
    case Qt::AccessibleTextRole:
    case Qt::ToolTipRole:
      return line.trimmed();
    case Qt::DecorationRole:
      return icon_.isNull() ? QVariant() : icon_;
    default:
      return {};
  }
}

}  // namespace kalvo
