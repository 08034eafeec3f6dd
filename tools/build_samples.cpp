// build_samples <library folder> <samples folder>
//     writes the delivered studies, not calculated but for the one that has a winter duty.
// build_samples --golden <library folder> <samples folder> <golden folder>
//     calculates the studies there and writes <name>-method1.csv and <name>-method2.csv of each:
//     the results that the tests hold the program to.

#include <iostream>
#include <span>
#include <string>
#include <vector>

#include "engine/calculation_command.h"
#include "study/fluid_library.h"
#include "study/load_study.h"
#include "study/write_study.h"
#include "tools/sample_bench.h"
#include "tools/sample_golden.h"
#include "tools/sample_studies.h"

namespace kalvo {

namespace {

// Saves the study as the program would, with water as its fluid.
void SaveSample(const SampleStudy& sample, const std::filesystem::path& library,
                const std::filesystem::path& folder) {
  SampleBench saved(library, folder / sample.file_name());
  const SectionRow& header = sample.rows.front();
  saved.study.MeanTemp = header.MeanTemp;
  saved.study.MeanVel = header.MeanVel;
  Expect(saved.workspace.Rows().WriteAll(sample.rows));
  Expect(WriteStudyFluid(saved.bench, WaterRow(saved.workspace)));
  Expect(WriteStudy(saved.bench));
}

// The study with its winter duty, which needs the results of summer: it is delivered calculated.
// The values of the winter are a table beside it.
void SaveWinter(const SampleStudy& sample, const std::filesystem::path& library,
                const std::filesystem::path& folder) {
  SampleBench saved(library, folder / sample.file_name());
  Expect(LoadStudy(saved.bench, RecentList::kLeave));
  std::vector<WinterLine> lines;
  std::string table = "section,flow,drop\n";
  if (Calculate(saved.bench, Method::kFlowOnly) == CommandEnd::kCalculated) {
    saved.study.results_valid = true;
    for (const WinterLine& summer : SummerValues(saved.bench)) {
      const WinterLine& line = lines.emplace_back(InWinter(summer));
      table += NumberText(line.section) + "," + NumberText(line.flow_lh) + "," +
               NumberText(line.drop) + "\n";
    }
  }
  WinterDuty winter(saved.bench);
  if (winter.Run(kWinterTemperature, lines).end != WinterEnd::kCalculated) {
    throw std::runtime_error(sample.name + " has no winter");
  }
  winter.Close();
  Expect(WriteStudy(saved.bench));
  Expect(saved.disk.Write(folder / (sample.name + "-winter.csv"), table));
}

void WriteGolden(const std::filesystem::path& library, const std::filesystem::path& samples,
                 const std::filesystem::path& folder) {
  RealDisk disk;
  for (const SampleStudy& sample : AllSamples()) {
    for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
      const auto file =
          folder / (sample.name + "-method" + std::to_string(static_cast<int>(method)) + ".csv");
      Expect(disk.Write(file, CalculatedTable(library, samples / sample.file_name(), method)));
      std::cout << file.string() << '\n';
    }
  }
}

int Run(std::span<const std::string> words) {
  if (words.size() == 4 && words[0] == "--golden") {
    WriteGolden(words[1], words[2], words[3]);
    return 0;
  }
  if (words.size() != 2) {
    std::cerr
        << "usage: build_samples <library folder> <samples folder>\n"
           "       build_samples --golden <library folder> <samples folder> <golden folder>\n";
    return 2;
  }
  for (const SampleStudy& sample : AllSamples()) {
    SaveSample(sample, words[0], words[1]);
  }
  SaveWinter(FanCoilFloor(), words[0], words[1]);
  return 0;
}

}  // namespace

}  // namespace kalvo

int main(int count, char** words) {
  try {
    const std::vector<std::string> arguments(words + 1, words + count);
    return kalvo::Run(arguments);
  } catch (const std::exception& error) {
    std::cerr << "build_samples: " << error.what() << '\n';
    return 1;
  }
}
