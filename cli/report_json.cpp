#include "cli/report_json.h"

#include <nlohmann/json.hpp>

#include <cmath>

#include "cli/number_text.h"
#include "engine/fittings.h"
#include "engine/open_network.h"
#include "study/pressure_units.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

using Json = nlohmann::ordered_json;

double Pascal(float mm_wg) { return PlainValue(static_cast<float>(PascalOf(mm_wg))); }
double KiloPascal(float mm_wg) { return PlainValue(static_cast<float>(KiloPascalOf(mm_wg))); }

Json NumberIn(float value) { return PlainValue(value); }
Json NumberIn(std::int16_t value) { return value; }

Json FittingsOf(const SectionRow& row) {
  Json fittings;
  for (const Fitting& fitting : kFittings) {
    fittings[std::string(fitting.key)] =
        std::visit([&row](auto field) { return NumberIn(row.*field); }, fitting.count);
  }
  fittings["other_drop_mm_wg"] = PlainValue(row.OtherDrop_mm);
  fittings["other_length_m"] = PlainValue(row.OtherDrop_m);
  return fittings;
}

Json SectionOf(const StudyReport& report, const SectionRow& row, PressureUnits units) {
  Json section = {{"number", row.RecordNumber},
                  {"name", FromCodePage(Trim(row.Name.bytes()))},
                  {"critical", report.IsCritical(row.RecordNumber)},
                  {"length_m", PlainValue(row.Length)},
                  {"nominal_diameter", row.NomiDiam.Utf8()},
                  {"inner_diameter_mm", PlainValue(std::fabs(row.InDiameter))},
                  {"diameter_imposed", std::signbit(row.InDiameter)},
                  {"area_m2", PlainValue(row.Area)},
                  {"flow_lh", PlainValue(row.WaterFlow)},
                  {"velocity_m_s", PlainValue(row.Velocity)},
                  {"reynolds", PlainValue(row.Reynolds)},
                  {"friction_factor", PlainValue(row.Lamda)},
                  {"friction_mm_wg_per_m", PlainValue(row.FrictionRate)},
                  {"drop_mm_wg", PlainValue(row.TotalDrop)},
                  {"available_mm_wg", PlainValue(row.AvaiPres)},
                  {"plant_marker", row.Auxi},
                  {"fittings", FittingsOf(row)}};
  const bool open = report.kind == SystemKind::kOpen;
  if (open) {
    section["flow_pressure_m_wg"] = PlainValue(row.SomaDrop);
    section["height_m"] = PlainValue(row.HeightDiff);
  } else {
    section["emitter_drop_mm_wg"] = PlainValue(row.SomaDrop);
  }
  if (units == PressureUnits::kPascal) {
    section["friction_pa_per_m"] = Pascal(row.FrictionRate);
    section["drop_kpa"] = KiloPascal(row.TotalDrop);
    section["available_kpa"] = KiloPascal(row.AvaiPres);
    section[open ? "flow_pressure_kpa" : "emitter_drop_kpa"] =
        KiloPascal(open ? row.SomaDrop * 1000.0F : row.SomaDrop);
  }
  return section;
}

Json PipeOf(const StatRow& pipe) {
  Json json = {{"nominal_diameter", pipe.NomiDiameter.Utf8()},
               {"inner_diameter_mm", PlainValue(pipe.InDiameter)},
               {"length_m", PlainValue(pipe.Length)},
               {"volume_m3", PlainValue(pipe.FluidVolume)}};
  for (const Fitting& fitting : kFittings) {
    if (fitting.total != nullptr) {
      json[std::string(fitting.key)] = PlainValue(pipe.*fitting.total);
    }
  }
  return json;
}

Json PumpOf(const StudyReport& report, PressureUnits units) {
  Json pump = {{"flow_m3h", PlainValue(report.total_flow_m3h)},
               {"head_m_wg", PlainValue(report.pump_head_m)}};
  if (units == PressureUnits::kPascal) {
    pump["head_kpa"] = KiloPascal(report.critical_drop);
  }
  return pump;
}

