#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "form/form.h"
#include "tests/support/set_volumes.h"
#include "tests/support/test_bench.h"

namespace kalvo {

/// A sound that counts what would be heard.
class CountedSound : public Sound {
 public:
  void Play() override { ++played; }
  void Beep() override { ++beeps; }
  int played = 0;
  int beeps = 0;
};

/// A viewer that notes what it was to show.
class NotedViewer : public Viewer {
 public:
  Outcome Open(const std::filesystem::path& file) override {
    files.push_back(file);
    return Done{};
  }
  std::vector<std::filesystem::path> files;
};

/// A printer that notes what it was to print. The test sets what its user chooses and what happens.
class NotedPrinter : public Printers {
 public:
  std::vector<KnownPrinter> Known() override { return known; }
  std::optional<PrintOrder> ChooseFrom(const PrintOrder& order) override {
    asked.push_back(order);
    return answer ? answer(order) : std::nullopt;
  }
  PrinterChoice Choose(std::string_view /*name*/, bool across) override {
    began_across = across;
    return choice;
  }
  Result<std::optional<std::string>> MakePdf(const PrintedTable& table,
                                             std::string_view notice) override {
    tables.push_back(table);
    notices.emplace_back(notice);
    if (cancels) return std::optional<std::string>();
    return std::optional<std::string>("%PDF of " + table.name);
  }
  Result<bool> Print(const std::string& pdf, std::string_view /*name*/,
                     std::string_view notice) override {
    notices.emplace_back(notice);
    if (refusal) return *refusal;
    printed.push_back(pdf);
    return true;
  }

  std::vector<KnownPrinter> known;
  std::vector<PrintOrder> asked;  ///< what the dialogue began with
  /// What the user does there; none: cancels.
  std::function<std::optional<PrintOrder>(const PrintOrder&)> answer;
  bool began_across = false;
  PrinterChoice choice;
  bool cancels = false;  ///< while pages are made
  std::optional<FileError> refusal;
  std::vector<PrintedTable> tables;
  std::vector<std::string> printed;
  std::vector<std::string> notices;
};

/// Screens that are noted, not shown. A screen shown over others must be expected: the test says
/// what its user does there.
class NotedNavigator : public Navigator {
 public:
  NotedNavigator() = default;
  NotedNavigator(const NotedNavigator&) = delete;
  NotedNavigator& operator=(const NotedNavigator&) = delete;
  ~NotedNavigator() override;

  /// The next screen shown over the others is this one, and this happens in it.
  void Expect(std::string_view screen, std::function<void()> use);

  void Show(std::string_view screen) override;
  void ShowModal(std::string_view screen) override;
  void Close(std::string_view screen) override;
  void Hide(std::string_view screen) override;
  [[nodiscard]] bool IsOpen(std::string_view screen) const override;
  void ShowWait(std::string_view text) override { waits.emplace_back(text); }
  void HideWait() override { waits.emplace_back("-"); }
  void EndProgram() override { log.emplace_back("end"); }

  /// What happens in every screen shown over the others, instead of those that are expected.
  std::function<void(std::string_view)> on_modal;
  /// "show FrmRes", "modal FrmGoTo", "close FrmRes", "hide FrmMain", "end", oldest first.
  std::vector<std::string> log;
  std::vector<std::string> waits;  ///< texts of the wait indicator, "-" where it was taken away

 private:
  struct Expected {
    std::string screen;
    std::function<void()> use;
  };
  std::deque<Expected> expected_;
  std::vector<std::string> open_;
};

/// A desk over a TestBench, with a comma for decimals and noted screens.
class TestDesk {
 public:
  explicit TestDesk(SystemKind kind = SystemKind::kClosed) : test(kind) { desk.volumes = &volumes; }

  TestBench test;
  NotedNavigator navigator;
  CountedSound sound;
  NotedViewer viewer;
  MemoryClipboard clipboard;
  NotedPrinter printer;
  SetVolumes volumes;
  Desk desk{test.bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
};

/// The user types `text` into a field: the focus goes there, the old text is overwritten, each
/// character is a key. Characters that the field refuses are lost, as on a screen.
void TypeInto(Form& form, Field& field, std::string_view text);

/// The user presses a key where the keyboard is. What the form leaves edits the text there, as on a
/// screen.
void PressKey(Form& form, const Key& key);

/// The user pastes over the whole text. False when the field refuses it.
bool PasteInto(Form& form, Field& field, std::string_view text);

/// The user clicks a command.
void Click(Form& form, Command& command);

}  // namespace kalvo
