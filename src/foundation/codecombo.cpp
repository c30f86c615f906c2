#include "codecombo.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace CodeCombo {

void fill(QComboBox *combo, const QList<CodeName> &entries, bool blankFirst, int keepCode)
{
    const QSignalBlocker quiet(combo);
    combo->clear();
    if (blankFirst)
        combo->addItem(QString(), 0);
    for (const CodeName &entry : entries)
        combo->addItem(entry.name, entry.code);
    select(combo, keepCode);
}

int code(const QComboBox *combo)
{
    return combo->currentIndex() < 0 ? 0 : combo->currentData().toInt();
}

QString name(const QComboBox *combo)
{
    return combo->currentIndex() < 0 ? QString() : combo->currentText().trimmed();
}

void select(QComboBox *combo, int code)
{
    const int index = combo->findData(code);
    combo->setCurrentIndex(index >= 0 ? index : combo->findData(0));
}

}
