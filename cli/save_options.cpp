#include "cli/save_options.h"

#include <CLI/CLI.hpp>

#include "study/path_text.h"

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
  app.add_flag("--overwrite", overwrite_,
               "Το --save μπορεί να αντικαταστήσει άλλη μελέτη, ή στην ίδια\n"
               "τις διαμέτρους που όρισε ο χρήστης")
      ->needs(save);
}

bool SaveOptions::MaySave(const Console& console, Session& session, Diameters diameters) {
  if (!wanted()) {
    return true;
  }
  const std::filesystem::path& source = session.study().study_path;
  auto target = AbsolutePath(SaveTarget(save_, source));
  if (!target) {
    TellUnsaved(console, target.error());
    return false;
  }
  target_ = std::move(target).value();
  const Existing existing = overwrite_ ? Existing::kReplace : Existing::kKeep;
  Outcome may = CheckTarget(session, source, target_, existing);
  if (may && diameters == Diameters::kSizedAnew) {
    may = CheckImposed(session, source, target_, existing);
  }
  if (!may) {
    TellUnsaved(console, may.error());
  }
  return may.ok();
}

Outcome SaveOptions::Save(Session& session) const {
  return wanted() ? SaveStudy(session, target_) : Outcome(Done{});
}

void SaveOptions::TellNotSaved(const Console& console) const {
  if (wanted()) {
    console.err << "Η μελέτη ΔΕΝ σώθηκε\n";
  }
}

int SaveOptions::Tell(const Console& console, const Outcome& saved) const {
  if (!saved) {
    TellUnsaved(console, saved.error());
    return exit_code::kUnwritable;
  }
  if (wanted() && !console.quiet) {
    console.out.flush();
    console.err << "Σώθηκε : " << target_.string() << '\n';
  }
  return exit_code::kDone;
}

}  // namespace kalvo
