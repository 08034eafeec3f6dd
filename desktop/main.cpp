// kalvoflume, the program with its windows.

#include <QApplication>
#include <QCommandLineParser>
#include <clocale>
#include <exception>

#include "desktop/greek_texts.h"
#include "desktop/one_instance.h"
#include "desktop/program.h"
#include "desktop/theme.h"
#include "form/tell.h"

namespace {

using namespace kalvo;

struct CommandLine {
  QString argument;
  QString theme;
  QString separators;
};

CommandLine ReadCommandLine(const QApplication& app) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Υπολογισμός σωλήνων ροής υγρών"));
  const QCommandLineOption theme(QStringLiteral("theme"), QStringLiteral("Όψη: light ή dark"),
                                 QStringLiteral("ΟΨΗ"));
  const QCommandLineOption separators(
      QStringLiteral("separators"),
      QStringLiteral("Διαχωριστικά δεκαδικών και χιλιάδων, π.χ. \",.\""), QStringLiteral("XX"));
  parser.addOptions({theme, separators});
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(
      QStringLiteral("[ΜΕΛΕΤΗ|ΦΑΚΕΛΟΣ]"),
      QStringLiteral("Μελέτη που θα ανακληθεί, ή φάκελος του προγράμματος"));
  parser.process(app);
  const QStringList given = parser.positionalArguments();
  return {given.isEmpty() ? QString() : given.first(), parser.value(theme),
          parser.value(separators)};
}

Separators SeparatorsOf(const QString& given) {
  const QByteArray bytes = given.toLatin1();
  if (bytes.size() != 2 || bytes[0] == bytes[1]) return DetectSeparators();
  return {bytes[0], bytes[1]};
}

Surroundings SurroundingsOf(const CommandLine& line) {
  Surroundings surroundings;
  surroundings.argument = line.argument.toStdString();
  surroundings.executable_folder = QCoreApplication::applicationDirPath().toStdString();
  for (const char* name : {"KALVOFLUME_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "HOME"}) {
    surroundings.environment[name] = qEnvironmentVariable(name).toStdString();
  }
  return surroundings;
}

// Where libraries and samples are installed: beside the program, or in its build folder.
std::filesystem::path InstalledData() {
  const std::filesystem::path folder =
      std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()).parent_path();
  std::error_code error;
  const auto installed = folder / "share/kalvoflume";
  return std::filesystem::exists(installed, error) ? installed : folder / "data";
}

void TellRunningAlready(Prompter& prompter) {
  prompter.Ask({"Π Ρ Ο Σ Ο Χ Η",
                {"Το πρόγραμμα < Kalvofume > τρέχει ήδη και δεν μπορείτε να το τρέξετε σε "
                 "πολλαπλά παράθυρα!"},
                box_style::kStop});
}

// A crash on another machine, as with a program folder on a stick, must not bar this one.
bool TakenFromOtherMachine(OneInstance& instance, Prompter& prompter) {
  const QString machine = instance.OtherMachine();
  if (machine.isEmpty()) return false;
  const Answer answer =
      prompter.Ask({"Π Ρ Ο Σ Ο Χ Η",
                    {"Ο φάκελος του προγράμματος φαίνεται να είναι σε χρήση στον υπολογιστή < " +
                         machine.toStdString() + " >",
                     "Αν το πρόγραμμα τρέχει εκεί, τα δεδομένα των δύο θα μπερδευτούν",
                     "Είστε σίγουρος ότι ΔΕΝ τρέχει εκεί ??"},
                    box_style::kDefaultNo});
  return answer == Answer::kYes && instance.TakeOver();
}

int Run(Program& program, const ProgramPlaces& places) {
  // Nothing of a folder that another instance works in is touched.
  OneInstance instance(QString::fromStdString(places.folder.string()));
  program.TellUnknownArgument();
  if (!instance.Take() && !TakenFromOtherMachine(instance, program.desk().bench.prompter)) {
    Workbench& bench = program.desk().bench;
    TellRunningAlready(bench.prompter);
    if (!instance.Call(QString::fromStdString(places.study.string())) && !places.study.empty()) {
      TellError(bench, {places.study, "Το πρόγραμμα που τρέχει ήδη δεν απαντά"});
    }
    return 1;
  }
  if (!program.Prepare(InstalledData())) return 1;
  instance.Listen([&program](const QString& study) { program.TakeStudy(study.toStdString()); });
  return program.Start() ? QApplication::exec() : 1;
}

int RunProgram(const CommandLine& line) {
  RealDisk disk;
  const ProgramPlaces places = FindPlaces(disk, SurroundingsOf(line));
  Program program(places, SeparatorsOf(line.separators));
  static_cast<void>(disk.MakeFolder(places.folder));
  try {
    return Run(program, places);
  } catch (const std::exception& cause) {
    TellBroken(program.desk().bench, cause);
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QApplication app(argc, argv);
  // The toolkit takes over the user's locale; numbers are written by this program's own rules.
  std::setlocale(LC_NUMERIC, "C");
  QCoreApplication::setApplicationName(QStringLiteral("kalvoflume"));
  QCoreApplication::setApplicationVersion(QStringLiteral(KALVO_VERSION));
  QApplication::setQuitOnLastWindowClosed(false);
  GreekTexts greek;
  QCoreApplication::installTranslator(&greek);
  const CommandLine line = ReadCommandLine(app);
  ApplyTheme(app, ChooseTheme(QApplication::palette(), line.theme));
  return RunProgram(line);
}
