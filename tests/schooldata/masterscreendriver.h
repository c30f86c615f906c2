#pragma once
#include "findcontrol.h"
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

// Drives a master screen through its named controls, as the office does with mouse and keyboard.
class MasterScreenDriver
{
public:
    explicit MasterScreenDriver(QWidget &screen, const QString &gridName = QStringLiteral("dgdDetails"))
        : m_screen(screen), m_gridName(gridName)
    {
        m_screen.show();
    }

    template<typename T = QWidget>
    T *control(const QString &name) const
    {
        return findControl<T>(&m_screen, name);
    }

    void click(const QString &button) const { QTest::mouseClick(control<QPushButton>(button), Qt::LeftButton); }
    bool enabled(const QString &name) const { return control(name)->isEnabled(); }
    // The control the screen last gave the focus to (the offscreen window need not be active).
    QWidget *focused() const { return m_screen.focusWidget(); }

    void type(const QString &field, const QString &text) const
    {
        QLineEdit *edit = control<QLineEdit>(field);
        edit->clear();
        QTest::keyClicks(edit, text);
    }
    QString text(const QString &field) const { return control<QLineEdit>(field)->text(); }

    QTableWidget *grid() const { return control<QTableWidget>(m_gridName); }
    // The texts of one grid column, top to bottom.
    QStringList column(int column) const
    {
        QStringList cells;
        for (int row = 0; row < grid()->rowCount(); ++row)
            cells << (grid()->item(row, column) ? grid()->item(row, column)->text() : QString());
        return cells;
    }
    // Enter on the grid row whose first visible column reads `cell`.
    void choose(const QString &cell, int column = 0) const
    {
        const int row = int(this->column(column).indexOf(cell));
        QVERIFY2(row >= 0, qPrintable(cell));
        grid()->setFocus();
        grid()->setCurrentCell(row, column);
        QTest::keyClick(grid(), Qt::Key_Return);
    }

    void pick(const QString &combo, const QString &entry) const
    {
        QComboBox *list = control<QComboBox>(combo);
        const int index = list->findText(entry);
        QVERIFY2(index >= 0, qPrintable(entry));
        list->setCurrentIndex(index);
        emit list->activated(index);
    }

private:
    QWidget &m_screen;
    QString m_gridName;
};
