#include "platform/qt/framed_window.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "platform/desktop/qt_text.h"

namespace {

// A window manager may answer a placing with a place of its own for about this long.
constexpr int kSettleMilliseconds = 400;

// How long the frame of a window that appears may take; only then can it be placed exactly.
constexpr int kFrameMilliseconds = 50;

int Pixels(float twips) {
  return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerPixel, -1e6F, 1e6F)));
}

// A plain widget would be announced as a filler, and its title not at all.
QAccessibleInterface* AccessibleWindow(const QString& /*className*/, QObject* object) {
  auto* window = dynamic_cast<FramedWindow*>(object);
  return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Window);
}

}  // namespace

FramedWindow::FramedWindow(Mirror& mirror, Window& state, const char* name)
    : mirror_(mirror), state_(state) {
  [[maybe_unused]] static const bool kInstalled =
      (QAccessible::installFactory(AccessibleWindow), true);
  Mirror::Describe(this, name, "");
  setPalette(LightPalette());
  setAutoFillBackground(true);
  mirror.OnShow([this] { ShowState(); });
}

void FramedWindow::SetDefaultButton(QPushButton* button) {
  if (default_ == button) return;
  if (default_ != nullptr) default_->setDefault(false);
  default_ = button;
  if (default_ != nullptr) default_->setDefault(true);
}

QRect FramedWindow::ScreenAt(QPoint place) {
  const QScreen* at = QGuiApplication::screenAt(place);
  if (at == nullptr) at = QGuiApplication::primaryScreen();
  return at->availableGeometry();
}

QPoint FramedWindow::PlaceFor(QPoint wanted) const {
  const QRect screen = ScreenAt(wanted);
  const QSize room = screen.size() - frameGeometry().size();
  return {std::clamp(wanted.x(), screen.left(), screen.left() + std::max(0, room.width())),
          std::clamp(wanted.y(), screen.top(), screen.top() + std::max(0, room.height()))};
}

void FramedWindow::ShowState() {
  if (shown_.caption != state_.caption || windowTitle().isEmpty())
    setWindowTitle(ToQt(state_.caption));
  // Size before place: a place set first would drift by the frame.
  const bool appears = state_.visible && !isVisible();
  if (appears || shown_.width != state_.width || shown_.height != state_.height) ShowSize();
  const bool moved = shown_.left != state_.left || shown_.top != state_.top;
  shown_ = state_;
  if (moved || appears) Place();
  if (state_.visible != isVisible()) setVisible(state_.visible);
  if (appears) QTimer::singleShot(kFrameMilliseconds, this, [this] { Place(); });
}

void FramedWindow::Place() {
  AwaitConsequences();
  move(PlaceFor({Pixels(state_.left), Pixels(state_.top)}));
}

void FramedWindow::AwaitConsequences() {
  ++settling_;
  QTimer::singleShot(kSettleMilliseconds, this, [this] { --settling_; });
}

bool FramedWindow::IsUsersDoing() const {
  const auto filling = Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;
  return isVisible() && settling_ == 0 && !(windowState() & filling);
}

void FramedWindow::ToFront() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
  setFocus();
}

void FramedWindow::ResizeToDesign() {
  AwaitConsequences();
  layout()->activate();
  const QSize design(Pixels(state_.width), Pixels(state_.height));
  resize(design.expandedTo(layout()->totalMinimumSize()));
}

void FramedWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (onClose && !mirror_.IsBusy()) onClose();
}

void FramedWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
    return QWidget::keyPressEvent(event);
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  QPushButton* button = focused != nullptr ? focused : default_;
  if (button != nullptr && button->isVisible() && button->isEnabled()) button->click();
}

void FramedWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (!IsUsersDoing()) return;
  shown_.left = state_.left = static_cast<float>(pos().x()) * kTwipsPerPixel;
  shown_.top = state_.top = static_cast<float>(pos().y()) * kTwipsPerPixel;
}

void FramedWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // A size that comes from within is the layout's.
  if (!event->spontaneous() || !IsUsersDoing()) return;
  shown_.width = state_.width = static_cast<float>(width()) * kTwipsPerPixel;
  shown_.height = state_.height = static_cast<float>(height()) * kTwipsPerPixel;
}