Json OutletsOf(const StudyReport& report) {
  Json outlets = Json::array();
  for (const OutletSpare& outlet : report.outlets) {
    outlets.push_back({{"section", outlet.section}, {"spare_mm_wg", RoundTo(outlet.spare, 2)}});
  }
  return outlets;
}

// Null where all is well; section 0 where not exactly one section ends at the source.
Json LostWalkOf(const StudyReport& report) {
  return report.lost_walk ? Json{{"section", report.lost_walk->emitter_section},
                                 {"node", report.lost_walk->node}}
                          : Json(nullptr);
}

Json PipesOf(const StudyReport& report) {
  Json pipes = Json::array();
  for (const StatRow& pipe : report.pipes) {
    pipes.push_back(PipeOf(pipe));
  }
  return pipes;
}

const char* SystemOf(const StudyReport& report) {
  return report.kind == SystemKind::kOpen ? "open" : "closed";
}

int MethodNumber(const StudyReport& report) {
  return report.method ? static_cast<int>(*report.method) : 0;
}

double WaterOf(const StudyReport& report) { return RoundTo(report.water_litres.value_or(0.0), 3); }

std::string TextOf(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

Json JsonOf(const StudyReport& report, PressureUnits units) {
  Json json = {{"study", report.file},
               {"title", report.title},
               {"system", SystemOf(report)},
               {"fluid", report.fluid},
               {"fluid_assumed", report.fluid_assumed},
               {"pipe_system", report.pipe_system},
               {"method", MethodNumber(report)},
               {"fixed_diameters", report.fixed_diameters},
               {"mean_temperature_c", PlainValue(report.mean_temperature)},
               {"design_velocity_m_s", PlainValue(report.design_velocity)},
               {"pump", PumpOf(report, units)},
               {"critical_drop_mm_wg", PlainValue(report.critical_drop)},
               {"critical_branch", report.critical},
               {"critical_nodes", report.critical_nodes},
               {"lost_walk", LostWalkOf(report)}};
  if (report.kind == SystemKind::kOpen) {
    json["residual_pressure_mm_wg"] = kResidualPressure;
    json["outlets"] = OutletsOf(report);
  } else {
    json["water_content_l"] = WaterOf(report);
  }
  if (units == PressureUnits::kPascal) {
    json["critical_drop_kpa"] = KiloPascal(report.critical_drop);
  }
  json["sections"] = Json::array();
  for (const SectionRow& row : report.rows) {
    json["sections"].push_back(SectionOf(report, row, units));
  }
  json["pipes"] = PipesOf(report);
  json["notes"] = {{"above_design_velocity", report.notes.above_design_velocity},
                   {"on_largest_pipe", report.notes.on_largest_pipe},
                   {"negative_drop", report.notes.negative_drop},
                   {"outlets_in_need", report.notes.outlets_in_need},
                   {"before_feeder", report.notes.before_feeder}};
  return json;
}

}  // namespace

std::string JsonText(const std::vector<StudyReport>& reports, PressureUnits units, bool as_array) {
  Json all = Json::array();
  for (const StudyReport& report : reports) {
    all.push_back(JsonOf(report, units));
  }
  const Json& whole = as_array || all.empty() ? all : all.front();
  return TextOf(whole);
}

std::string QuantitiesJsonText(const StudyReport& report) {
  Json json = {{"study", report.file},
               {"title", report.title},
               {"system", SystemOf(report)},
               {"pipe_system", report.pipe_system},
               {"method", MethodNumber(report)},
               {"lost_walk", LostWalkOf(report)},
               {"counted_anew", !report.recount.empty()}};
  if (report.water_litres) {
    json["water_content_l"] = WaterOf(report);
  }
  json["pipes"] = PipesOf(report);
  return TextOf(json);
}

}  // namespace kalvo
