#include "platform/qt/framed_window.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "platform/desktop/qt_text.h"

namespace {

int ToPixels(float twips) {
  return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerPixel, -1e6F, 1e6F)));
}

float ToTwips(int pixels) {
  return static_cast<float>(pixels) * kTwipsPerPixel;
}

// Without these roles Qt reports the windows and the picture as "filler".
QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  if (auto* window = dynamic_cast<FramedWindow*>(object))
    return new QAccessibleWidget(window, QAccessible::Window);
  if (auto* picture = dynamic_cast<PictureView*>(object))
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  return nullptr;
}

}  // namespace

FramedWindow::FramedWindow(CommandRunner& runner, Window& state) : runner_(runner), state_(state) {
  QAccessible::installFactory(MakeInterface);
  EachWindow(runner.w, [this](WindowName name, const char* objectName, const Window& window) {
    if (&window != &state_) return;
    name_ = name;
    setObjectName(objectName);
  });
  Describe(this, "");
  QApplication::setPalette(LightPalette());  // of message boxes and menus as well
  connect(qApp, &QApplication::focusChanged, this, &FramedWindow::ShowDefaultButton);
  runner.AddRefresher([this] { Refresh(); });
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

QPoint FramedWindow::FramePositionFor(QPoint wanted) const {
  const QRect screen = ScreenAt(wanted);
  const QSize free = screen.size() - frameGeometry().size();
  return {std::clamp(wanted.x(), screen.left(), screen.left() + std::max(0, free.width())),
          std::clamp(wanted.y(), screen.top(), screen.top() + std::max(0, free.height()))};
}

void FramedWindow::Refresh() {
  if (shown_.caption != state_.caption) ShowTitle();
  // Size before position: in the other order the window would shift by the size of its frame.
  if (shown_.width != state_.width || shown_.height != state_.height) ShowSize();
  const bool appears = state_.visible && !isVisible();
  const bool moves = shown_.left != state_.left || shown_.top != state_.top;
  shown_ = state_;
  if (moves) isMovedByUser_ = false;
  if (appears || moves) ShowPosition();
  if (state_.visible != isVisible()) setVisible(state_.visible);
}

// Makes the window wide enough for the title, as far as the screen allows.
void FramedWindow::ShowTitle() {
  constexpr int kFrameButtons = 160;  // pixels, with the icon
  setWindowTitle(ToQt(state_.caption));
  QFont bold = font();
  bold.setBold(true);
  const int width = QFontMetrics(bold).horizontalAdvance(windowTitle()) + kFrameButtons;
  if (layout() != nullptr && width > layout()->totalMinimumSize().width())
    setMinimumWidth(std::min(width, ScreenAt(pos()).width()));
}

void FramedWindow::ShowPosition() {
  move(FramePositionFor({ToPixels(state_.left), ToPixels(state_.top)}));
}

void FramedWindow::BringToFront() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
  setFocus();
}

void FramedWindow::ShowSize() {
  layout()->activate();
  const QSize design(ToPixels(state_.width), ToPixels(state_.height));
  resize(design.expandedTo(layout()->totalMinimumSize()));
}

void FramedWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (runner_.Run(*FindEvent(name_, "", UserAction::CloseFrame)) && onClosed) onClosed();
}

void FramedWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
    return QWidget::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  QPushButton* button = focused != nullptr ? focused : default_;
  if (button != nullptr && button->isVisible() && button->isEnabled()) button->click();
}

bool FramedWindow::event(QEvent* event) {
  // A held access key or function key acts once: its repetitions are no shortcuts.
  if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->isAutoRepeat())
    event->accept();
  if (!event->spontaneous()) {
    if (event->type() == QEvent::Move) position_.Request(geometry().topLeft());
    if (event->type() == QEvent::Resize) size_.Request(size());
    if (event->type() == QEvent::Show) {
      isAppearing_ = true;
      windowHandle()->installEventFilter(this);
    }
  }
  return QWidget::event(event);
}

// Watches the QWindow, because Qt passes a report on to the widget only if it changes the widget's
// own value.
bool FramedWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == windowHandle()) {
    if (event->type() == QEvent::Move) RecordUserMove();
    if (event->type() == QEvent::Resize) RecordUserResize();
    if (event->type() == QEvent::Expose && isAppearing_ && windowHandle()->isExposed()) {
      isAppearing_ = false;
      position_.EndRequest();
      size_.EndRequest();
      ShowPosition();  // exactly, because the size of the frame is known now
    }
  }
  return QWidget::eventFilter(watched, event);
}

bool FramedWindow::IsNormal() const {
  return isVisible() &&
         !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
}

void FramedWindow::RecordUserMove() {
  // Compared without the frame, whose size may be out of date while the state of the window
  // changes.
  const QPoint position = windowHandle()->position();
  if (isAppearing_) return position_.Request(position);
  if (!IsNormal() || !position_.IsUserChange(position)) return;
  const QPoint frame = windowHandle()->framePosition();
  shown_.left = state_.left = ToTwips(frame.x());
  shown_.top = state_.top = ToTwips(frame.y());
  isMovedByUser_ = true;
}

void FramedWindow::RecordUserResize() {
  const QSize size = windowHandle()->size();
  if (isAppearing_) return size_.Request(size);
  if (!IsNormal() || !size_.IsUserChange(size)) return;
  shown_.width = state_.width = ToTwips(size.width());
  shown_.height = state_.height = ToTwips(size.height());
}
