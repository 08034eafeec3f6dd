#include "results/pump_frame.h"

#include "study/rounding.h"

namespace kalvo {

Result<PumpFrame> ReadPumpFrame(const Desk& desk) {
  const Workspace& workspace = desk.bench.workspace;
  const auto row = workspace.Rows().Read(1);
  if (!row) return row.error();
  const auto pipes = ReadPipeSystem(workspace, row->FileNumber);
  if (!pipes) return pipes.error();
  const Separators separators = desk.separators;
  PumpFrame frame;
  frame.title = row->Thema.Utf8();
  frame.flow = FormatPattern(row->PAR, "#,##0.00", separators);
  frame.head = FormatPattern(RoundTo(row->DP / 1000.0, 2), "#,##0.00", separators);
  frame.pipes = pipes->front().title.Utf8();
  frame.temperature = FormatPattern(row->MeanTemp, "#,##0.0", separators);
  frame.velocity =
      desk.screens.WinterPump ? std::string() : FormatPattern(row->MeanVel, "#,##0.0", separators);
  frame.liquid = "Χρησιμοποιούμενο Υγρό : " + desk.bench.study.fluid_name;
  return frame;
}

}  // namespace kalvo
