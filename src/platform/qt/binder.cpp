#include "platform/qt/binder.h"

#include <QMouseEvent>
#include <QShortcut>
#include <algorithm>
#include <limits>

#include "platform/desktop/qt_text.h"

namespace {

// A text field that can run a command on a left click.
class ClickableEdit : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  std::function<void()> onLeftClick;

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    const bool isInside = rect().contains(event->position().toPoint());
    if (onLeftClick && event->button() == Qt::LeftButton && isInside) onLeftClick();
    QLineEdit::mouseReleaseEvent(event);
  }
  // Qt would insert the access key of a disabled button as text.
  void keyPressEvent(QKeyEvent* event) override {
    const bool isAccessKey = event->modifiers() == Qt::AltModifier && !event->text().isEmpty();
    if (!isAccessKey) QLineEdit::keyPressEvent(event);
  }
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

// Shows the colours that have a value; the others are those of LightPalette.
void SetColours(QWidget* widget,
                std::initializer_list<std::pair<QPalette::ColorRole, const Colour&>> colours) {
  QPalette palette;
  for (const auto& [role, colour] : colours)
    for (const auto group : {QPalette::Active, QPalette::Inactive})
      if (colour) palette.setColor(group, role, ToQt(*colour));
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

}  // namespace

QPalette LightPalette() {
  QPalette palette(QColor(240, 240, 240));
  palette.setColor(QPalette::Window, QColor(250, 250, 250));
  return palette;
}

template <class Control>
void Binder::Bind(QWidget* widget, const char* name, Control& control,
                  std::function<void()> show) const {
  widget->setObjectName(name);
  QString tip;
  if constexpr (requires { control.tip; }) tip = control.tip;
  // Qt wraps only rich text, but wraps even a short one.
  constexpr qsizetype kLongestLine = 80;
  widget->setToolTip(
      tip.size() <= kLongestLine ? tip : "<p style='white-space:pre-wrap'>" + tip.toHtmlEscaped());
  Describe(widget, tip);
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
  const auto refresh = [widget, &control, show = std::move(show)] {
    const QSignalBlocker blocker(widget);
    show();
    if constexpr (requires { control.enabled; }) widget->setEnabled(control.enabled);
    widget->setVisible(control.visible);
  };
  refresh();
  runner_.AddRefresher(refresh);
}

std::function<void()> Binder::CommandOf(const char* name, UserAction action) const {
  const Event* event = FindEvent(windowName_, name, action);
  if (event == nullptr) return {};
  return [&runner = runner_, event] { runner.Run(*event); };
}

QLineEdit* Binder::Make(const char* name, TextBox& control) const {
  auto* edit = new ClickableEdit(window_);
  edit->setMaxLength(std::numeric_limits<int>::max());
  Bind(edit, name, control, [edit, &control] {
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
    SetColours(edit, {{QPalette::Text, control.fore}, {QPalette::Base, control.back}});
    Describe(edit, control.tip, control.redIfCalculated && control.fore == kRed);
  });
  QObject::connect(edit, &QLineEdit::textChanged, edit,
                   [edit, &control] { control.text = SanitizedText(edit); });
  edit->onLeftClick = CommandOf(name, UserAction::Click);
  if (const Event* event = FindEvent(windowName_, name, UserAction::Click)) {
    auto* shortcut = new QShortcut(QKeySequence(event->key), window_);
    QObject::connect(shortcut, &QShortcut::activated, edit, [edit] {
      edit->setFocus();
      edit->onLeftClick();
    });
  }
  return edit;
}

QPlainTextEdit* Binder::Make(const char* name, TextArea& control) const {
  auto* edit = new QPlainTextEdit(window_);
  edit->setTabChangesFocus(true);
  Bind(edit, name, control, [edit, &control] {
    if (edit->isReadOnly() != control.readOnly) edit->setReadOnly(control.readOnly);
    edit->setTextInteractionFlags(edit->textInteractionFlags() | Qt::TextSelectableByKeyboard);
    const QString text = ToQt(control.text);
    if (edit->toPlainText() != text) edit->setPlainText(text);
  });
  QObject::connect(edit, &QPlainTextEdit::textChanged, edit,
                   [edit, &control] { control.text = FromQt(edit->toPlainText()); });
  return edit;
}

CaptionLabel* Binder::Make(const char* name, Label& control) const {
  auto* label = new CaptionLabel(window_);
  label->setTextFormat(Qt::PlainText);
  Bind(label, name, control, [label, &control] {
    label->setText(ToQt(control.caption));
    SetColours(label, {{QPalette::WindowText, control.fore}, {QPalette::Window, control.back}});
    label->setAutoFillBackground(control.back.has_value());
  });
  return label;
}

QPushButton* Binder::Make(const char* name, Button& control) const {
  auto* button = new SinglePressButton(window_);
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves Enter to the default button
  Bind(button, name, control, [button, &control] {
    button->setText(ToQt(control.caption));
    SetColours(button, {{QPalette::Button, control.back}});
    // Qt would move the focus of a disabled or hidden button to the next button, which Enter would
    // then press.
    QWidget* window = button->window();
    if (window->focusWidget() == button && !(control.enabled && control.visible))
      window->setFocus();
  });
  QObject::connect(button, &QPushButton::clicked, button, CommandOf(name, UserAction::Click));
  return button;
}

QCheckBox* Binder::Make(const char* name, CheckBox& control) const {
  auto* box = new QCheckBox(window_);
  Bind(box, name, control, [box, &control] {
    box->setText(ToQt(control.caption));
    box->setChecked(control.checked);
  });
  QObject::connect(box, &QCheckBox::toggled, box,
                   [&control, run = CommandOf(name, UserAction::Click)](bool checked) {
                     control.checked = checked;
                     if (run) run();
                   });
  return box;
}

QComboBox* Binder::Make(const char* name, ComboBox& control) const {
  auto* box = new QComboBox(window_);
  box->setLineEdit(new ClickableEdit(box));
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setCompleter(nullptr);
  Bind(box, name, control, [box, &control] {
    QStringList items, shown;
    for (const std::string& item : control.items) items << ToQt(item);
    for (int i = 0; i < box->count(); ++i) shown << box->itemText(i);
    if (shown != items) {
      box->clear();
      box->addItems(items);
    }
    const QString text = ToQt(control.text);
    if (shown != items || box->currentText() != text) {
      // The arrow keys continue from the current item; if the text is none of the items, they start
      // at the first.
      box->setCurrentIndex(box->findText(text));
      if (box->currentText() != text) box->setEditText(text);
    }
  });
  QObject::connect(box, &QComboBox::currentTextChanged, box,
                   [box, &control] { control.text = SanitizedText(box->lineEdit()); });
  return box;
}

ResultsList* Binder::Make(const char* name, ListBox& control) const {
  auto* list = new ResultsList(control, window_);
  list->onDoubleClick = CommandOf(name, UserAction::DoubleClick);
  Bind(list, name, control, [list] { list->Refresh(); });
  return list;
}

QFrame* Binder::Make(const char* name, Frame& control) const {
  auto* frame = new QFrame(window_);
  frame->setFrameStyle(QFrame::Box | QFrame::Plain);
  Bind(frame, name, control, [] {});
  return frame;
}

PictureView* Binder::Make(const char* name, PictureBox& control) const {
  auto* view = new PictureView(control, window_);
  Bind(view, name, control, [view] { view->update(); });
  return view;
}
