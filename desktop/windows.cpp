#include "desktop/windows.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <cassert>
#include <stdexcept>

#include "desktop/qt_text.h"
#include "desktop/style_property.h"
#include "desktop/window_pair.h"
#include "shell/manual/manual_chapters.h"

namespace kalvo {
namespace {

// How long a screen closed by its own action is kept before the next look at it.
constexpr int kBusyMs = 150;
// Painting and listening at each step would take longer than the work.
constexpr int kBreathMs = 40;
// How often forms may do what waits for a quiet moment.
constexpr int kIdleMs = 300;
// Height that the desktop's title bar may need.
constexpr int kTitleBar = 40;

QString GeometryKey(const QWidget& window) {
  return window.objectName() + QStringLiteral("/geometry");
}

QString SplitterKey(const QWidget& window, const QSplitter& splitter) {
  return window.objectName() + QLatin1Char('/') + splitter.objectName();
}

// It may have been left on a larger screen, which is gone.
void BringOntoScreen(QWidget& window) {
  const QRect free_area = window.screen()->availableGeometry();
  window.resize(window.size().boundedTo(free_area.size() - QSize(0, kTitleBar)));
  const QRect now(window.pos(), window.size() + QSize(0, kTitleBar));
  const int left = qMax(free_area.left(), qMin(now.left(), free_area.right() + 1 - now.width()));
  const int top = qMax(free_area.top(), qMin(now.top(), free_area.bottom() + 1 - now.height()));
  window.move(left, top);
}

// Where it lies over its partner it stays in front of it.
void PlaceLevelWith(QWidget& window, QWidget& partner) {
  // Desktops keep a dialog in front of the window that it belongs to.
  window.setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  const QRect frame = partner.frameGeometry();
  const int edges = frame.width() - partner.width();
  window.resize(window.width(), partner.height());
  window.move(PlaceLevel(window.width() + edges, frame, partner.screen()->availableGeometry()));
  window.winId();  // makes the handle
  window.windowHandle()->setTransientParent(partner.windowHandle());
}

// While it lives the mouse does nothing but scroll.
class NoMouse : public QObject {
 public:
  NoMouse() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::ContextMenu:
      case QEvent::DragEnter:
      case QEvent::Drop:
        return true;
      default:
        return QObject::eventFilter(watched, event);
    }
  }
};

}  // namespace

Windows::Windows(const QString& geometry)
    : dialog_help_(
          [this](QWidget& dialog) { ShowManualFor(dialog, PlaceOfScreen(ScreenBehind(dialog))); }) {
  if (!geometry.isEmpty()) {
    settings_ = std::make_unique<QSettings>(geometry, QSettings::IniFormat);
  }
  burial_.setSingleShot(true);
  burial_.setInterval(0);
  connect(&burial_, &QTimer::timeout, this, [this] { Bury(); });
  quiet_.start();
  connect(&idle_, &QTimer::timeout, this, [this] { LetFormsIdle(); });
  idle_.start(kIdleMs);
  connect(qApp, &QApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
    if (state != Qt::ApplicationActive) LeftForOthers();
  });
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget* /*old*/, QWidget* now) { FocusChanged(now); });
}

Windows::~Windows() {
  for (const auto& open : open_) {
    Remember(*open->window);
    open->window->removeEventFilter(this);  // what goes with this hears nothing more
  }
  for (const auto& closed : closed_) closed->window->removeEventFilter(this);
}

Windows::Open* Windows::Find(std::string_view screen) const {
  const auto found =
      std::ranges::find_if(open_, [screen](const auto& open) { return open->name == screen; });
  return found == open_.end() ? nullptr : found->get();
}

Form* Windows::FormOf(std::string_view screen) const {
  const Open* open = Find(screen);
  return open == nullptr ? nullptr : open->form.get();
}

QWidget* Windows::WindowOf(std::string_view screen) const {
  const Open* open = Find(screen);
  return open == nullptr ? nullptr : open->window.get();
}

bool Windows::IsVisible(std::string_view screen) const {
  const Open* open = Find(screen);
  return open != nullptr && open->window->isVisible();
}

bool Windows::Busy() const {
  const auto busy = [](const auto& open) {
    return open->binder != nullptr && open->binder->Busy();
  };
  return QApplication::activeModalWidget() != nullptr ||
         QApplication::activePopupWidget() != nullptr || std::ranges::any_of(open_, busy) ||
         std::ranges::any_of(closed_, busy);
}

void Windows::ComeBack(std::string_view screen) {
  if (Open* open = Find(screen)) open->binder->Do([this, open] { Front(*open); });
}

void Windows::ShowManual(std::string_view screen) {
  if (QWidget* asking = WindowOf(screen)) ShowManualFor(*asking, PlaceOfScreen(screen));
}

