#include "platform/qt/binder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <algorithm>
#include <limits>

#include "platform/desktop/qt_text.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/layout_helpers.h"

namespace {

// Calls a function on each left click into a widget that has no signal for it.
class LeftClickFilter : public QObject {
 public:
  LeftClickFilter(QWidget* widget, std::function<void()> onClick)
      : QObject(widget), widget_(widget), onClick_(std::move(onClick)) {
    widget->installEventFilter(this);
  }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::MouseButtonRelease) return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::LeftButton && widget_->rect().contains(mouse->position().toPoint()))
      onClick_();
    return false;
  }

 private:
  QWidget* widget_;
  std::function<void()> onClick_;
};

// A button that ignores the second press of a double click, and leaves Enter to its window.
class SinglePressButton : public QPushButton {
 public:
  using QPushButton::QPushButton;
  QSize sizeHint() const override {  // adds a margin to the style's size
    return QPushButton::sizeHint() + QSize(fontMetrics().averageCharWidth(), 0);
  }

 protected:
  void mouseDoubleClickEvent(QMouseEvent* /*event*/) override {}
  void keyPressEvent(QKeyEvent* event) override {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    isEnter ? event->ignore() : QPushButton::keyPressEvent(event);
  }
};

void SetColour(QWidget* widget, QPalette::ColorRole role, const Colour& colour) {
  QPalette palette = widget->palette();
  const bool isSet = palette.isBrushSet(QPalette::Active, role);
  if (!colour && !isSet) return;
  const QColor shown = colour ? ToQt(*colour) : LightPalette().color(role);
  if (isSet && palette.color(QPalette::Active, role) == shown) return;
  palette.setColor(QPalette::Active, role, shown);
  palette.setColor(QPalette::Inactive, role, shown);
  widget->setPalette(palette);
}

// Returns the text of an editor as the record stores it, and shows that text if it differs.
// Replaces characters that the single-byte set lacks. Keeps only the first line, because a cell
// copied from a spreadsheet ends in a line end.
std::string SanitizedText(QLineEdit* edit) {
  std::string text = FromQt(edit->text());
  text.erase(0, text.find_first_not_of("\r\n"));
  text.erase(std::min(text.find_first_of("\r\n"), text.size()));
  const QString shown = ToQt(text);
  if (shown != edit->text()) {
    const qsizetype cursor = ToQt(FromQt(edit->text().left(edit->cursorPosition()))).size();
    const QSignalBlocker blocker(edit);
    edit->setText(shown);
    edit->setCursorPosition(static_cast<int>(cursor));
  }
  return text;
}

bool ShowsItems(const QComboBox& box, const std::vector<std::string>& items) {
  int i = 0;
  return box.count() == static_cast<int>(items.size()) &&
         std::all_of(items.begin(), items.end(),
                     [&](const std::string& item) { return box.itemText(i++) == ToQt(item); });
}

}  // namespace

QPalette LightPalette() {
  QPalette palette(QColor(240, 240, 240));
  palette.setColor(QPalette::Window, QColor(250, 250, 250));
  return palette;
}

void Binder::Bind(QWidget* widget, const char* name, const char* tip,
                  const std::function<void()>& refresh) const {
  widget->setObjectName(name);
  if (*tip != 0)  // as rich text, so that long tips are wrapped
    widget->setToolTip("<p style='white-space:pre-wrap'>" + QString(tip).toHtmlEscaped());
  Describe(widget, tip);
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
  refresh();
  runner_.AddRefresher(widget, refresh);
}

const Event* Binder::EventOf(const char* name, UserAction action) const {
  return FindEvent(windowName_, name, action);
}

QLineEdit* Binder::Make(const char* name, TextBox& control) const {
  auto* edit = new QLineEdit(window_);
  edit->setMaxLength(std::numeric_limits<int>::max());
  edit->installEventFilter(window_);
  Bind(edit, name, control.tip, [edit, &control] {
    const QSignalBlocker blocker(edit);
    edit->setReadOnly(control.readOnly);
    const QString text = ToQt(control.text);
    if (edit->text() != text) {
      // del(), because the user can undo it: a click empties the input box.
      edit->selectAll();
      text.isEmpty() ? edit->del() : edit->setText(text);
      if (control.readOnly) edit->setCursorPosition(0);
      // Typing replaces the text that the command has written.
      if (!control.readOnly && edit->window()->focusWidget() == edit) edit->selectAll();
    }
    SetColour(edit, QPalette::Text, control.fore);
    SetColour(edit, QPalette::Base, control.back);
    Describe(edit, control.tip, control.redIfCalculated && control.fore == kRed);
    edit->setEnabled(control.enabled);
    edit->setVisible(control.visible);
  });
  QObject::connect(edit, &QLineEdit::textChanged, edit,
                   [edit, &control] { control.text = SanitizedText(edit); });
  if (const Event* event = EventOf(name, UserAction::Click)) {
    new LeftClickFilter(edit, [this, event] { runner_.Run(*event); });
    auto* shortcut = new QShortcut(QKeySequence(event->key), window_);
    QObject::connect(shortcut, &QShortcut::activated, edit, [this, event, edit] {
      edit->setFocus();
      runner_.Run(*event);
    });
  }
  return edit;
}

