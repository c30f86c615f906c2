#pragma once
#include "findcontrol.h"
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

// Drives a master screen through its named controls, as the office does with mouse and keyboard. A control the
// screen lacks fails the test (findControl); the steps below then do nothing, and the test's next check fails.
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

    void click(const QString &button) const
    {
        FIND_OR_FAIL(pressed, control<QPushButton>(button));
        QTest::mouseClick(pressed, Qt::LeftButton);
    }
    void key(const QString &name, Qt::Key key) const
    {
        FIND_OR_FAIL(widget, control(name));
        QTest::keyClick(widget, key);
    }
    bool enabled(const QString &name) const
    {
        FIND_OR_FAIL(widget, control(name), false);
        return widget->isEnabled();
    }
    // The control the screen last gave the focus to (the offscreen window need not be active).
    QWidget *focused() const { return m_screen.focusWidget(); }

    void type(const QString &field, const QString &text) const
    {
        FIND_OR_FAIL(edit, control<QLineEdit>(field));
        edit->clear();
        QTest::keyClicks(edit, text);
    }
    QString text(const QString &field) const
    {
        FIND_OR_FAIL(edit, control<QLineEdit>(field), QString());
        return edit->text();
    }
    QString shown(const QString &combo) const
    {
        FIND_OR_FAIL(list, control<QComboBox>(combo), QString());
        return list->currentText();
    }

    QTableWidget *grid() const { return control<QTableWidget>(m_gridName); }
    // The texts of one grid column, top to bottom.
    QStringList column(int column) const
    {
        FIND_OR_FAIL(table, grid(), QStringList());
        QStringList cells;
        for (int row = 0; row < table->rowCount(); ++row)
            cells << (table->item(row, column) ? table->item(row, column)->text() : QString());
        return cells;
    }
    // Enter on the grid row whose first visible column reads `cell`.
    void choose(const QString &cell, int column = 0) const
    {
        FIND_OR_FAIL(table, grid());
        const int row = int(this->column(column).indexOf(cell));
        QVERIFY2(row >= 0, qPrintable(cell));
        table->setFocus();
        table->setCurrentCell(row, column);
        QTest::keyClick(table, Qt::Key_Return);
    }

    void pick(const QString &combo, const QString &entry) const
    {
        FIND_OR_FAIL(list, control<QComboBox>(combo));
        const int index = list->findText(entry);
        QVERIFY2(index >= 0, qPrintable(entry));
        list->setCurrentIndex(index);
        emit list->activated(index);
    }

private:
    QWidget &m_screen;
    QString m_gridName;
};
