#include "desktop/binder.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QScrollArea>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "desktop/key_event.h"
#include "desktop/qt_text.h"

namespace kalvo {
namespace {

constexpr int kSelfRunnerStepMs = 40;
constexpr int kFieldAroundCaret = 16;

bool IsOperable(const QWidget& widget) {
  return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
         qobject_cast<const QLineEdit*>(&widget) != nullptr;
}

// One that only tells something, such as a step of the study without a command.
bool OnlyTells(const QWidget& widget) { return !widget.isEnabled(); }

// A widget that a form's designer has named, not one that Qt makes inside another.
bool IsNamedByDesign(const QWidget& widget) {
  return !widget.objectName().isEmpty() && !widget.objectName().startsWith(QStringLiteral("qt_"));
}

// The text that labels a widget, without dots and mnemonic.
QString LabelOf(const QWidget& window, const QWidget& widget) {
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->buddy() == &widget) {
      QString text = label->text().remove(QLatin1Char('&'));
      while (text.endsWith(QLatin1Char('.')) || text.endsWith(QLatin1Char(' '))) text.chop(1);
      return text.trimmed();
    }
  }
  return {};
}

bool IsCopy(const QKeyEvent& event) {
  return KeyOf(event) == Ctrl('C') || KeyOf(event) == Ctrl(KeyCode::kInsert);
}

// Set on an entry of a menu that bears its command's caption, which may change.
constexpr const char* kFollowsCommand = "followsCommand";

// A name from outside has no letter to be pressed with Alt.
QString MenuCaption(std::string_view caption, bool from_outside) {
  QString text = ToQt(caption).trimmed();
  return from_outside ? text.replace(QLatin1Char('&'), QStringLiteral("&&")) : text;
}

// By itself a scroll area follows no focus but that of Tab. It looks at the caret, which a field
// surrounds by that much.
void BringInSight(QWidget& widget) {
  for (QWidget* around = widget.parentWidget(); around != nullptr;
       around = around->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(around))
      area->ensureWidgetVisible(&widget, 0, kFieldAroundCaret);
  }
}

// The command's key as a menu shows it, at the right.
QString KeyColumn(const Command& command) {
  return command.keys.empty() ? QString() : QLatin1Char('\t') + ToQt(KeyText(command.keys.front()));
}

// What the action threw, nothing when it went well.
template <typename Action>
std::exception_ptr ThrownBy(const Action& action) {
  try {
    action();
  } catch (const std::exception&) {
    return std::current_exception();
  }
  return nullptr;
}

// Counts an action as under way for as long as this lives.
class UnderWay {
 public:
  explicit UnderWay(int& depth) : depth_(depth) { ++depth_; }
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;
  ~UnderWay() { --depth_; }

 private:
  int& depth_;
};

}  // namespace

Binder::Binder(Form& form, QWidget& window, Hooks hooks)
    : form_(form), window_(window), hooks_(std::move(hooks)) {
  BindParts();
  BindMenus();
  BindSelfRunner();
  window_.installEventFilter(this);
  for (QWidget* child : window_.findChildren<QWidget*>()) {
    child->installEventFilter(this);
  }
}

void Binder::BindParts() {
  static_cast<void>(ThrownBy([this] { form_.Derive(); }));  // the first painting tells it
  const Act act = [this](const std::function<void()>& action) { Do(action); };
  for (Control* part : form_.controls()) {
    auto* widget = window_.findChild<QWidget*>(ToQt(part->name()));
    if (widget == nullptr) continue;
    if (auto binding = MakeBinding(form_, *part, *widget, act)) {
      if (widget->accessibleName().isEmpty()) widget->setAccessibleName(LabelOf(window_, *widget));
      bound_.push_back({part, std::move(binding)});
    }
  }
  for (const QWidget* widget : window_.findChildren<QWidget*>()) {
    if (IsOperable(*widget) && !OnlyTells(*widget) && IsNamedByDesign(*widget) &&
        PartOf(widget) == nullptr) {
      stray_widgets_.push_back(widget->objectName());
    }
  }
}

