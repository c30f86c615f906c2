#pragma once
#include "combinedgroups.h"
#include "findcontrol.h"
#include "scriptedmessages.h"
#include "smallschoolfixture.h"
#include "teststore.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTest>

// Helpers for the tests of the group screens, on the small school of buildSmallSchool().
namespace CombinedKit {

// The store, the scripted messages and the screen under test, made anew for every test function.
template<typename Screen>
class ScreenTest : public QObject
{
protected:
    // A fresh small school with `rows` allotted, and the screen shown on it.
    bool openScreen(std::initializer_list<Row> rows)
    {
        m_store = new TestStore;
        m_messages.reset();
        m_store->setMessages(m_messages);
        buildSmallSchool(*m_store);
        for (const Row &row : rows)
            allot(*m_store, row);
        m_screen = new Screen(m_store->context());
        m_screen->show();
        return QTest::qWaitForWindowExposed(m_screen);
    }

    // Closes the screen and the store; false when a scripted message is still waiting.
    bool closeScreen()
    {
        delete m_screen;
        const bool done = m_messages.done();
        delete m_store;
        return done;
    }

    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    Screen *m_screen = nullptr;
};

// A hand-placed period of the allotment on day 1.
inline void place(TestStore &store, const Combined::Key &key, int period = 1)
{
    store.exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, 1, ?, ?, ?, 'M', '', '', '')"),
               {key.classCode, key.division, period, key.subject, key.teacher});
}

// Every allotment, all 13 columns in stored order, as "t c d s p|CP|CC|CT|cp cc ct|CCSystem|CTSystem".
inline QStringList allotments(TestStore &store, const QString &where = QStringLiteral("1 = 1"))
{
    QStringList rows;
    QSqlQuery query(store.db());
    query.exec(QStringLiteral("SELECT * FROM WorkAllotmentEntry WHERE ") + where
               + QStringLiteral(" ORDER BY TeacherCode, ClassCode, DivisionCode, SubjectCode"));
    while (query.next()) {
        QStringList cells;
        for (int c = 0; c < 13; ++c)
            cells << query.value(c).toString();
        rows << cells.mid(0, 5).join(QLatin1Char(' ')) + QLatin1Char('|') + cells.mid(5, 3).join(QLatin1Char('|'))
                + QLatin1Char('|') + cells.mid(8, 3).join(QLatin1Char(' ')) + QLatin1Char('|')
                + cells.mid(11, 2).join(QLatin1Char('|'));
    }
    return rows;
}

inline int nextNo(TestStore &store, const char *id)
{
    return store.scalar(QStringLiteral("SELECT NextNo FROM ControlFileMaster WHERE ID = ?"), {QString::fromLatin1(id)})
        .toInt();
}

// The control `name` of `screen`; nullptr, with the test failed, when the screen has none. The helpers below
// do nothing on a missing control or grid, so a test goes on to its next check, which fails it too.
template<typename T>
T *control(QWidget *screen, const char *name)
{
    return findControl<T>(screen, name);
}

// Presses a button as the user does: a disabled one does nothing.
inline void press(QWidget *screen, const char *name)
{
    FIND_OR_FAIL(button, control<QPushButton>(screen, name));
    QTest::mouseClick(button, Qt::LeftButton);
}

// Chooses the entry with `code` as a user's pick does.
inline void choose(QWidget *screen, const char *name, int code)
{
    FIND_OR_FAIL(combo, control<QComboBox>(screen, name));
    const int index = combo->findData(code);
    if (index < 0) {
        QTest::qFail(qPrintable(QStringLiteral("%1 has no code %2").arg(QLatin1String(name)).arg(code)), __FILE__,
                     __LINE__);
        return;
    }
    combo->setCurrentIndex(index);
    emit combo->activated(index);
}

inline void clickRow(QTableWidget *grid, int row)
{
    if (!grid)
        return;
    const QRect cell = grid->visualRect(grid->model()->index(row, 0));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
}

// The visible cells of the filled rows, joined with '|'.
inline QStringList cells(QTableWidget *grid)
{
    QStringList rows;
    for (int r = 0; grid && r < grid->rowCount(); ++r) {
        QStringList row;
        for (int c = 0; c < grid->columnCount(); ++c) {
            if (!grid->isColumnHidden(c))
                row << (grid->item(r, c) ? grid->item(r, c)->text() : QString());
        }
        if (!row.join(QString()).isEmpty())
            rows << row.join(QLatin1Char('|'));
    }
    return rows;
}

inline bool enabled(QWidget *screen, const char *name)
{
    FIND_OR_FAIL(widget, control<QWidget>(screen, name), false);
    return widget->isEnabled();
}

inline QString labelText(QWidget *screen, const char *name)
{
    FIND_OR_FAIL(label, control<QLabel>(screen, name), QString());
    return label->text();
}

}
