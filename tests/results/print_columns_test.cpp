#include "results/printing/print_columns.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "results/printing/print_text.h"
#include "study/codepage.h"
#include "study/memory_disk.h"

namespace kalvo {
namespace {

constexpr Separators kGreek{',', '.'};
constexpr Separators kEnglish{'.', ','};

std::string Names(const std::vector<PrintColumn>& columns) {
  std::string names;
  for (const PrintColumn& column : columns) {
    names += (names.empty() ? "" : " ") + std::string(column.name);
    if (column.type == PrintType::kText) names += ":" + std::to_string(column.width);
    if (column.type == PrintType::kSingle) names += ":s";
  }
  return names;
}

const PrintValue& ValueIn(const PrintTable& table, std::size_t line, std::string_view name) {
  const auto at = std::ranges::find(table.columns, name, &PrintColumn::name);
  return table.lines[line].at(static_cast<std::size_t>(at - table.columns.begin()));
}

SectionRow Section() {
  SectionRow row;
  row.RecordNumber = 12;
  row.Thema = FixedText<78>::FromUtf8("Σχολείο");
  row.Material = FixedText<78>::FromUtf8("STEEL");
  row.Name = FixedText<7>::FromUtf8("  1/2  ");
  row.NomiDiam = FixedText<15>::FromUtf8("1 1/4");
  row.InDiameter = 35.9F;
  row.AvaiPres = -0.5F;
  return row;
}

TEST(PrintColumns, OfTheSectionsAreTheRowsFields) {
  EXPECT_EQ(Names(SectionPrintColumns()),
            "RecordNumber SectionNo Client:78 Thema:78 Units:8 Material:94 MeanTemp:s BurChil "
            "ANOIK KLEIS FileNumber TOT MeanVel:s Outlets PAR:s DP:s INILAMDA:s Name:7 WaterFlow:s "
            "Length:s AnglePOP:s Elbow90:s GateValve StrSwitch AngSwitch DiaTee DieTee AntiTee "
            "SymboTee CheckValve OtherDrop_mm:s OtherDrop_m:s NomiDiam:17 Velocity:s Area:s "
            "InDiameter:s Reynolds:s Lamda:s FrictionRate:s TotalDrop:s Auxi AvaiPres:s SomaDrop:s "
            "HeightDiff:s");
  EXPECT_EQ(SectionPrintColumns().size(), 44U);
}

TEST(PrintColumns, OfTheQuantitiesHaveTheMaterialSecond) {
  EXPECT_EQ(Names(QuantityPrintColumns()),
            "RecordNumber PipeMaterial:78 Client:51 Thema:78 Units:8 NomiDiameter:12 InDiameter:s "
            "Length:s FluidVolume:s Corners:s Elbows:s GlobeV:s StraightV:s CornerV:s CheckV:s");
}

TEST(PrintedSections, SayTheDiameterByItsSign) {
  SectionRow row = Section();
  std::vector<SectionRow> rows = {row, row, row};
  rows[1].InDiameter = -35.9F;
  rows[2].InDiameter = 0.0F;
  const PrintTable table = PrintedSections(rows, "Ωμέγα");
  EXPECT_EQ(ValueIn(table, 0, "NomiDiam"), PrintValue("1 1/4          "));
  EXPECT_EQ(ValueIn(table, 1, "NomiDiam"), PrintValue("(1 1/4)"));
  EXPECT_EQ(ValueIn(table, 1, "InDiameter"), PrintValue(-35.9F));
  EXPECT_EQ(ValueIn(table, 2, "NomiDiam"), PrintValue());
}

TEST(PrintedSections, HaveTheirTextsAsStoredButDesignerAndMaterial) {
  std::vector<SectionRow> rows = {Section(), Section()};
  rows[1].Material = FixedText<78>::FromUtf8(" Πολυαιθυλένιο ");
  rows[0].Client = FixedText<51>::FromUtf8("Άλλος");
  const PrintTable table = PrintedSections(rows, "Ωμέγα");
  EXPECT_EQ(ValueIn(table, 0, "Client"), PrintValue("Ωμέγα"));
  EXPECT_EQ(ValueIn(table, 0, "Name"), PrintValue("  1/2  "));
  EXPECT_EQ(ValueIn(table, 0, "Units"), PrintValue("        "));
  EXPECT_EQ(ValueIn(table, 0, "Material"), PrintValue("Υλικό Σωλήνων : ΧΑΛΥΒΑΣ"));
  EXPECT_EQ(ValueIn(table, 1, "Material"), PrintValue("Υλικό Σωλήνων : Πολυαιθυλένιο"));
  EXPECT_EQ(ValueIn(PrintedSections(rows, "  "), 0, "Client"), PrintValue());

  std::string name;
  for (int i = 0; i < 100; ++i) name += "Ω";
  const PrintTable cut = PrintedSections(rows, name);
  EXPECT_EQ(CountCharacters(std::get<std::string>(ValueIn(cut, 0, "Client"))), 78U);
}

TEST(PrintedQuantities, TakeTextsAndDiameterFromTheLibrary) {
  StatRow line;
  line.RecordNumber = 3;
  line.InDiameter = 1;
  line.Length = 12.5F;
  PipeRow pipe;
  pipe.title = FixedText<78>::FromUtf8("Σωλήνες DIN 2440");
  pipe.material = FixedText<30>::FromUtf8("COPPER");
  pipe.inner_diameter = 21.6F;
  const PrintTable table = PrintedQuantities({&line, 1}, {&pipe, 1}, "Ωμέγα");
  EXPECT_EQ(PrintText(ValueIn(table, 0, "PipeMaterial"), kGreek), "Υλικό Σωλήνων : ΧΑΛΚΟΣ");
  EXPECT_EQ(PrintText(ValueIn(table, 0, "Client"), kGreek), "Ωμέγα");
  EXPECT_EQ(PrintText(ValueIn(table, 0, "Thema"), kGreek), "Σωλήνες DIN 2440");
  EXPECT_EQ(ValueIn(table, 0, "InDiameter"), PrintValue(21.6F));
  EXPECT_EQ(ValueIn(table, 0, "Length"), PrintValue(12.5F));
  EXPECT_EQ(ValueIn(table, 0, "RecordNumber"), PrintValue(3));
}

const PrintTable kSmall{{{"Name", PrintType::kText, 7},
                         {"Number", PrintType::kInteger, 0},
                         {"Flow", PrintType::kSingle, 0},
                         {"Diameter", PrintType::kText, 4}},
                        {{"  Α/Β  ", -1, -0.25F, {}}, {"a\tb\n   ", 12, 1234.5F, "(1)"}}};

TEST(PrintText, RecordHasEveryValueInItsWidth) {
  EXPECT_EQ(RecordText(kSmall, kGreek),
            "  Α/Β      -1           -0,25    \n"
            "a b        12          1234,5(1) \n");
}

TEST(PrintText, AsciiHasNamesAndTabs) {
  EXPECT_EQ(AsciiText(kSmall, kEnglish),
            "Name\tNumber\tFlow\tDiameter\n"
            "  Α/Β\t-1\t-0.25\t\n"
            "a b\t12\t1234.5\t(1)\n");
}

TEST(PrintText, EveryRecordOfSectionsIsOfTheSameLength) {
  SectionRow odd = Section();
  odd.Velocity = -1.234567e-30F;
  odd.Reynolds = -3.402823e+38F;
  odd.Lamda = -0.00001234567F;
  odd.Auxi = -32768;
  const std::vector<SectionRow> rows = {Section(), odd};
  const std::string text = RecordText(PrintedSections(rows, "Ωμέγα"), kGreek);
  const std::size_t end = text.find('\n');
  EXPECT_EQ(CountCharacters(text.substr(0, end)), CountCharacters(text.substr(end + 1)) - 1);
  EXPECT_EQ(CountCharacters(text.substr(0, end)), 282U + 17 * 6 + 21 * 16);
}

class NotedDatabase : public PrintDatabase {
 public:
  Outcome Export(const std::filesystem::path& /*shell*/, const PrintTable& /*table*/,
                 const std::filesystem::path& /*file*/) override {
    return Done{};
  }
  Outcome ExportWorkbook(const PrintTable& table, const std::filesystem::path& file) override {
    noted = file.string() + " " + std::to_string(table.lines.size());
    return Done{};
  }
  std::string noted;
};

TEST(PrintFile, IsWrittenInItsKind) {
  MemoryDisk disk;
  NotedDatabase database;
  const auto write = [&](PrintFileKind kind, const char* file) {
    return WritePrintFile(disk, database, kind, kSmall, kGreek, file).ok();
  };
  EXPECT_TRUE(write(PrintFileKind::kRecord, "/a.REC"));
  EXPECT_TRUE(write(PrintFileKind::kAscii, "/a.TXT"));
  EXPECT_TRUE(write(PrintFileKind::kTable, "/a.XLS"));
  EXPECT_EQ(*disk.Read("/a.REC"), RecordText(kSmall, kGreek));
  EXPECT_EQ(*disk.Read("/a.TXT"), AsciiText(kSmall, kGreek));
  EXPECT_EQ(database.noted, "/a.XLS 2");
}

}  // namespace
}  // namespace kalvo
