// The painted explanations of results, the cards of kinds, the states of fields.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <memory>

#include "desktop/theme.h"
#include "desktop/widgets/buttons/hint_button.h"
#include "desktop/widgets/fields/field_state.h"
#include "desktop/widgets/kind/kind_card.h"
#include "desktop/widgets/labels/leader_label.h"
#include "desktop/widgets/pictures/pipe_picture.h"
#include "desktop/widgets/pictures/title_art.h"
#include "desktop/widgets/results/branch_chain.h"
#include "desktop/widgets/results/drop_shares.h"
#include "desktop/widgets/results/section_steps.h"
#include "tests/desktop/pictures.h"

namespace kalvo {
namespace {

QList<SectionStep> SomeSteps() {
  return {{"Q", "Παροχή", "από το σώμα του τμήματος", "690,0", "Lit/h"},
          {"Re", "Αριθμός Reynolds", "D·v / (ν·1000),  ν = 1,31·10⁻⁶ m²/s", "11.552", ""},
          {"L", "Ισοδύναμα μήκη", "2,90 σωλήνας + 4,74 για Σζ 10,0 + 0,50 άλλα", "8,14", "m"},
          {"Δp", "Πτώση πίεσης", "R · 1,1 · L + σώμα", "2.830,5", "mm w.g."}};
}

std::array<ShareView, DropShares::kShares> SomeShares() {
  return {ShareView{"Σωλήνας", "275,4", 275.4}, ShareView{"Εξαρτήματα", "497,8", 497.8},
          ShareView{"Προσαύξηση 10%", "77,3", 77.3}, ShareView{"Σώμα", "1.980,0", 1980}};
}

BranchView SomeBranch(int nodes) {
  BranchView branch{"Δυσμενέστερος κλάδος", "8.687,4 mm w.g.", {"ANT"}, 4};
  for (int i = 1; i + 1 < nodes; ++i) branch.nodes << QString::number(i);
  branch.nodes << "ANT";
  return branch;
}

int CountColor(QWidget& widget, const QColor& color) {
  const QImage image = widget.grab().toImage();
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == color ? 1 : 0;
  }
  return count;
}

TEST(SectionSteps, GrowWithTheirNumberAndAreReadAloud) {
  SectionSteps steps;
  steps.SetSteps(SomeSteps());
  const int four = steps.sizeHint().height();
  EXPECT_TRUE(steps.accessibleDescription().contains("Πτώση πίεσης 2.830,5 mm w.g."));
  steps.SetSteps(SomeSteps().mid(0, 2));
  EXPECT_EQ(steps.sizeHint().height() * 2, four);
}

TEST(DropShares, TakeRoomByTheirAmount) {
  DropShares shares;
  shares.resize(300, 90);
  auto amounts = SomeShares();
  shares.SetShares("Από τι αποτελείται, σε mm w.g.", amounts);
  const int some_pipe = CountColor(shares, kLightTheme.primary);
  amounts[0].amount = 4000;
  shares.SetShares("Από τι αποτελείται, σε mm w.g.", amounts);
  EXPECT_GT(CountColor(shares, kLightTheme.primary), 2 * some_pipe);
}

TEST(DropShares, SurviveNothingToShare) {
  DropShares shares;
  shares.resize(300, 90);
  auto amounts = SomeShares();
  for (ShareView& share : amounts) share.amount = -1;
  shares.SetShares("", amounts);
  EXPECT_GT(CountColor(shares, kLightTheme.header), 1000) << "an empty bar";
}

TEST(BranchChain, DrawsTheCurrentSectionThick) {
  BranchChain chain;
  chain.resize(640, 60);
  BranchView branch = SomeBranch(10);
  chain.SetBranch(branch);
  const int with_current = CountColor(chain, kLightTheme.crit);
  EXPECT_TRUE(chain.accessibleDescription().contains("τρέχον τμήμα 4/5"));
  branch.current = -1;
  chain.SetBranch(branch);
  EXPECT_LT(CountColor(chain, kLightTheme.crit), with_current - 100);
}

TEST(BranchChain, HasRoomForAnyNumberOfNodes) {
  for (const int nodes : {2, 300}) {
    BranchChain chain;
    chain.resize(640, 60);
    BranchView branch = SomeBranch(nodes);
    branch.current = nodes - 2;
    chain.SetBranch(branch);
    EXPECT_GT(CountColor(chain, kLightTheme.crit), 100);
  }
  BranchChain empty;
  empty.SetBranch({});
  EXPECT_EQ(CountColor(empty, kLightTheme.crit), 0);
}

TEST(KindCard, AnyPlaceOfItChoosesAndADoubleClickGoesOn) {
  KindCard card;
  card.setProperty("optionName", "OptOpen");
  card.Option()->setText("< &Ανοικτό > Σύστημα Σωλήνων");
  EXPECT_EQ(card.findChild<QRadioButton*>("OptOpen"), card.Option());
  card.resize(340, 260);
  card.show();
  EXPECT_FALSE(card.Option()->isChecked());
  QTest::mouseClick(&card, Qt::LeftButton, {}, QPoint(170, 60));
  EXPECT_TRUE(card.Option()->isChecked());
  QSignalSpy chosen(&card, &KindCard::Chosen);
  QTest::mouseDClick(&card, Qt::LeftButton, {}, QPoint(170, 60));
  EXPECT_EQ(chosen.size(), 1);
  QTest::mouseDClick(card.Option(), Qt::LeftButton);
  EXPECT_EQ(chosen.size(), 2);
}

TEST(FieldState, RefusalLastsUntilTheNextEdit) {
  QLineEdit field("105");
  field.show();
  RefuseField(field);
  EXPECT_EQ(field.property("state"), "refused");
  EXPECT_EQ(field.selectedText(), "105");
  EXPECT_GT(CountColor(field, kLightTheme.errbg), 500);
  QTest::keyClick(&field, Qt::Key_9);
  EXPECT_EQ(field.property("state"), "");
  EXPECT_EQ(CountColor(field, kLightTheme.errbg), 0);
}

TEST(FieldState, NoStateChangesTheSizeOfAField) {
  QLineEdit field("105");
  field.ensurePolished();
  const QSize size = field.sizeHint();
  EXPECT_EQ(size.height(), 32);
  SetFieldState(field, "refused");
  EXPECT_EQ(field.sizeHint(), size);
  SetFieldState(field, "");
  field.setReadOnly(true);
  EXPECT_EQ(field.sizeHint(), size);
}

QGroupBox* FieldsForLooking() {
  auto* box = new QGroupBox("Πεδία");
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(16, 4, 16, 14);
  const char* captions[] = {"ελεύθερο ............",    "με εστίαση ............",
                            "κλειδωμένο ............",  "γκρι ............",
                            "απορρίφθηκε ............", "υπολογισμένη ............",
                            "επιβεβλημένη ............"};
  QList<QLineEdit*> fields;
  for (const char* caption : captions) {
    auto* field = new QLineEdit("12,5");
    field->setAlignment(Qt::AlignRight);
    grid->addWidget(new LeaderLabel(caption), static_cast<int>(fields.size()), 0);
    grid->addWidget(field, static_cast<int>(fields.size()), 1);
    fields << field;
  }
  fields[2]->setReadOnly(true);
  fields[3]->setEnabled(false);
  SetFieldState(*fields[4], "refused");
  fields[5]->setReadOnly(true);
  fields[6]->setReadOnly(true);
  SetFieldState(*fields[5], "calculated");
  SetFieldState(*fields[6], "imposed");
  fields[1]->setFocus();
  return box;
}

QGroupBox* ChoicesForLooking() {
  auto* box = new QGroupBox("Επιλογές");
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(16, 4, 16, 14);
  auto* combo = new QComboBox;
  combo->addItem("0011. Χαλυβδοσωλήνες ΕΛΟΤ ΕΝ 10255");
  column->addWidget(combo);
  for (const bool on : {true, false}) {
    auto* check = new QCheckBox("On-Off Ήχων");
    check->setChecked(on);
    column->addWidget(check);
    auto* option = new QRadioButton("< Κλειστό > Σύστημα Σωλήνων");
    option->setAutoExclusive(false);
    option->setChecked(on);
    column->addWidget(option);
  }
  for (const char* tone : {"", "warn", "ok", "err", "info", "crit"}) {
    auto* chip = new QLabel("Μη αποθηκευμένες αλλαγές");
    chip->setProperty("role", "chip");
    chip->setProperty("tone", tone);
    column->addWidget(chip, 0, Qt::AlignLeft);
  }
  auto* list = new QListWidget;
  list->addItems({"(0001.) Γραφεία", "(0002.) Ξενοδοχείο «Αίγλη»"});
  list->setCurrentRow(1);
  list->setMaximumHeight(80);
  column->addWidget(list);
  return box;
}

QWidget* ExplanationForLooking() {
  auto* card = new QFrame;
  card->setProperty("role", "card");
  auto* column = new QVBoxLayout(card);
  auto* steps = new SectionSteps;
  steps->SetSteps(SomeSteps());
  column->addWidget(steps);
  auto* shares = new DropShares;
  shares->SetShares("Από τι αποτελείται, σε mm w.g.", SomeShares());
  column->addWidget(shares);
  column->addStretch();
  return card;
}

QWidget* PipesForLooking() {
  auto* card = new QFrame;
  card->setProperty("role", "card");
  auto* column = new QVBoxLayout(card);
  auto* pipe = new PipePicture;
  pipe->SetPipe({"5", "ANT12", "αρχή", "τέλος", "7,6 m  ·  1\"  ·  1.210,0 Lit/h"});
  column->addWidget(pipe);
  for (const int nodes : {10, 70}) {
    auto* chain = new BranchChain;
    chain->SetBranch(SomeBranch(nodes));
    column->addWidget(chain);
  }
  column->addWidget(new PumpPicture);
  auto* title = new TitleArt;
  title->SetName("Kalvoflume");
  title->SetLine("Πρόγραμμα Υπολογισμού Σωλήνων Ροής Υγρών");
  title->SetLarge(true);
  column->addWidget(title);
  return card;
}

QWidget* KindsForLooking() {
  auto* cards = new QWidget;
  auto* row = new QHBoxLayout(cards);
  auto* closed = new KindCard;
  closed->Option()->setText("< &Κλειστό > Σύστημα Σωλήνων");
  closed->SetKeyName("Alt+Κ");
  closed->SetExplanation("Θέρμανση και ψύξη με σώματα: κόμβοι, προσαγωγή και επιστροφή, αντλία.");
  closed->Option()->setChecked(true);
  auto* open = new KindCard;
  open->SetOpenSystem(true);
  open->Option()->setText("< &Ανοικτό > Σύστημα Σωλήνων");
  open->SetKeyName("Alt+Α");
  open->SetExplanation("Ύδρευση με υποδοχείς: τμήματα και τροφοδότες, ύψη και πιέσεις ροής.");
  row->addWidget(closed);
  row->addWidget(open);
  cards->resize(740, 270);
  return cards;
}

TEST(Pictures, OfDrawingsAndFields) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    const QString suffix = theme == &kLightTheme ? "-light" : "-dark";
    ApplyTheme(*qApp, *theme);
    QWidget states;
    auto* row = new QHBoxLayout(&states);
    row->addWidget(FieldsForLooking());
    row->addWidget(ChoicesForLooking());
    KeepPicture(states, "states" + suffix);
    const std::unique_ptr<QWidget> explanation(ExplanationForLooking());
    explanation->resize(372, 340);
    KeepPicture(*explanation, "explanation" + suffix);
    const std::unique_ptr<QWidget> pipes(PipesForLooking());
    pipes->resize(660, 460);
    KeepPicture(*pipes, "pipes" + suffix);
    const std::unique_ptr<QWidget> kinds(KindsForLooking());
    KeepPicture(*kinds, "kinds" + suffix);
  }
  ApplyTheme(*qApp, kLightTheme);
}

}  // namespace
}  // namespace kalvo