void Windows::ShowManualFor(QWidget& asking, ManualPlace place) {
  desk_->questions.manual = std::move(place);
  if (Open* shown = Find(screen::kManual); shown != nullptr) {
    // A box of the manual's own turns it, too: closed it could not come back.
    const bool asks_itself =
        &asking == shown->window.get() || asking.parentWidget() == shown->window.get();
    if (asks_itself || manual_of_ == &asking) {
      Front(*shown);
      return;
    }
    Close(screen::kManual);
  }
  Open& open = OpenScreen(*Known(screen::kManual), false);
  manual_of_ = &asking;
  asking.installEventFilter(this);
  open.window->winId();  // makes the handle
  open.window->windowHandle()->setTransientParent(asking.windowHandle());
  Front(open);
}

std::string_view Windows::ScreenBehind(const QWidget& dialog) const {
  for (const QWidget* behind = dialog.parentWidget(); behind != nullptr;
       behind = behind->parentWidget()) {
    for (const auto& open : open_) {
      if (open->window.get() == behind->window()) return open->name;
    }
  }
  const auto shown = std::find_if(open_.rbegin(), open_.rend(), [](const auto& open) {
    return open->window->isVisible() && open->name != screen::kManual;
  });
  return shown == open_.rend() ? std::string_view() : std::string_view((*shown)->name);
}

void Windows::CloseManualOf(const QObject* window) {
  if (window != manual_of_.data()) return;
  manual_of_.clear();
  Close(screen::kManual);
}

// One file of this machine that is dragged over the main menu may be dropped there.
bool Windows::eventFilter(QObject* watched, QEvent* event) {
  // A window that is only minimized has not gone.
  const bool gone = event->type() == QEvent::Hide && !event->spontaneous();
  if (gone) CloseManualOf(watched);
  const auto dropped = [](const QDropEvent& drop) {
    const QList<QUrl> urls = drop.mimeData()->urls();
    return urls.size() == 1 ? urls.first().toLocalFile().toStdString() : std::string();
  };
  if (event->type() == QEvent::DragEnter) {
    auto& enter = static_cast<QDragEnterEvent&>(*event);
    if (!dropped(enter).empty()) enter.acceptProposedAction();
    return true;
  }
  if (event->type() == QEvent::Drop) {
    auto& drop = static_cast<QDropEvent&>(*event);
    drop.acceptProposedAction();
    if (take_ && !dropped(drop).empty()) take_(dropped(drop));
    return true;
  }
  return QObject::eventFilter(watched, event);
}

bool Windows::IsOpen(std::string_view screen) const { return Find(screen) != nullptr; }

Windows::Open& Windows::OpenScreen(const Screen& screen, bool modal) {
  auto made = std::make_unique<Open>();
  Open& open = *made;
  open.name = screen.name;
  open.window = std::make_unique<QWidget>();
  screen.set_up(*open.window);
  open.window->setObjectName(ToQt(screen.name));
  // A splitter shows its parts before the design has given them their roles.
  for (const QSplitter* splitter : open.window->findChildren<QSplitter*>()) {
    for (QWidget* part : splitter->findChildren<QWidget*>()) {
      StyleAnew(*part);
    }
  }
  if (open.window->property("frameless").toBool()) {
    open.window->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  }
  if (modal) open.window->setWindowModality(Qt::ApplicationModal);
  if (screen.name == screen::kMain) {
    open.window->setAcceptDrops(true);
    open.window->installEventFilter(this);
  }
  open_.push_back(std::move(made));
  try {
    open.form = screen.make(*desk_);
    open.form->Load();
    open.binder = std::make_unique<Binder>(
        *open.form, *open.window,
        Binder::Hooks{[this] { PaintAll(); }, [this, name = open.name] { Close(name); },
                      [this, name = open.name] { ShowManual(name); }});
  } catch (...) {
    std::erase_if(open_, [&open](const auto& other) { return other.get() == &open; });
    throw;
  }
  open.binder->Paint();
  Restore(*open.window);
  PlaceWindow(screen, open);
  return open;
}

void Windows::Front(Open& open) {
  open.window->show();
  open.window->raise();
  open.window->activateWindow();
  open.binder->Paint();  // the keys stand where the form wants them before it acts
  open.form->Activate();
  open.binder->Paint();
}

// A name that no screen has is a slip in the program: nothing opens, and the log says why.
const Screen* Windows::Known(std::string_view screen) const {
  const Screen* known = FindScreen(screen);
  if (known == nullptr) {
    desk_->bench.NoteFault(std::logic_error("no screen " + std::string(screen)));
    assert(false);
  }
  return known;
}

void Windows::Show(std::string_view screen) {
  Open* open = Find(screen);
  if (open == nullptr) {
    const Screen* known = Known(screen);
    if (known == nullptr) return;
    open = &OpenScreen(*known, false);
  }
  Front(*open);
}

void Windows::ShowModal(std::string_view screen) {
  const Screen* known = Known(screen);
  if (known == nullptr || IsOpen(screen)) return;
  const QPointer<QWidget> had_focus = QApplication::focusWidget();
  Open& open = OpenScreen(*known, true);
  QEventLoop loop;
  open.waiting = &loop;
  wait_.Hold(true);
  try {
    Front(open);
  } catch (...) {
    wait_.Hold(false);
    open.waiting = nullptr;
    Close(screen);
    throw;
  }
  if (IsOpen(screen)) loop.exec();
  wait_.Hold(false);
  if (had_focus) had_focus->window()->activateWindow();
}

