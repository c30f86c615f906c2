#include "optionaldateedit.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QScopedValueRollback>

namespace {
// The edit's lowest date stands for "unset": a spin box shows its special text (a blank) at its minimum.
const QDate Unset(1900, 1, 1);
}

OptionalDateEdit::OptionalDateEdit(QWidget *parent)
    : QWidget(parent)
{
    m_chkSet = new QCheckBox(this);
    m_chkSet->setObjectName(QStringLiteral("chkSet"));
    m_chkSet->setToolTip(QStringLiteral("Tick to enter the date; clear the tick to leave it unset"));
    m_edit = new QDateEdit(this);
    m_edit->setObjectName(QStringLiteral("dateEdit"));
    m_edit->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    m_edit->setCalendarPopup(true);
    m_edit->setMinimumDate(Unset);
    m_edit->setSpecialValueText(QStringLiteral(" "));
    // A date is checked once it is complete, not at every digit typed.
    m_edit->setKeyboardTracking(false);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_chkSet);
    layout->addWidget(m_edit, 1);

    connect(m_chkSet, &QCheckBox::toggled, this, &OptionalDateEdit::tick);
    connect(m_edit, &QDateEdit::dateChanged, this, [this](QDate date) {
        if (!m_programmatic && m_chkSet->isChecked() && date != Unset)
            emit dateEdited(date);
    });
    showUnset();
}

QDate OptionalDateEdit::date() const
{
    return m_chkSet->isChecked() && m_edit->date() != Unset ? m_edit->date() : QDate();
}

void OptionalDateEdit::setDate(const QDate &date)
{
    QScopedValueRollback<bool> quiet(m_programmatic, true);
    if (!date.isValid() || date <= Unset) {
        m_chkSet->setChecked(false);
        showUnset();
        return;
    }
    m_chkSet->setChecked(true);
    m_edit->setDate(date);
}

void OptionalDateEdit::takeFocus()
{
    if (m_edit->isEnabled())
        m_edit->setFocus(Qt::OtherFocusReason);
    else
        m_chkSet->setFocus(Qt::OtherFocusReason);
}

void OptionalDateEdit::tick(bool on)
{
    if (!on) {
        if (m_edit->date() != Unset)
            m_lastDate = m_edit->date();
        showUnset();
        return;
    }
    m_edit->setEnabled(true);
    if (m_edit->date() == Unset) {
        QScopedValueRollback<bool> quiet(m_programmatic, true);
        m_edit->setDate(m_lastDate.isValid() ? m_lastDate : QDate::currentDate());
    }
    if (!m_programmatic)
        m_edit->setFocus(Qt::OtherFocusReason);
}

void OptionalDateEdit::showUnset()
{
    QScopedValueRollback<bool> quiet(m_programmatic, true);
    m_edit->setDate(Unset);
    m_edit->setEnabled(false);
}
