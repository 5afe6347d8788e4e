#include "platform/qt/binder.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>
#include <limits>

#include "platform/desktop/qt_text.h"

namespace {

void Paint(QWidget* widget, QPalette::ColorRole role, const Colour& colour) {
  if (!colour && !widget->palette().isBrushSet(QPalette::Active, role)) return;
  QPalette palette = widget->palette();
  const QColor shown = colour ? ToQt(*colour) : LightPalette().color(role);
  palette.setColor(QPalette::Active, role, shown);
  palette.setColor(QPalette::Inactive, role, shown);
  widget->setPalette(palette);
}

// A form that was worked out is told from the one that was given by its colour alone.
bool IsCalculated(const TextBox& state) {
  return state.redIfCalculated && state.fore == kRed;
}

// What the record holds of a typed text, shown in its place if a character had to give way. Of
// several pasted lines the first counts: a cell of a table comes with its line end.
std::string Taken(QLineEdit* edit) {
  std::string text = FromQt(edit->text());
  text.erase(0, text.find_first_not_of("\r\n"));
  text.erase(std::min(text.find_first_of("\r\n"), text.size()));
  const QString shown = ToQt(text);
  if (shown != edit->text()) {
    const qsizetype cursor = ToQt(FromQt(edit->text().left(edit->cursorPosition()))).size();
    const QSignalBlocker quiet(edit);
    edit->setText(shown);
    edit->setCursorPosition(static_cast<int>(cursor));
  }
  return text;
}

}  // namespace

QPalette LightPalette() {
  static const QPalette light = [] {
    QPalette palette(QColor(240, 240, 240));
    palette.setColor(QPalette::Window, QColor(250, 250, 250));
    return palette;
  }();
  return light;
}

bool Mirror::Run(const std::function<void(Workspace&)>& command) {
  if (busy_) return false;
  busy_ = true;
  command(w);
  busy_ = false;
  Show();
  if (onIdle) onIdle();
  return true;
}

bool Mirror::Run(const Event& event) {
  if (event.readsDatabase) QApplication::setOverrideCursor(Qt::WaitCursor);
  const bool ran = Run(event.run);
  if (event.readsDatabase) QApplication::restoreOverrideCursor();
  return ran;
}

void Mirror::Show() {
  showing_ = true;
  for (const auto& update : updates_) update();
  showing_ = false;
}

template <class State, class Update>
std::shared_ptr<State> Mirror::OnChange(const State& state, Update update) {
  showing_ = true;
  update();
  showing_ = false;
  auto shown = std::make_shared<State>(state);
  OnShow([&state, update, shown] {
    if (*shown == state) return;
    *shown = state;
    update();
  });
  return shown;
}

void Mirror::KeepPlace(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

void Mirror::Describe(QWidget* widget, const char* name, const char* tip) {
  const QString mark = QString("[%1]").arg(name);
  widget->setObjectName(name);
  widget->setToolTip(tip);
  widget->setAccessibleDescription(*tip == '\0' ? mark : QString("%1 %2").arg(tip, mark));
}

void Mirror::Bind(WindowName /*window*/, const char* name, TextBox& state, QLineEdit* edit) {
  Describe(edit, name, state.tip);
  KeepPlace(edit);
  edit->setMaxLength(std::numeric_limits<int>::max());
  edit->setReadOnly(state.readOnly);
  const QString described = edit->accessibleDescription();
  const auto shown = OnChange(state, [edit, &state, described] {
    const QString text = ToQt(state.text);
    if (edit->text() != text) {
      edit->setText(text);
      // What a command has written gives way to the next typing.
      if (state.readOnly) edit->setCursorPosition(0);
      if (!state.readOnly && edit->window()->focusWidget() == edit) edit->selectAll();
    }
    Paint(edit, QPalette::Text, state.fore);
    Paint(edit, QPalette::Base, state.back);
    edit->setAccessibleDescription((IsCalculated(state) ? "Calculated. " : "") + described);
    edit->setEnabled(state.enabled);
    edit->setVisible(state.visible);
  });
  QObject::connect(edit, &QLineEdit::textChanged, edit, [this, edit, &state, shown] {
    if (!showing_) shown->text = state.text = Taken(edit);
  });
}

void Mirror::Bind(WindowName /*window*/, const char* name, TextArea& state, QPlainTextEdit* edit) {
  Describe(edit, name, state.tip);
  KeepPlace(edit);
  edit->setReadOnly(state.readOnly);
  edit->setTextInteractionFlags(edit->textInteractionFlags() | Qt::TextSelectableByKeyboard);
  edit->setTabChangesFocus(true);
  QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [this, edit, &state] {
    if (!showing_) state.text = FromQt(edit->toPlainText());
  });
  OnChange(state, [edit, &state] {
    const QString text = ToQt(state.text);
    if (edit->toPlainText() != text) edit->setPlainText(text);
    edit->setEnabled(state.enabled);
    edit->setVisible(state.visible);
  });
}

