#pragma once
#include "teacherservice.h"

#include <QComboBox>

// The drop-down lists of the teacher screens carry codes as item data; code 0 is the blank entry.
namespace TeacherCombos {

inline int codeOf(const QComboBox *combo)
{
    return combo->currentIndex() < 0 ? 0 : combo->currentData().toInt();
}

inline void select(QComboBox *combo, int code)
{
    const int index = combo->findData(code);
    combo->setCurrentIndex(index >= 0 ? index : combo->findData(0));
}

// Refills the list and chooses `keepCode` again, or the blank entry when that code is gone.
inline void fill(QComboBox *combo, const QList<TeacherListEntry> &entries, int keepCode)
{
    combo->clear();
    for (const TeacherListEntry &entry : entries)
        combo->addItem(entry.name, entry.code);
    select(combo, keepCode);
}

}
