#include "entry/tees/frm_tau_cross_s.h"

#include "entry/tees/tee_counters.h"

namespace kalvo {
namespace {

constexpr std::string_view kPressHint = "Πατήστε το γράμμα του σκέλους που είναι το τμήμα.";

}  // namespace

FrmTauCross_S::FrmTauCross_S(Desk& shared_desk, std::string_view own_screen)
    : Form(shared_desk),
      Cmd_Close(*this, "Cmd_Close", "Κλείσιμο", [this] { Close(); }, {Plain(KeyCode::kEscape)}),
      own_screen_(own_screen) {
  LblKeys.text = std::string("Κάθε πάτημα προσθέτει · από ") +
                 (own_screen == screen::kTees ? "το φύλλο" : "τη φόρμα") + ": Shift + γράμμα";
  title = "ΚΑΤΑΧΩΡΗΣΗ < ΤΑΥ > ΚΑΙ < ΣΤΑΥΡΩΝ >, ΣΕ ΔΙΑΚΛΑΔΩΣΕΙΣ";
  for (const TeePicture picture : kTeePictures) {
    Junction& drawn = pictures.emplace_back(*this, "Pic" + std::string(NameOf(picture)));
    static_cast<JunctionContent&>(drawn) = ContentOf(picture);
  }
  for (const TeeCase& tee : TeeCases()) {
    const std::string letter(1, tee.letter);
    letters.emplace_back(*this, "Cmd_" + letter, letter,
                         [this, pressed = tee.letter] { PressLetter(pressed); });
    effects.emplace_back(*this, "LblEffect_" + letter);
  }
  MakeMenus();
}

void FrmTauCross_S::MakeMenus() {
  Menu tees{"&ΤΑΥ", {}};
  Menu crosses{"&ΣΤΑΥΡΟΙ", {}};
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const bool cross = IsCross(TeeCases()[i].picture);
    const std::string& letter = letters[i].caption;
    (cross ? crosses : tees)
        .entries.push_back({(cross ? "mnuCross_" : "mnuTau_") + letter,
                            "Επιλογή < " + letter + " >", &letters[i]});
  }
  menus = {tees, crosses, {"&ΚΛΕΙΣΙΜΟ ΦΟΡΜΑΣ", {{"mnuClose", Cmd_Close.caption, &Cmd_Close}}}};
}

// A key pressed by mistake then adds nothing.
void FrmTauCross_S::Load() { Focus(Cmd_Close); }

void FrmTauCross_S::Activate() {
  if (desk.screens.tee_counters == nullptr) {
    desk.navigator.Close(own_screen_);
  } else {
    desk.screens.tee_counters->Shown();
  }
}

bool FrmTauCross_S::OtherKey(const Key& key) {
  if (!key.IsText()) return false;
  const TeeCase* tee = FindTeeCase(key.latin);
  if (tee == nullptr) return false;
  Run(Get<Command>(std::string("Cmd_") + tee->letter));
  return true;
}

void FrmTauCross_S::PressLetter(char letter) {
  TeeCounters* counters = desk.screens.tee_counters;
  if (counters == nullptr) return;
  refused_for_.clear();
  if (counters->Press(letter)) return;
  refused_for_ = counters->SectionText();
  refusal_ = counters->Refusal();
  desk.sound.Beep();
}

void FrmTauCross_S::Close() {
  desk.navigator.Close(own_screen_);
  if (desk.screens.tee_counters != nullptr) desk.screens.tee_counters->BringToFront();
}

bool FrmTauCross_S::MayClose() {
  Run(Cmd_Close);
  return false;
}

void FrmTauCross_S::Derive() {
  DeriveCounts();
  DeriveEffects();
  LblHint.text = refused_for_.empty() ? kPressHint : refusal_;
  LblHint.tone = refused_for_.empty() ? Tone::kPlain : Tone::kAlarm;
}

void FrmTauCross_S::DeriveCounts() {
  const TeeCounters* counters = desk.screens.tee_counters;
  LblSection.text = counters == nullptr ? "—" : counters->SectionText();
  if (LblSection.text != refused_for_) refused_for_.clear();
  const TeeTexts texts = counters == nullptr ? TeeTexts{} : counters->Counts();
  Label* const labels[kTeeCounters] = {&LblDiaTee, &LblDieTee, &LblAntiTee, &LblSymboTee};
  for (std::size_t i = 0; i < kTeeCounters; ++i) {
    labels[i]->text = texts[i].empty() ? "0" : texts[i];
  }
}

void FrmTauCross_S::DeriveEffects() {
  const TeeCounters* counters = desk.screens.tee_counters;
  const TeeTable table = counters == nullptr ? TeeTable::kSheet : counters->Table();
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const TeeCase& tee = TeeCases()[i];
    const Tone tone = tee.Counts(table) ? Tone::kPlain : Tone::kQuiet;
    effects[i].text = EffectText(tee, table, "\n");
    effects[i].tone = letters[i].tone = tone;
    letters[i].spoken = SpokenText(tee, table);
  }
}

}  // namespace kalvo
