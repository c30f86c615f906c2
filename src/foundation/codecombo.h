#pragma once
#include "codename.h"

class QComboBox;

// The drop-down lists of every screen: codes travel as item data, never as row numbers.
namespace CodeCombo {

// Refills the list (a blank entry of code 0 first when `blankFirst`) and chooses `keepCode` again, or the
// blank entry when that code is gone.
void fill(QComboBox *combo, const QList<CodeName> &entries, bool blankFirst, int keepCode = 0);
// The chosen code; 0 when nothing or the blank entry is chosen.
int code(const QComboBox *combo);
// The chosen name, trimmed.
QString name(const QComboBox *combo);
// Chooses the entry of `code`, or the blank one when the list has no such code.
void select(QComboBox *combo, int code);

}