void Binder::BindSelfRunner() {
  if (form_.runs_by_itself == nullptr) return;
  const int whole = static_cast<int>(form_.after_seconds * 1000);
  auto* bar = window_.findChild<QProgressBar*>();
  if (bar != nullptr) bar->setRange(0, whole);
  auto* step = new QTimer(this);
  connect(step, &QTimer::timeout, this, [this, bar, whole, step, since = QDeadlineTimer(whole)] {
    if (bar != nullptr) bar->setValue(whole - static_cast<int>(since.remainingTime()));
    if (!since.hasExpired() || depth_ > 0) return;
    step->stop();
    Do([&] { form_.Run(*form_.runs_by_itself); });
  });
  step->start(kSelfRunnerStepMs);
}

QMenu* Binder::MakeMenu(const Menu& menu) {
  auto* made = new QMenu(ToQt(menu.title), &window_);
  for (const MenuEntry& entry : menu.entries) {
    if (entry.command == nullptr) {
      made->addSeparator();
      continue;
    }
    Command* command = entry.command;
    QString caption = MenuCaption(entry.caption.empty() ? command->caption : entry.caption,
                                  entry.caption.empty());
    caption += KeyColumn(*command);
    QAction* action = made->addAction(caption);
    action->setObjectName(ToQt(entry.name));
    action->setProperty(kFollowsCommand, entry.caption.empty());
    connect(action, &QAction::triggered, this,
            [this, command] { Do([&] { form_.Run(*command); }); });
    actions_.emplace_back(command, action);
  }
  return made;
}

void Binder::BindMenus() {
  if (form_.menus.empty() || window_.layout() == nullptr) return;
  auto* bar = new QMenuBar(&window_);
  for (const Menu& menu : form_.menus) {
    bar->addMenu(MakeMenu(menu));
  }
  window_.layout()->setMenuBar(bar);
}

void Binder::ShowPopup(const QPoint& at) {
  QMenu* menu = MakeMenu(form_.popup);
  menu->exec(at);
  const auto of_menu = [menu](const auto& bound) { return bound.second->parent() == menu; };
  std::erase_if(actions_, of_menu);
  menu->deleteLater();
}

void Binder::Do(const std::function<void()>& action) {
  {
    const UnderWay under_way(depth_);
    try {
      action();
    } catch (const std::exception& cause) {
      form_.TellBroken(cause);
    }
  }
  hooks_.paint_all();
}

void Binder::DoQuietly(const std::function<bool()>& action) {
  bool changed = true;
  {
    const UnderWay under_way(depth_);
    try {
      changed = action();
    } catch (const std::exception& cause) {
      form_.TellBroken(cause);
    }
  }
  if (changed) hooks_.paint_all();
}

void Binder::Paint() {
  std::exception_ptr broken;
  const auto attempt = [&broken](const auto& step) {
    if (auto cause = ThrownBy(step)) broken = std::move(cause);
  };
  attempt([this] { form_.Derive(); });
  const QString title = ToQt(form_.title).trimmed();
  if (window_.windowTitle() != title) window_.setWindowTitle(title);
  const QWidget* had_focus = window_.focusWidget();
  {
    // The toolkit moves the focus on when its widget is hidden; that is no user's move.
    const UnderWay under_way(depth_);
    for (const Bound& bound : bound_) {
      attempt([&bound] { bound.binding->Paint(); });
    }
    attempt([this] { PaintMenus(); });
  }
  attempt([this] { FollowFocus(); });
  NoteUnpainted(broken);
  if (window_.focusWidget() != had_focus) FocusCame(window_.focusWidget());
}

void Binder::PaintMenus() {
  for (const auto& [command, action] : actions_) {
    action->setVisible(command->visible);
    if (action->property(kFollowsCommand).toBool()) {
      action->setText(MenuCaption(command->caption, true) + KeyColumn(*command));
    }
    auto* menu = qobject_cast<QMenu*>(action->parent());
    if (menu != nullptr && !menu->isVisible()) menu->menuAction()->setVisible(!menu->isEmpty());
  }
}

