#include "results/pump_frame.h"

#include "form/tell.h"
#include "study/rounding.h"

namespace kalvo {

PumpFrame::PumpFrame(Form& form)
    : LblThema(form, "LblThema"),
      LblFlow(form, "LblFlow"),
      LblHead(form, "LblHead"),
      LblPipes(form, "LblPipes"),
      LblMeanTemp(form, "LblMeanTemp"),
      LblMeanVel(form, "LblMeanVel"),
      LblLiquid(form, "LblLiquid") {}

void PumpFrame::Take(Desk& desk, const SectionRow& first) {
  const Separators separators = desk.separators;
  LblThema.text = first.Thema.Utf8();
  LblFlow.text = FormatPattern(first.PAR, pattern::kTwoDecimals, separators);
  LblHead.text = FormatPattern(HeadOf(first.DP), pattern::kTwoDecimals, separators);
  LblPipes.text = TakePipeSystem(desk.bench, first);
  LblMeanTemp.text = FormatPattern(first.MeanTemp, pattern::kOneDecimal, separators);
  LblMeanVel.text =
      desk.screens.WinterPump ? "" : FormatPattern(first.MeanVel, pattern::kOneDecimal, separators);
  LblLiquid.text = "Χρησιμοποιούμενο Υγρό : " + desk.bench.study.fluid_name;
}

void PumpFrame::TakePump(const Desk& desk, const SectionRow& first) {
  LblFlow.text = FormatPattern(first.PAR, pattern::kTwoDecimals, desk.separators);
  LblHead.text = FormatPattern(first.DP / 1000.0, pattern::kTwoDecimals, desk.separators);
}

double HeadOf(float drop) { return RoundTo(static_cast<double>(drop) / 1000.0, 2); }

std::string TakePipeSystem(Workbench& bench, const SectionRow& first) {
  bench.study.pipe_system_number = first.FileNumber;
  const auto pipes = ReadPipeSystem(bench.workspace, first.FileNumber);
  if (!pipes) {
    TellError(bench, pipes.error());
    return {};
  }
  bench.study.pipe_material = pipes->front().material.Utf8();
  return pipes->front().title.Utf8();
}

}  // namespace kalvo
