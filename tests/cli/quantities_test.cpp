// What `kalvo quantities` prints, in every format, and where it refuses.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "study/real_disk.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::HasSubstr;
using testing::Not;
using Words = std::vector<std::string_view>;

std::string Fancoil() { return std::string(KALVO_SAMPLES_DIR) + "/fancoil.PCK"; }

// Sums of the hotel's sections by nominal diameter, from the rows that `calc` prints.
nlohmann::json SumsOf(const nlohmann::json& sections) {
  nlohmann::json sums;
  for (const auto& section : sections) {
    auto& sum = sums[section["nominal_diameter"].get<std::string>()];
    if (sum.is_null()) sum = nlohmann::json::object();
    sum["length_m"] = sum.value("length_m", 0.0) + section["length_m"].get<double>();
    for (const char* fitting :
         {"elbows", "bends_90", "valves", "straight_valves", "angle_valves", "check_valves"}) {
      sum[fitting] = sum.value(fitting, 0.0) + section["fittings"][fitting].get<double>();
    }
  }
  return sums;
}

TEST(Quantities, AgreeWithACountOfTheSampleSections) {
  for (const char* name : {"hotel.PCK", "house.PCA"}) {
    const std::string study = std::string(KALVO_SAMPLES_DIR) + "/" + name;
    const Told calculated = Kalvo({"calc", study, "--format", "json"});
    const Told told = Kalvo({"quantities", study, "--method", "1", "--format", "json"});
    ASSERT_EQ(told.code, 0) << told.err;
    const auto report = nlohmann::json::parse(calculated.out);
    const auto bill = nlohmann::json::parse(told.out);
    const auto sums = SumsOf(report["sections"]);
    std::size_t used = 0;
    double water = 0;
    for (const auto& pipe : bill["pipes"]) {
      const auto found = sums.find(pipe["nominal_diameter"].get<std::string>());
      if (found == sums.end()) {
        EXPECT_EQ(pipe["length_m"], 0.0);
        continue;
      }
      ++used;
      for (const auto& [key, sum] : found->items()) {
        EXPECT_NEAR(pipe[key].get<double>(), sum.get<double>(), 1e-3) << pipe << key;
      }
      const double diameter = pipe["inner_diameter_mm"].get<double>() / 1000;
      water += diameter * diameter * 3.14159 / 4 * 1000 * pipe["length_m"].get<double>();
    }
    EXPECT_EQ(used, sums.size());
    EXPECT_EQ(bill["pipes"], report["pipes"]);
    EXPECT_EQ(bill.contains("water_content_l"), bill["system"] == "closed");
    if (bill["system"] == "closed") {
      EXPECT_NEAR(bill["water_content_l"].get<double>(), water, 0.01);
    }
    EXPECT_EQ(bill["counted_anew"], false);
  }
}

class QuantitiesOf : public testing::Test {
 protected:
  const CliBench bench_;
  const std::string study_ = bench_.Put("study.PCK", SoundNetwork());
};

TEST_F(QuantitiesOf, AStudyAreATableOfTheSizesInUse) {
  const Told told = bench_.Run({"quantities", study_});
  EXPECT_EQ(told.code, 0) << told.err;
  EXPECT_EQ(told.out.substr(told.out.find("\n\n") + 2), Golden("quantities.txt"));
  EXPECT_THAT(told.out, HasSubstr("Τρόπος υπολογισμού    : 1 - "));
}

TEST_F(QuantitiesOf, AStudyAreALineForEverySizeInCsv) {
  const Told told = bench_.Run({"quantities", study_, "--format", "csv"});
  EXPECT_THAT(told.out,
              testing::StartsWith("\xEF\xBB\xBFRecordNumber,NomiDiameter,InDiameter,Length,"
                                  "FluidVolume,Corners,Elbows,GlobeV,StraightV,CornerV,CheckV,"
                                  "Water_l\n1,3/8,12.6,"));
  EXPECT_EQ(std::count(told.out.begin(), told.out.end(), '\n'), 11);
  const Told greek = bench_.Run({"quantities", study_, "--format", "csv", "--separators", ",."});
  EXPECT_THAT(greek.out, HasSubstr("\n1;3/8;12,6;"));
}

TEST_F(QuantitiesOf, StoredResultsAreThoseThatWereSaved) {
  const std::string saved = bench_.Path("saved.PCK");
  ASSERT_EQ(Kalvo({"calc", Fancoil(), "--method", "2", "--save", saved}).code, 0);
  const Told stored = Kalvo({"quantities", saved});
  EXPECT_THAT(stored.out, HasSubstr("Τρόπος υπολογισμού    : 2 - "));
  const Told anew = Kalvo({"quantities", saved, "--method", "1"});
  EXPECT_THAT(anew.out, HasSubstr("Τρόπος υπολογισμού    : 1 - "));
  EXPECT_NE(stored.out, anew.out);
}

TEST_F(QuantitiesOf, AListThatIsMissingForeignOrCutAreToldApart) {
  const std::string saved = bench_.Path("saved.PCK");
  const std::filesystem::path list = bench_.Path("saved.STC");
  ASSERT_EQ(Kalvo({"calc", Fancoil(), "--save", saved}).code, 0);
  const Told whole = Kalvo({"quantities", saved});
  const std::string bytes = RealDisk().Read(list).value();

  ASSERT_TRUE(RealDisk().Write(list, bytes.substr(265)).ok());
  const Told foreign = Kalvo({"quantities", saved});
  EXPECT_EQ(foreign.code, 0);
  EXPECT_EQ(foreign.out, whole.out);
  EXPECT_THAT(foreign.err, HasSubstr("ανήκει σε άλλους Σωλήνες"));
  EXPECT_EQ(Kalvo({"quantities", saved, "--quiet"}).err, "");

  ASSERT_TRUE(RealDisk().Write(list, bytes.substr(100)).ok());
  const Told cut = Kalvo({"quantities", saved});
  EXPECT_EQ(cut.code, 3);
  EXPECT_THAT(cut.err, HasSubstr("saved.STC"));

  ASSERT_TRUE(RealDisk().Remove(list).ok());
  const Told missing = Kalvo({"quantities", saved});
  EXPECT_EQ(missing.code, 4);
  EXPECT_EQ(missing.out, "");
  EXPECT_THAT(missing.err, HasSubstr("Η προμέτρηση συμπληρώνεται με τον υπολογισμό."));
  EXPECT_EQ(Kalvo({"quantities", saved, "--method", "1"}).code, 0);
}

TEST_F(QuantitiesOf, WhatIsNotCalculatedAreRefusedAsByCalc) {
  const std::string lost = bench_.Put("lost.PCK", Words{"ANT/1 1m", "1/2 1m 9 l/h soma 1mm"});
  EXPECT_EQ(bench_.Run({"quantities", lost}).code, bench_.Run({"calc", lost}).code);
  const std::string large =
      bench_.Put("large.PCK", Words{"ANT/1 1m 90000 l/h plant", "1/ANT 1m 90000 l/h soma 100mm"});
  EXPECT_EQ(bench_.Run({"quantities", large}).code, bench_.Run({"calc", large}).code);
  EXPECT_NE(bench_.Run({"quantities", large}).code, 0);
  EXPECT_EQ(bench_.Run({"quantities", large, "--ignore-capacity"}).code,
            bench_.Run({"calc", large, "--ignore-capacity"}).code);
  EXPECT_EQ(bench_.Run({"quantities", bench_.Path("none.PCK")}).code, 3);
  EXPECT_EQ(bench_.Run({"quantities", study_, "--format", "xml"}).code, 2);
}

}  // namespace
}  // namespace kalvo
