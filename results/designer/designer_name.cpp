#include "results/designer/designer_name.h"

#include <algorithm>

#include "form/tell.h"
#include "study/designer_names.h"

namespace kalvo {
namespace {

using ClientText = decltype(SectionRow::Client);

// The blank between two words may be the last that had room.
constexpr std::size_t kLeastCut = ClientText::kSize - 1;

// A row has less room than the list: the name chosen last, or the first of the list, that begins
// with what the row has room for.
std::string WholeName(const Desk& desk, const ClientText& client) {
  const auto is_it = [&client](const std::string& name) {
    return ClientText::FromUtf8(name) == client;
  };
  if (is_it(desk.options.designer)) return desk.options.designer;
  const auto list = ReadDesigners(desk.bench.workspace);
  if (!list) return client.Utf8();  // whoever needs the list says what is wrong with it
  const auto whole = std::ranges::find_if(list->names, is_it);
  return whole == list->names.end() ? client.Utf8() : *whole;
}

}  // namespace

Result<std::string> DesignerName(const Desk& desk) {
  if (!desk.screens.CurrentDesigner.empty()) return desk.screens.CurrentDesigner;
  auto name = StudysDesigner(desk);
  return name && name->empty() ? desk.options.designer : name;
}

Result<std::string> StudysDesigner(const Desk& desk) {
  const auto rows = desk.bench.workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  const ClientText client = rows->empty() ? ClientText() : rows->front().Client;
  return client.Trimmed().size() < kLeastCut ? client.Utf8() : WholeName(desk, client);
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
  for (SectionRow& row : *rows) row.Client = ClientText::FromUtf8(*name);
  if (!TellIfFailed(desk.bench, file.WriteAll(*rows))) return false;
  desk.bench.study.unsaved_changes = true;
  return true;
}

}  // namespace kalvo