QPlainTextEdit* Binder::Make(const char* name, TextArea& control) const {
  auto* edit = new QPlainTextEdit(window_);
  edit->setTabChangesFocus(true);
  Bind(edit, name, control.tip, [edit, &control] {
    const QSignalBlocker blocker(edit);
    if (edit->isReadOnly() != control.readOnly) edit->setReadOnly(control.readOnly);
    edit->setTextInteractionFlags(edit->textInteractionFlags() | Qt::TextSelectableByKeyboard);
    const QString text = ToQt(control.text);
    if (edit->toPlainText() != text) edit->setPlainText(text);
    edit->setEnabled(control.enabled);
    edit->setVisible(control.visible);
  });
  QObject::connect(edit, &QPlainTextEdit::textChanged, edit,
                   [edit, &control] { control.text = FromQt(edit->toPlainText()); });
  return edit;
}

CaptionLabel* Binder::Make(const char* name, Label& control) const {
  auto* label = new CaptionLabel(window_);
  label->setTextFormat(Qt::PlainText);
  Bind(label, name, "", [label, &control] {
    label->setText(ToQt(control.caption));
    SetColour(label, QPalette::WindowText, control.fore);
    SetColour(label, QPalette::Window, control.back);
    label->setAutoFillBackground(control.back.has_value());
    label->setVisible(control.visible);
  });
  return label;
}

QPushButton* Binder::Make(const char* name, Button& control) const {
  auto* button = new SinglePressButton(window_);
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves Enter to the default button
  if (const Event* event = EventOf(name, UserAction::Click))
    QObject::connect(button, &QPushButton::clicked, button, [this, event] { runner_.Run(*event); });
  Bind(button, name, control.tip, [button, &control] {
    button->setText(ToQt(control.caption));
    SetColour(button, QPalette::Button, control.back);
    // Qt would move the focus of a disabled or hidden button to the next button, which Enter would
    // then press.
    QWidget* window = button->window();
    if (window->focusWidget() == button && !(control.enabled && control.visible))
      window->setFocus();
    button->setEnabled(control.enabled);
    button->setVisible(control.visible);
  });
  return button;
}

QCheckBox* Binder::Make(const char* name, CheckBox& control) const {
  auto* box = new QCheckBox(window_);
  Bind(box, name, control.tip, [box, &control] {
    const QSignalBlocker blocker(box);
    box->setText(ToQt(control.caption));
    box->setChecked(control.checked);
    box->setEnabled(control.enabled);
    box->setVisible(control.visible);
  });
  const Event* event = EventOf(name, UserAction::Click);
  QObject::connect(box, &QCheckBox::toggled, box, [this, event, &control](bool checked) {
    control.checked = checked;
    if (event != nullptr) runner_.Run(*event);
  });
  return box;
}

QComboBox* Binder::Make(const char* name, ComboBox& control) const {
  auto* box = new QComboBox(window_);
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setCompleter(nullptr);
  box->lineEdit()->installEventFilter(window_);
  Bind(box, name, "", [box, &control] {
    const QSignalBlocker blocker(box);
    const bool sameItems = ShowsItems(*box, control.items);
    if (!sameItems) {
      box->clear();
      for (const std::string& item : control.items) box->addItem(ToQt(item));
    }
    const QString text = ToQt(control.text);
    if (!sameItems || box->currentText() != text) {
      // The arrow keys continue from the current item; if the text is none of the items, they start
      // at the first.
      box->setCurrentIndex(box->findText(text));
      if (box->currentText() != text) box->setEditText(text);
    }
    box->setEnabled(control.enabled);
    box->setVisible(control.visible);
  });
  QObject::connect(box, &QComboBox::currentTextChanged, box,
                   [box, &control] { control.text = SanitizedText(box->lineEdit()); });
  return box;
}

QFrame* Binder::Make(const char* name, Frame& control) const {
  auto* frame = new QFrame(window_);
  frame->setFrameStyle(QFrame::Box | QFrame::Plain);
  Bind(frame, name, "", [frame, &control] { frame->setVisible(control.visible); });
  return frame;
}
