#include "platform/qt/framed_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "platform/desktop/qt_text.h"
#include "platform/qt/accessibility.h"

namespace {

int ToPixels(float twips) {
  return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerPixel, -1e6F, 1e6F)));
}

float ToTwips(int pixels) {
  return static_cast<float>(pixels) * kTwipsPerPixel;
}

WindowName NameOf(const Workspace& w, const Window& state) {
  WindowName found{};
  EachWindow(w, [&](WindowName name, const char* /*objectName*/, const Window& window) {
    if (&window == &state) found = name;
  });
  return found;
}

}  // namespace

FramedWindow::FramedWindow(CommandRunner& runner, Window& state)
    : runner_(runner), state_(state), name_(NameOf(runner.w, state)), binder_(runner, name_, this) {
  InstallAccessibleRoles();
  EachWindow(runner.w, [this](WindowName name, const char* objectName, const Window& /*window*/) {
    if (name == name_) setObjectName(objectName);
  });
  Describe(this, "");
  QApplication::setPalette(LightPalette());  // of message boxes and menus as well
  connect(qApp, &QApplication::focusChanged, this, &FramedWindow::ShowDefaultButton);
  runner.AddRefresher(this, [this] { Refresh(); });
}

// QWidget's destructor moves the focus when this object is no longer a FramedWindow.
FramedWindow::~FramedWindow() {
  disconnect(qApp, nullptr, this, nullptr);
}

void FramedWindow::SetDefaultButton(QPushButton* button) {
  if (default_ == button) return;
  if (default_ != nullptr) default_->setDefault(false);
  default_ = button;
  ShowDefaultButton();
}

// While another button has the focus, Enter presses that button, so the default button must not
// look like the default.
void FramedWindow::ShowDefaultButton() {
  if (default_ == nullptr) return;
  const auto* focused = qobject_cast<QPushButton*>(focusWidget());
  default_->setDefault(focused == nullptr || focused == default_);
}

QRect FramedWindow::ScreenAt(QPoint point) {
  const QScreen* screen = QGuiApplication::screenAt(point);
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  return screen->availableGeometry();
}

QPoint FramedWindow::PlaceFor(QPoint wanted) const {
  const QRect screen = ScreenAt(wanted);
  const QSize free = screen.size() - frameGeometry().size();
  return {std::clamp(wanted.x(), screen.left(), screen.left() + std::max(0, free.width())),
          std::clamp(wanted.y(), screen.top(), screen.top() + std::max(0, free.height()))};
}

void FramedWindow::Refresh() {
  if (shown_.caption != state_.caption || windowTitle().isEmpty()) ShowTitle();
  // Size before position: in the other order the window would shift by the size of its frame.
  const bool appears = state_.visible && !isVisible();
  if (appears || shown_.width != state_.width || shown_.height != state_.height) ShowSize();
  const bool moves = shown_.left != state_.left || shown_.top != state_.top;
  shown_ = state_;
  if (moves) isMovedByUser_ = false;
  if (appears || moves) Place();
  if (state_.visible != isVisible()) setVisible(state_.visible);
}

// Makes the window wide enough for the title, as far as the screen allows.
void FramedWindow::ShowTitle() {
  constexpr int kFrameButtons = 120;  // pixels
  setWindowTitle(ToQt(state_.caption));
  QFont bold = font();
  bold.setBold(true);
  const int width = QFontMetrics(bold).horizontalAdvance(windowTitle()) + kFrameButtons;
  if (layout() != nullptr && width > layout()->totalMinimumSize().width())
    setMinimumWidth(std::min(width, ScreenAt(pos()).width()));
}

void FramedWindow::Place() {
  move(PlaceFor({ToPixels(state_.left), ToPixels(state_.top)}));
}

void FramedWindow::BringToFront() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
  setFocus();
}

void FramedWindow::ResizeToDesign() {
  layout()->activate();
  const QSize design(ToPixels(state_.width), ToPixels(state_.height));
  resize(design.expandedTo(layout()->totalMinimumSize()));
}

void FramedWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (runner_.Run(CloseFrameEvent(name_)) && onClosed) onClosed();
}

void FramedWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
    return QWidget::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  QPushButton* button = focused != nullptr ? focused : default_;
  if (button != nullptr && button->isVisible() && button->isEnabled()) button->click();
}

// A held access key or function key acts once: its repetitions are no shortcuts.
bool FramedWindow::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->isAutoRepeat())
    event->accept();
  return QWidget::event(event);
}

void FramedWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (event->spontaneous()) return;
  isAppearing_ = true;
  windowHandle()->installEventFilter(this);
}

// Watches the QWindow, because Qt passes a report on to the widget only if it changes the widget's
// own value.
bool FramedWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == windowHandle()) {
    if (event->type() == QEvent::Move) TakeReportedPosition();
    if (event->type() == QEvent::Resize) TakeReportedSize();
    if (event->type() == QEvent::Expose && isAppearing_ && windowHandle()->isExposed()) {
      isAppearing_ = false;
      position_.EndRequest();
      size_.EndRequest();
      Place();  // exactly, because the size of the frame is known now
    }
  }
  // Otherwise the field would insert the access key of a disabled button as text.
  if (event->type() == QEvent::KeyPress && qobject_cast<QLineEdit*>(watched) != nullptr) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() == Qt::AltModifier && !key->text().isEmpty()) return true;
  }
  return QWidget::eventFilter(watched, event);
}

bool FramedWindow::IsNormal() const {
  return isVisible() &&
         !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
}

void FramedWindow::TakeReportedPosition() {
  // Compared without the frame, whose size may be out of date while the state of the window
  // changes.
  const QPoint position = windowHandle()->position();
  if (isAppearing_) return position_.Request(position);
  if (!IsNormal() || !position_.IsUsers(position)) return;
  const QPoint frame = windowHandle()->framePosition();
  shown_.left = state_.left = ToTwips(frame.x());
  shown_.top = state_.top = ToTwips(frame.y());
  isMovedByUser_ = true;
}

void FramedWindow::TakeReportedSize() {
  const QSize size = windowHandle()->size();
  if (isAppearing_) return size_.Request(size);
  if (!IsNormal() || !size_.IsUsers(size)) return;
  shown_.width = state_.width = ToTwips(size.width());
  shown_.height = state_.height = ToTwips(size.height());
}

void FramedWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (!event->spontaneous()) position_.Request(geometry().topLeft());
}

void FramedWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (!event->spontaneous()) size_.Request(size());
}
