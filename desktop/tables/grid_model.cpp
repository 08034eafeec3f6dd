#include "desktop/tables/grid_model.h"

#include <QFont>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/tables/cell_roles.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

QVariant BackgroundOf(Tone tone) {
  switch (tone) {
    case Tone::kCalculated:
      return ActiveTheme().calculated;
    case Tone::kImposed:
      return ActiveTheme().imposed;
    case Tone::kWaiting:
      return ActiveTheme().wait;
    case Tone::kAlarm:
    case Tone::kCritical:
    case Tone::kStrong:
    case Tone::kGood:
    case Tone::kPlain:
    case Tone::kQuiet:
      break;
  }
  return {};
}

Qt::AlignmentFlag SideOf(const GridColumn& column) {
  if (column.centred) return Qt::AlignHCenter;
  return column.number ? Qt::AlignRight : Qt::AlignLeft;
}

}  // namespace

// "Τμήμα 7/27, ΠΤΩΣΗ ΠΙΕΣΗΣ, 2.830,5, δυσμενέστερος κλάδος"
QString GridModel::SpokenCell(const GridPlace& place) const {
  const GridColumn& column = grid_.columns()[static_cast<std::size_t>(place.column)];
  const std::string& first = grid_.At(place.row, 0).text;
  const GridCell& cell = grid_.At(place.row, place.column);
  QStringList words = {ToQt(grid_.row_noun + " " + first).simplified(), ToQt(column.header),
                       ToQt(cell.text)};
  if (cell.tone == Tone::kWaiting) words << kWaitingWord;
  if (grid_.IsMarked(place.row)) words << ToQt(grid_.mark_name);
  words.removeAll(QString());
  return words.join(QStringLiteral(", "));
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.column_count();
}

GridPlace GridModel::PlaceOf(const QModelIndex& index) const {
  return {grid_.order()[static_cast<std::size_t>(index.row())], index.column()};
}

QModelIndex GridModel::IndexOf(GridPlace place) const {
  const auto found = std::ranges::find(grid_.order(), place.row);
  return found == grid_.order().end()
             ? QModelIndex()
             : index(static_cast<int>(found - grid_.order().begin()), place.column);
}

int GridModel::LookOf(GridPlace place, const GridCell& cell) const {
  const Tone tone = cell.tone;
  const GridColumn& column = grid_.columns()[static_cast<std::size_t>(place.column)];
  int look = IsLocked(place.column) || tone == Tone::kQuiet ? kLockedLook : 0;
  if (column.open) look |= kOpenLook;
  if (column.bold && tone != Tone::kQuiet) look |= kBoldLook;
  if (column.names && grid_.IsSelected(place.row)) look |= kBoldLook;
  if (column.marks) look |= kMarksLook;
  if (cell.refused) look |= kRefusedLook;
  if (grid_.IsMarked(place.row)) look |= kCriticalLook;
  if (tone == Tone::kAlarm) look |= kAlarmLook;
  if (tone == Tone::kImposed) look |= kImposedLook;
  if (tone == Tone::kWaiting) look |= kWaitingLook;
  if (tone == Tone::kStrong) look |= kStrongLook;
  if (tone == Tone::kGood) look |= kGoodLook;
  return look;
}

int GridModel::LookOf(int row) const {
  int look = grid_.IsMarked(row) ? kCriticalLook : 0;
  for (int column = 0; column < grid_.column_count(); ++column) {
    if (grid_.At(row, column).tone == Tone::kAlarm) look |= kAlarmLook;
  }
  return look;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  // While changes are told, rows may be asked for that are gone by now.
  if (!index.isValid() || index.row() >= grid_.row_count()) return {};
  const GridPlace place = PlaceOf(index);
  const GridCell& cell = grid_.At(place.row, place.column);
  const GridColumn& column = grid_.columns()[static_cast<std::size_t>(place.column)];
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(cell.text);
    case Qt::TextAlignmentRole:
      return static_cast<int>(Qt::AlignVCenter | (cell.left ? Qt::AlignLeft : SideOf(column)));
    case Qt::BackgroundRole:
      return BackgroundOf(cell.tone);
    case Qt::ToolTipRole:
      return ToQt(cell.tip);
    case Qt::AccessibleTextRole:
      return SpokenCell(place);
    case kLookRole:
      return LookOf(place, cell);
    case kShareRole:
      return cell.share ? QVariant(*cell.share) : QVariant();
    default:
      return {};
  }
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  const bool blank = index.isValid() && grid_.IsBlank(index.row());
  return blank ? Qt::NoItemFlags : QAbstractTableModel::flags(index);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    if (section >= grid_.row_count()) return {};
    const int row = grid_.order()[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return grid_.NumberOf(row);
    return role == kLookRole ? QVariant(LookOf(row)) : QVariant();
  }
  const GridColumn& column = grid_.columns()[static_cast<std::size_t>(section)];
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
      return ToQt(column.header);
    default:
      return {};
  }
}

bool GridModel::IsLocked(int column) const {
  return editable_ != nullptr && editable_->IsLocked(column);
}

void GridModel::TellCells(int first, int last) {
  last = std::min(last, rows_ - 1);
  if (first > last || grid_.column_count() == 0) return;
  Q_EMIT dataChanged(index(first, 0), index(last, grid_.column_count() - 1));
  Q_EMIT headerDataChanged(Qt::Vertical, first, last);
}

void GridModel::Tell(const std::vector<GridChange>& changes) {
  for (const auto& [kind, first, last] : changes) {
    switch (kind) {
      case GridChange::Kind::kCells:
        TellCells(first, last);
        break;
      case GridChange::Kind::kInserted:
        beginInsertRows({}, first, last);
        rows_ += last - first + 1;
        endInsertRows();
        break;
      case GridChange::Kind::kRemoved:
        beginRemoveRows({}, first, last);
        rows_ -= last - first + 1;
        endRemoveRows();
        break;
      case GridChange::Kind::kReset:
        beginResetModel();
        rows_ = grid_.row_count();
        endResetModel();
        break;
    }
  }
}

}  // namespace kalvo