void Windows::Close(std::string_view screen) {
  if (const QWidget* window = WindowOf(screen)) CloseManualOf(window);
  const auto found =
      std::ranges::find_if(open_, [screen](const auto& open) { return open->name == screen; });
  if (found == open_.end()) return;
  Remember(*(*found)->window);
  (*found)->window->hide();
  if ((*found)->waiting != nullptr) (*found)->waiting->quit();
  if (screen == screen::kManual && manual_of_) manual_of_->activateWindow();
  if ((*found)->moved) (*found)->moved->move((*found)->moved_from);
  closed_.push_back(std::move(*found));
  open_.erase(found);
  burial_.start();
}

void Windows::Bury() {
  // An action that closed its screen may wait in a box or in another screen.
  std::erase_if(closed_, [](const auto& closed) {
    return closed->binder != nullptr && !closed->binder->Busy();
  });
  if (!closed_.empty()) burial_.start(kBusyMs);
}

void Windows::Hide(std::string_view screen) {
  if (Open* open = Find(screen)) open->window->hide();
}

void Windows::BringToFront() {
  for (const auto& open : open_) {
    if (!open->window->isVisible()) continue;
    open->window->setWindowState(open->window->windowState() & ~Qt::WindowMinimized);
    open->window->raise();
    open->window->activateWindow();
  }
  // A question of no screen in the list still has the keys.
  if (QWidget* asks = QApplication::activeModalWidget()) {
    asks->raise();
    asks->activateWindow();
  }
}

void Windows::LetFormsIdle() {
  const double quiet = static_cast<double>(quiet_.elapsed()) / 1000;
  for (std::size_t i = 0; i < open_.size(); ++i) {
    Binder* binder = open_[i]->binder.get();
    if (binder != nullptr && !binder->Busy())
      binder->DoQuietly([&] { return open_[i]->form->Idle(quiet); });
  }
}

void Windows::LeftForOthers() {
  for (std::size_t i = 0; i < open_.size(); ++i) {
    Binder* binder = open_[i]->binder.get();
    if (binder != nullptr && !binder->Busy()) binder->Do([&] { open_[i]->form->LostFocus(); });
  }
}

void Windows::PaintAll() {
  quiet_.start();
  for (std::size_t i = 0; i < open_.size(); ++i) {
    if (open_[i]->binder && open_[i]->window->isVisible()) open_[i]->binder->Paint();
  }
  if (after_action_) after_action_();
}

void Windows::FocusChanged(QWidget* now) {
  if (now == nullptr) return;
  for (std::size_t i = 0; i < open_.size(); ++i) {
    if (open_[i]->binder && now->window() == open_[i]->window.get()) {
      open_[i]->binder->FocusCame(now);
      return;
    }
  }
}

void Windows::EndProgram() {
  // Not quit(): that asks every window first, and one that leaves its own way would keep all open.
  QMetaObject::invokeMethod(
      qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

void Windows::Remember(const QWidget& window) {
  if (!settings_ || !window.isVisible()) return;
  settings_->setValue(GeometryKey(window), window.saveGeometry());
  for (const QSplitter* splitter : window.findChildren<QSplitter*>()) {
    settings_->setValue(SplitterKey(window, *splitter), splitter->saveState());
  }
}

void Windows::Restore(QWidget& window) {
  const QRect free_area = QApplication::primaryScreen()->availableGeometry();
  window.resize(window.size().boundedTo(free_area.size() - QSize(0, kTitleBar)));
  window.move(free_area.center() - window.rect().center());
  if (!settings_) return;
  window.restoreGeometry(settings_->value(GeometryKey(window)).toByteArray());
  if (!window.isMaximized()) BringOntoScreen(window);
  for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
    splitter->restoreState(settings_->value(SplitterKey(window, *splitter)).toByteArray());
  }
}

void Windows::PlaceWindow(const Screen& screen, Open& open) const {
  for (const std::string_view name : {screen.beside, screen.or_beside}) {
    QWidget* partner = WindowOf(name);
    if (partner == nullptr || !partner->isVisible()) continue;
    screen.level ? PlaceLevelWith(*open.window, *partner) : PlaceBeside(open, *partner);
    return;
  }
}

void Windows::PlaceBeside(Open& open, QWidget& partner) {
  const PairPlaces places =
      PlacesOfPair(partner.size(), open.window->size(), partner.screen()->availableGeometry());
  open.window->move(places.second);
  if (!places.first || partner.isMaximized()) return;
  open.moved = &partner;
  open.moved_from = partner.pos();
  partner.move(*places.first);
}

void Windows::ShowWait(std::string_view text) { wait_.Begin(ToQt(text).trimmed()); }

void Windows::HideWait() { wait_.End(); }

void Windows::LetBreathe() {
  if (breathed_.isValid() && breathed_.elapsed() < kBreathMs) return;
  PaintAll();
  const NoMouse deaf;
  QApplication::processEvents();
  breathed_.start();
}

void Windows::ShowProgress(std::string_view text, int done, int total) {
  wait_.ShowProgress(ToQt(text), done, total);
}

}  // namespace kalvo
