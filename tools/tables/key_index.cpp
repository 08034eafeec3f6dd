#include "tools/tables/key_index.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

#include "desktop/screens.h"
#include "form/tell.h"
#include "shell/manual/manual_chapters.h"
#include "study/memory_workspace.h"

namespace kalvo {
namespace {

// A program in which nothing happens: forms are made in it, and asked for their commands.
struct NoNavigator : Navigator {
  void Show(std::string_view /*screen*/) override {}
  void ShowModal(std::string_view /*screen*/) override {}
  void Close(std::string_view /*screen*/) override {}
  void Hide(std::string_view /*screen*/) override {}
  [[nodiscard]] bool IsOpen(std::string_view /*screen*/) const override { return false; }
  void ShowWait(std::string_view /*text*/) override {}
  void HideWait() override {}
  void EndProgram() override {}
};

struct NoPrompter : Prompter {
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kNone; }
  Answer Ask(const Box& /*box*/) override { return Answer::kNone; }
};

struct NoViewer : Viewer {
  Outcome Open(const std::filesystem::path& /*file*/) override { return Done{}; }
};

struct NoPrinters : Printers {
  std::vector<KnownPrinter> Known() override { return {}; }
  std::optional<PrintOrder> ChooseFrom(const PrintOrder& /*order*/) override { return {}; }
  PrinterChoice Choose(std::string_view /*name*/, bool /*across*/) override { return {}; }
  Result<std::optional<std::string>> MakePdf(const PrintedTable& /*table*/,
                                             std::string_view /*notice*/) override {
    return std::optional<std::string>();
  }
  Result<bool> Print(const std::string& /*pdf*/, std::string_view /*name*/,
                     std::string_view /*notice*/) override {
    return false;
  }
};

struct QuietDesk {
  MemoryWorkspace workspace{{}};
  PipeList pipes;
  Study study;
  NoPrompter prompter;
  Workbench bench{study, *workspace, pipes, prompter};
  NoNavigator navigator;
  Silence sound;
  NoViewer viewer;
  MemoryClipboard clipboard;
  NoPrinters printers;
  Desk desk{bench, navigator, sound, viewer, clipboard, printers, Separators{',', '.'}};
};

// Plain keys come before those with modifiers, named ones before letters.
auto OrderOf(const Key& key) {
  return std::tuple(key.ctrl, key.alt, key.shift && !key.IsText(), key.code == KeyCode::kCharacter,
                    key.code, key.character);
}

std::string Words(std::string_view caption) {
  std::string words;
  for (const char c : caption) {
    if (c != '&' && (c != ' ' || (!words.empty() && words.back() != ' '))) words += c;
  }
  if (words.ends_with(' ')) words.pop_back();
  return words;
}

// Modifiers pressed by themselves have no sign behind them.
std::string TextOf(const Key& key) {
  std::string text = KeyText(key);
  if (const std::size_t end = text.find('\0'); end != std::string::npos) text.resize(end - 1);
  return text;
}

std::string LinkTo(std::string_view screen) {
  const auto entry = std::ranges::find(ScreenChapters(), screen, &ScreenChapter::screen);
  const ManualPlace place = PlaceOfScreen(screen);
  return "[" + std::string(entry->heading) + "](" + place.chapter + ".md#" + place.anchor + ")";
}

struct Use {
  Key key;
  std::string caption;
  std::vector<std::string> screens;
};

class Uses {
 public:
  void Add(const Key& key, const std::string& caption, const std::string& screen) {
    const auto same = [&](const Use& use) { return use.key == key && use.caption == caption; };
    auto found = std::ranges::find_if(uses_, same);
    if (found == uses_.end()) found = uses_.insert(uses_.end(), Use{key, caption, {}});
    if (std::ranges::count(found->screens, screen) == 0) found->screens.push_back(screen);
  }

  std::string Table() {
    std::ranges::stable_sort(uses_, {}, [](const Use& use) { return OrderOf(use.key); });
    std::string text = "| πλήκτρο | εντολή | πού |\n|---|---|---|\n";
    for (const Use& use : uses_) {
      std::string screens;
      for (const std::string& screen : use.screens) {
        screens += (screens.empty() ? "" : ", ") + screen;
      }
      text += "| `" + TextOf(use.key) + "` | **" + use.caption + "** | " + screens + " |\n";
    }
    return text;
  }

 private:
  std::vector<Use> uses_;
};

}  // namespace

std::string KeyIndex() {
  Uses uses;
  for (const Screen& screen : Screens()) {
    QuietDesk quiet;
    const auto form = screen.make(quiet.desk);
    form->Derive();
    for (const Control* part : form->controls()) {
      const auto* command = dynamic_cast<const Command*>(part);
      if (command == nullptr || command->caption.empty()) continue;
      for (const Key& key : command->keys) {
        uses.Add(key, Words(command->caption), LinkTo(screen.name));
      }
    }
  }
  return uses.Table();
}

}  // namespace kalvo
