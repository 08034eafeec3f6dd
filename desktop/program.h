#pragma once

#include <QTimer>
#include <memory>

#include "desktop/pages/qt_workbook_pages.h"
#include "desktop/qt_clipboard.h"
#include "desktop/qt_clock.h"
#include "desktop/qt_file_dialog.h"
#include "desktop/qt_printer.h"
#include "desktop/qt_prompter.h"
#include "desktop/qt_sound.h"
#include "desktop/qt_viewer.h"
#include "desktop/windows.h"
#include "platform/drives/mounted_volumes.h"
#include "platform/print_files.h"
#include "shell/fault_file.h"
#include "shell/program_folder.h"
#include "study/real_disk.h"

namespace kalvo {

/// The whole program behind its windows: one study, its folders and its screens.
class Program {
 public:
  Program(const ProgramPlaces& places, Separators separators);

  /// Warns of an argument that is no folder and no study.
  void TellUnknownArgument();
  /// Makes the folders and libraries ready. False: the user was told why that cannot be.
  bool Prepare(const std::filesystem::path& installed);
  /// Shows the first screen; what follows is the user's. False: the user was told why none shows.
  bool Start();
  /// Comes to the front and opens that study as soon as nothing else is asked; an empty path opens
  /// none.
  void TakeStudy(const std::filesystem::path& study);

  [[nodiscard]] Windows& windows() { return windows_; }
  [[nodiscard]] Desk& desk() { return desk_; }

 private:
  void RememberOptions();
  void OpenTakenWhenFree();

  ProgramPlaces places_;
  RealDisk disk_;
  QtClock clock_;
  Workspace workspace_;
  PipeList pipes_;
  Study study_;
  QtSound sound_;
  QtViewer viewer_;
  QtClipboard clipboard_;
  QtPrinter printer_;
  QtFileDialog file_dialog_;
  PrintFiles print_files_{disk_};
  MountedVolumes volumes_;
  QtPrompter prompter_;
  FaultFile fault_file_;
  Workbench bench_;
  Windows windows_;
  Options remembered_;
  QTimer taken_;  ///< runs while a study that came from outside is to be opened
  Desk desk_;
  QtWorkbookPages pages_{desk_};
  XlsApplication workbooks_{disk_, pages_};
};

}  // namespace kalvo
