// What screen readers and other assistive tools read of the windows. A label, a button and a check
// box are named by their captions, a field by its label or by an accessible name of its own.
#pragma once

#include <QString>

class QComboBox;
class QLabel;
class QWidget;

// Makes the windows and the picture known by roles of their own, not as "filler". Call it before
// the first window appears; further calls change nothing.
void InstallAccessibleRoles();

// Sets what is read after the widget's name: `text`, after the word "Calculated" if the program
// calculated what the widget shows. If the environment variable TARNWICK_FIELD_NAMES is set, for
// scripts that look for controls, the widget's object name in brackets follows.
void Describe(QWidget* widget, const QString& text, bool isCalculated = false);

// Names a combo box and the editor in it by the caption of `label`.
void NameByLabel(QComboBox* box, QLabel* label);