void Mirror::Bind(WindowName /*window*/, const char* name, Label& state, QLabel* label) {
  Describe(label, name, "");
  KeepPlace(label);
  label->setTextFormat(Qt::PlainText);
  OnChange(state, [label, &state] {
    label->setText(ToQt(state.caption));
    Paint(label, QPalette::WindowText, state.fore);
    Paint(label, QPalette::Window, state.back);
    label->setAutoFillBackground(state.back.has_value());
    label->setVisible(state.visible);
  });
}

void Mirror::Bind(WindowName window, const char* name, Button& state, QPushButton* button) {
  Describe(button, name, state.tip);
  KeepPlace(button);
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves Enter to the default button
  if (const Event* handler = FindEvent(window, name, UserAction::Click))
    QObject::connect(button, &QPushButton::clicked, button, [this, handler] { Run(*handler); });
  OnChange(state, [button, &state] {
    button->setText(ToQt(state.caption));
    Paint(button, QPalette::Button, state.back);
    // Qt would pass the focus of a button that goes on to the next one, for Enter to press.
    QWidget* window = button->window();
    if (window->focusWidget() == button && !(state.enabled && state.visible)) window->setFocus();
    button->setEnabled(state.enabled);
    button->setVisible(state.visible);
  });
}

void Mirror::Bind(WindowName window, const char* name, CheckBox& state, QCheckBox* box) {
  Describe(box, name, state.tip);
  KeepPlace(box);
  const Event* handler = FindEvent(window, name, UserAction::Click);
  QObject::connect(box, &QCheckBox::toggled, box, [this, handler, &state](bool checked) {
    if (showing_) return;
    state.checked = checked;
    if (handler != nullptr) Run(*handler);
  });
  OnChange(state, [box, &state] {
    box->setText(ToQt(state.caption));
    box->setChecked(state.checked);
    box->setEnabled(state.enabled);
    box->setVisible(state.visible);
  });
}

void Mirror::Bind(WindowName /*window*/, const char* name, ComboBox& state, QComboBox* box) {
  Describe(box, name, "");
  KeepPlace(box);
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setCompleter(nullptr);
  const auto shown = OnChange(state, [box, &state] {
    if (box->count() != static_cast<int>(state.items.size())) {
      box->clear();
      for (const std::string& item : state.items) box->addItem(ToQt(item));
    }
    // The arrow keys go on from the entry that is shown; a text that is none stands before the
    // first.
    const QString text = ToQt(state.text);
    box->setCurrentIndex(box->findText(text));
    if (box->currentText() != text) box->setEditText(text);
    box->setEnabled(state.enabled);
    box->setVisible(state.visible);
  });
  QObject::connect(box, &QComboBox::currentTextChanged, box, [this, box, &state, shown] {
    if (!showing_) shown->text = state.text = Taken(box->lineEdit());
  });
}

void Mirror::Bind(WindowName /*window*/, const char* name, Frame& state, QFrame* frame) {
  Describe(frame, name, "");
  KeepPlace(frame);
  OnChange(state, [frame, &state] { frame->setVisible(state.visible); });
}
