// Names and descriptions of the widgets for screen readers and other assistive tools. A label, a
// button and a check box take their names from their captions, a field from its label or from an
// accessible name of its own.
#pragma once

#include <QString>

class QWidget;

// Sets the accessible roles of the windows (Window) and of the picture (Graphic); otherwise Qt
// reports them as "filler". Call it before the first window appears; further calls change nothing.
void InstallAccessibleRoles();

// Sets the accessible description, which a screen reader reads after the widget's name: `text`,
// preceded by "Calculated." if the program calculated what the widget shows. If the environment
// variable TARNWICK_FIELD_NAMES is set, for scripts that look for controls, the widget's object
// name in brackets follows.
void Describe(QWidget* widget, const QString& text, bool isCalculated = false);