// The user is told when the painting has ended: a box paints all windows itself.
void Binder::NoteUnpainted(const std::exception_ptr& cause) {
  const bool told = std::exchange(unpainted_, cause != nullptr);
  if (cause == nullptr || told) return;
  const auto tell = [this, cause] {
    const UnderWay under_way(depth_);
    try {
      std::rethrow_exception(cause);
    } catch (const std::exception& known) {
      form_.TellUnpainted(known);
    }
  };
  QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void Binder::FollowFocus() {
  if (focus_moves_ == form_.focus_moves() || !window_.isVisible()) return;
  focus_moves_ = form_.focus_moves();
  for (const Bound& bound : bound_) {
    if (bound.part != form_.focus()) continue;
    {
      const UnderWay under_way(depth_);  // the form knows of this move
      bound.binding->widget()->setFocus(Qt::OtherFocusReason);
    }
    BringInSight(*bound.binding->widget());
    bound.binding->Paint();
  }
}

void Binder::FocusCame(QWidget* widget) {
  if (depth_ > 0) return;
  Control* part = PartOf(widget);
  if (part == form_.focus()) {
    Paint();  // a text to be selected waits for the keys to come
    return;
  }
  Do([&] { form_.MoveFocus(part); });
}

Binding* Binder::BindingOf(const QWidget* widget) const {
  for (; widget != nullptr && widget != &window_; widget = widget->parentWidget()) {
    for (const Bound& bound : bound_) {
      if (bound.binding->widget() == widget) return bound.binding.get();
    }
  }
  return nullptr;
}

Control* Binder::PartOf(const QWidget* widget) const {
  const Binding* binding = BindingOf(widget);
  for (const Bound& bound : bound_) {
    if (bound.binding.get() == binding) return bound.part;
  }
  return nullptr;
}

bool Binder::HasFace(const Control& part) const {
  const auto bound = std::ranges::any_of(bound_, [&](const Bound& b) { return b.part == &part; });
  const auto* command = dynamic_cast<const Command*>(&part);
  if (bound || command == nullptr) return bound;
  const auto in_menu = std::ranges::any_of(
      form_.popup.entries, [&](const MenuEntry& entry) { return entry.command == command; });
  const auto in_bar =
      std::ranges::any_of(actions_, [&](const auto& action) { return action.first == command; });
  return in_menu || in_bar || !command->keys.empty();
}

QStringList Binder::missing() const {
  QStringList names = stray_widgets_;
  for (const Control* part : form_.controls()) {
    if (!HasFace(*part)) names.push_back(ToQt(part->name()));
  }
  return names;
}

// The widget to which keys go.
bool Binder::HasKeys(const QObject* watched) const {
  const QWidget* focus = window_.focusWidget();
  if (qobject_cast<const QMenuBar*>(focus) != nullptr) return false;  // its keys are its own
  return watched == (focus == nullptr ? &window_ : focus);
}

void Binder::KeyReleased(QObject* watched, const QKeyEvent& event) {
  if (!HasKeys(watched)) return;
  if (const auto key = chord_.Released(event)) {
    Do([&] { form_.Press(*key); });
  }
}

bool Binder::KeyPressed(QObject* watched, const QKeyEvent& event) {
  if (!HasKeys(watched) || chord_.HoldsBack(event)) return false;
  const QWidget* focus = window_.focusWidget();
  const Key key = KeyOf(event);
  if (key == Key{}) return false;
  bool taken = false;
  Do([&] { taken = form_.Press(key); });
  if (taken) return true;
  if (key == Shift(KeyCode::kF10) && !form_.popup.entries.empty()) {
    ShowPopup(window_.mapToGlobal(window_.rect().center()));
    return true;
  }
  if (hooks_.show_help && AsksForHelp(key)) {
    Do(hooks_.show_help);
    return true;
  }
  Binding* binding = BindingOf(focus);
  return IsCopy(event) && binding != nullptr && binding->Copy();
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      return KeyPressed(watched, static_cast<const QKeyEvent&>(*event));
    case QEvent::KeyRelease:
      KeyReleased(watched, static_cast<const QKeyEvent&>(*event));
      return false;
    case QEvent::WindowDeactivate:
      chord_.Forget();
      return false;
    case QEvent::Close:
      if (watched != &window_) return false;
      event->ignore();
      if (depth_ == 0) {
        Do([&] {
          if (form_.MayClose()) hooks_.close_window();
        });
      }
      return true;
    case QEvent::MouseButtonPress:
      if (form_.runs_by_itself == nullptr || watched != &window_) return false;
      Do([&] { form_.Run(*form_.runs_by_itself); });
      return true;
    case QEvent::ContextMenu:
      if (form_.popup.entries.empty() || qobject_cast<QLineEdit*>(watched) != nullptr) return false;
      ShowPopup(static_cast<const QContextMenuEvent&>(*event).globalPos());
      return true;
    default:
      return false;
  }
}

}  // namespace kalvo
