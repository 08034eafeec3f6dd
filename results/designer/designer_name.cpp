#include "results/designer/designer_name.h"

#include "form/tell.h"

namespace kalvo {

Result<std::string> DesignerName(const Desk& desk) {
  if (!desk.screens.CurrentDesigner.empty()) return desk.screens.CurrentDesigner;
  const auto rows = desk.bench.workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  const std::string client = rows->empty() ? std::string() : rows->front().Client.Utf8();
  return client.empty() ? desk.options.designer : client;
}

bool FillClient(Desk& desk) {
  if (desk.screens.WinterPump) return true;  // the rows in place are the winter's
  RowFile<SectionRow> file = desk.bench.workspace.Rows();
  auto rows = file.ReadAll();
  const auto name = DesignerName(desk);
  if (!rows || !name) {
    TellError(desk.bench, rows ? name.error() : rows.error());
    return false;
  }
  if (rows->empty() || !rows->front().Client.Trimmed().empty() || name->empty()) return true;
  for (SectionRow& row : *rows) row.Client = decltype(row.Client)::FromUtf8(*name);
  if (!TellIfFailed(desk.bench, file.WriteAll(*rows))) return false;
  desk.bench.study.unsaved_changes = true;
  return true;
}

}  // namespace kalvo
