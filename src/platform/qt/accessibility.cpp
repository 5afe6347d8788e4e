#include "platform/qt/accessibility.h"

#include <QAccessibleWidget>

#include "platform/qt/framed_window.h"
#include "platform/qt/picture_view.h"

namespace {

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  if (auto* window = dynamic_cast<FramedWindow*>(object))
    return new QAccessibleWidget(window, QAccessible::Window);
  if (auto* picture = dynamic_cast<PictureView*>(object))
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  return nullptr;
}

}  // namespace

void InstallAccessibleRoles() {
  QAccessible::installFactory(MakeInterface);
}

void Describe(QWidget* widget, const QString& text, bool isCalculated) {
  QStringList parts;
  if (isCalculated) parts << "Calculated.";
  if (!text.isEmpty()) parts << text;
  if (qEnvironmentVariableIsSet("TARNWICK_FIELD_NAMES")) parts << '[' + widget->objectName() + ']';
  const QString description = parts.join(' ');
  // Qt announces every call of the setter as a change.
  if (widget->accessibleDescription() != description) widget->setAccessibleDescription(description);
}
