#pragma once

#include <QString>
#include <QTextCursor>

namespace kalvo {

/// What is selected as plain text: a line for each paragraph and each row of a table, the cells of
/// a row apart by tabs, as sheets take them.
QString SelectedText(const QTextCursor& selection);

}  // namespace kalvo
