#include "cli/save_options.h"

#include <CLI/CLI.hpp>

namespace kalvo {

namespace {

// An empty name, as of a variable that is not set, would save nothing in silence.
CLI::Validator NotEmpty() {
  return {[](const std::string& name) { return std::string(name.empty() ? "empty" : ""); }, ""};
}

void TellUnsaved(const Console& console, const FileError& error) {
  console.out.flush();
  console.err << "Η μελέτη ΔΕΝ σώθηκε. " << error.Line() << '\n';
}

}  // namespace

void SaveOptions::AddTo(CLI::App& app, const std::string& help) {
  CLI::Option* save = app.add_option("--save", save_, help)->check(NotEmpty())->type_name("ΑΡΧΕΙΟ");
  app.add_flag("--overwrite", overwrite_, "Το --save μπορεί να αντικαταστήσει άλλη μελέτη")
      ->needs(save);
}

bool SaveOptions::MaySave(const Console& console, const Session& session) {
  if (!wanted()) {
    return true;
  }
  const std::filesystem::path& source = session.study().study_path;
  target_ = SaveTarget(save_, source);
  const Outcome may =
      CheckTarget(session, source, target_, overwrite_ ? Existing::kReplace : Existing::kKeep);
  if (!may) {
    TellUnsaved(console, may.error());
  }
  return may.ok();
}

int SaveOptions::Save(const Console& console, Session& session) const {
  if (!wanted()) {
    return exit_code::kDone;
  }
  if (const Outcome saved = SaveStudy(session, target_); !saved) {
    TellUnsaved(console, saved.error());
    return exit_code::kUnwritable;
  }
  if (!console.quiet) {
    console.out.flush();
    console.err << "Σώθηκε : " << target_.string() << '\n';
  }
  return exit_code::kDone;
}

}  // namespace kalvo
