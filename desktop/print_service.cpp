#include "desktop/print_service.h"

#include <QElapsedTimer>
#include <QPrintEngine>
#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>

#include "desktop/print_notice.h"
#include "desktop/qt_text.h"

namespace kalvo {
namespace {

constexpr int kStepMs = 50;
// After that a service that does not answer counts as gone.
constexpr int kPatienceMs = 60000;

QString PrintCommand() { return QStandardPaths::findExecutable(QStringLiteral("lp")); }

FileError Refused(const QString& why) {
  const QString said = why.simplified();
  return {{},
          "Ο εκτυπωτής δεν δέχεται την εκτύπωση" +
              (said.isEmpty() ? std::string() : " : " + said.toStdString())};
}

QString SidesOf(const QPrinter& printer) {
  const bool across = printer.pageLayout().orientation() == QPageLayout::Landscape;
  switch (printer.duplex()) {
    case QPrinter::DuplexLongSide:
      return QStringLiteral("two-sided-long-edge");
    case QPrinter::DuplexShortSide:
      return QStringLiteral("two-sided-short-edge");
    case QPrinter::DuplexAuto:
      return across ? QStringLiteral("two-sided-short-edge")
                    : QStringLiteral("two-sided-long-edge");
    case QPrinter::DuplexNone:
      break;
  }
  return QStringLiteral("one-sided");
}

// What the user has set of the printer's own options, names and values by turns.
QStringList OwnOptions(const QPrinter& printer) {
  constexpr auto kOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);
  const QStringList pairs = printer.printEngine()->property(kOptions).toStringList();
  QStringList options;
  for (qsizetype i = 0; i + 1 < pairs.size(); i += 2) {
    options << QStringLiteral("-o") << pairs[i] + '=' + pairs[i + 1];
  }
  return options;
}

}  // namespace

bool HasPrintService() { return !PrintCommand().isEmpty(); }

QStringList PrintArguments(const QPrinter& printer, std::string_view name) {
  QStringList arguments{"-d", printer.printerName(), "-t", ToQt(name)};
  arguments << "-n" << QString::number(std::max(printer.copyCount(), 1));
  arguments << "-o"
            << "media=" + printer.pageLayout().pageSize().key();
  if (printer.copyCount() > 1 && printer.collateCopies())
    arguments << "-o"
              << "Collate=True";
  return arguments + SettingsOf(printer);
}

QStringList SettingsOf(const QPrinter& printer) {
  return QStringList{"-o", "sides=" + SidesOf(printer)} + OwnOptions(printer);
}

QStringList PrintArguments(const PrintOrder& order, std::string_view name, std::string_view paper) {
  QStringList arguments{"-d", ToQt(order.printer), "-t", ToQt(name)};
  arguments << "-n" << QString::number(std::max(order.copies, 1));
  arguments << "-o"
            << "media=" + ToQt(paper.substr(0, paper.find(' ')));
  arguments << "-o"
            << "collate=true";
  for (const std::string& setting : order.settings) arguments << ToQt(setting);
  return arguments;
}

Result<bool> HandToPrintService(const QStringList& arguments, const QByteArray& pdf,
                                std::string_view notice) {
  PrintNotice shown(notice, 0);
  bool failed = false;  // a wait that runs out is no failure, although it sets the process's error
  QProcess process;
  QObject::connect(&process, &QProcess::errorOccurred, [&failed] { failed = true; });
  process.start(PrintCommand(), arguments);
  process.write(pdf);
  process.closeWriteChannel();
  QElapsedTimer since;
  since.start();
  while (process.state() != QProcess::NotRunning && !process.waitForFinished(kStepMs)) {
    const bool goes_on = shown.GoOn(0);
    if (goes_on && since.elapsed() < kPatienceMs) continue;
    process.kill();
    process.waitForFinished();
    if (!goes_on) return false;
    return Refused(QStringLiteral("δεν απαντά"));
  }
  const bool taken =
      !failed && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
  if (taken) return true;
  return Refused(QString::fromLocal8Bit(process.readAllStandardError()));
}

}  // namespace kalvo
