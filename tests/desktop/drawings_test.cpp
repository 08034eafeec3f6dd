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

#include "desktop/bindings/binding.h"
#include "desktop/style_property.h"
#include "desktop/theme.h"
#include "desktop/widgets/buttons/hint_button.h"
#include "desktop/widgets/kind/kind_card.h"
#include "desktop/widgets/labels/leader_label.h"
#include "desktop/widgets/pictures/pipe_picture.h"
#include "desktop/widgets/pictures/pump_picture.h"
#include "desktop/widgets/pictures/title_art.h"
#include "desktop/widgets/results/branch_chain.h"
#include "desktop/widgets/results/drop_shares.h"
#include "desktop/widgets/results/section_steps.h"
#include "tests/desktop/pictures.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

StepsContent SomeSteps() {
  return {{{"Q", "Παροχή", "από το σώμα του τμήματος", "690,0", "Lit/h"},
           {"Re", "Αριθμός Reynolds", "D·v / (ν·1000),  ν = 1,31·10⁻⁶ m²/s", "11.552", ""},
           {"L", "Ισοδύναμα μήκη", "2,90 σωλήνας + 4,74 για Σζ 10,0 + 0,50 άλλα", "8,14", "m"},
           {"Δp", "Πτώση πίεσης", "R · 1,1 · L + σώμα", "2.830,5", "mm w.g."}}};
}

SharesContent SomeShares() {
  return {"Από τι αποτελείται, σε mm w.g.",
          {{"Σωλήνας", "275,4", 0.0973},
           {"Εξαρτήματα", "497,8", 0.1759},
           {"Προσαύξηση 10%", "77,3", 0.0273},
           {"Σώμα", "1.980,0", 0.6995}}};
}

ChainContent SomeBranch(int nodes) {
  ChainContent branch{"Δυσμενέστερος κλάδος", "8.687,4 mm w.g.", {"ANT"}, 4};
  for (int i = 1; i + 1 < nodes; ++i) branch.nodes.push_back(std::to_string(i));
  branch.nodes.emplace_back("ANT");
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
  StepsContent content = SomeSteps();
  steps.SetContent(content);
  const int four = steps.sizeHint().height();
  EXPECT_TRUE(steps.accessibleDescription().contains("Πτώση πίεσης 2.830,5 mm w.g."));
  content.lines.resize(2);
  steps.SetContent(content);
  EXPECT_EQ(steps.sizeHint().height() * 2, four);
}

TEST(DropShares, TakeRoomByTheirAmount) {
  DropShares shares;
  shares.resize(300, 90);
  SharesContent content = SomeShares();
  shares.SetContent(content);
  const int some_pipe = CountColor(shares, kLightTheme.primary);
  content.parts[0].fraction = 1.4;
  shares.SetContent(content);
  EXPECT_GT(CountColor(shares, kLightTheme.primary), 2 * some_pipe);
}

TEST(DropShares, SurviveNothingToShare) {
  DropShares shares;
  shares.resize(300, 90);
  SharesContent content = SomeShares();
  for (Share& share : content.parts) share.fraction = -1;
  shares.SetContent(content);
  EXPECT_GT(CountColor(shares, kLightTheme.header), 1000) << "an empty bar";
}

TEST(BranchChain, DrawsTheCurrentSectionThick) {
  BranchChain chain;
  chain.resize(640, 60);
  ChainContent branch = SomeBranch(10);
  chain.SetContent(branch);
  const int with_current = CountColor(chain, kLightTheme.crit);
  EXPECT_TRUE(chain.accessibleDescription().contains("τρέχον τμήμα 4/5"));
  branch.current = -1;
  chain.SetContent(branch);
  EXPECT_LT(CountColor(chain, kLightTheme.crit), with_current - 100);
}

TEST(BranchChain, HasRoomForAnyNumberOfNodes) {
  for (const int nodes : {2, 300}) {
    BranchChain chain;
    chain.resize(640, 60);
    ChainContent branch = SomeBranch(nodes);
    branch.current = nodes - 2;
    chain.SetContent(branch);
    EXPECT_GT(CountColor(chain, kLightTheme.crit), 100);
  }
  BranchChain empty;
  empty.SetContent({});
  EXPECT_EQ(CountColor(empty, kLightTheme.crit), 0);
}

TEST(BranchChain, TellsTheFormWhichOfItsStretchesIsClicked) {
  struct ChainForm : Form {
    using Form::Form;
    Chain Branch{*this, "Branch"};
  };
  TestDesk test;
  ChainForm form(test.desk);
  std::vector<int> picked;
  form.Branch.on_pick = [&](int place) { picked.push_back(place); };
  form.Branch.nodes = {"ANT", "1", "2", "ANT"};
  BranchChain chain;
  chain.resize(340, 60);  // three stretches of 100 between two margins of 20
  int acts = 0;
  const auto binding =
      MakeBinding(form, form.Branch, chain, [&](const std::function<void()>& action) {
        ++acts;
        action();
      });
  ASSERT_NE(binding, nullptr);
  for (const int x : {10, 30, 210, 310, 335}) {
    QTest::mouseClick(&chain, Qt::LeftButton, {}, QPoint(x, 30));
  }
  QTest::mouseClick(&chain, Qt::RightButton, {}, QPoint(30, 30));
  EXPECT_EQ(picked, (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(acts, 3) << "the windows are painted anew after each";
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

TEST(FieldState, ShowsWithoutChangingTheSizeOfAField) {
  QLineEdit field("105");
  field.show();
  const QSize size = field.sizeHint();
  EXPECT_EQ(size.height(), 32);
  SetStyleProperty(field, "state", "refused");
  EXPECT_EQ(field.sizeHint(), size);
  EXPECT_GT(CountColor(field, kLightTheme.errbg), 500);
  SetStyleProperty(field, "state", "");
  EXPECT_EQ(field.sizeHint(), size);
  EXPECT_EQ(CountColor(field, kLightTheme.errbg), 0);
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
  SetStyleProperty(*fields[4], "state", "refused");
  fields[5]->setReadOnly(true);
  fields[6]->setReadOnly(true);
  SetStyleProperty(*fields[5], "state", "calculated");
  SetStyleProperty(*fields[6], "state", "imposed");
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
  steps->SetContent(SomeSteps());
  column->addWidget(steps);
  auto* shares = new DropShares;
  shares->SetContent(SomeShares());
  column->addWidget(shares);
  column->addStretch();
  return card;
}

QWidget* PipesForLooking() {
  auto* card = new QFrame;
  card->setProperty("role", "card");
  auto* column = new QVBoxLayout(card);
  auto* pipe = new PipePicture;
  pipe->SetContent({"5", "ANT12", "αρχή", "τέλος", "7,6 m  ·  1\"  ·  1.210,0 Lit/h"});
  column->addWidget(pipe);
  for (const int nodes : {10, 70}) {
    auto* chain = new BranchChain;
    chain->SetContent(SomeBranch(nodes));
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
