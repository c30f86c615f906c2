#pragma once
#include <QDate>
#include <QWidget>

class QCheckBox;
class QDateEdit;

// A date that may be left unset, as the optional dates of a teacher are: a tick box switches the date on,
// and an unset date shows blank. date() is an invalid QDate while unset.
class OptionalDateEdit : public QWidget
{
    Q_OBJECT
public:
    explicit OptionalDateEdit(QWidget *parent = nullptr);

    QDate date() const;
    // An invalid date unsets the field. Does not emit dateEdited.
    void setDate(const QDate &date);
    void clear() { setDate(QDate()); }
    // Focus to the date, or to its tick box while the date is unset.
    void takeFocus();

signals:
    // The user changed a set date (typing finished, an arrow step or a pick from the calendar).
    void dateEdited(const QDate &date);

private:
    void tick(bool on);
    void showUnset();

    QCheckBox *m_chkSet = nullptr;
    QDateEdit *m_edit = nullptr;
    QDate m_lastDate; // what the field held before it was unset, offered again when it is ticked
    bool m_programmatic = false;
};
