#pragma once
#include "combinedgroups.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QComboBox>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTest>

// A hand-made school for the group screens: class I with divisions A, B, C (codes 1 to 3) and class II with
// A, B; subjects 1 to 6 ("Subject n") and teachers 1 to 6 ("Teacher n", 30 working periods each).
namespace CombinedKit {

inline void buildSchool(TestStore &store)
{
    store.setUpSchool(5, 6, 4, 3);
    store.exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 3, 1), (2, 'II', 2, 2)"));
    store.exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2), (1, 'C', 3), "
                              "(2, 'A', 1), (2, 'B', 2)"));
    for (int i = 1; i <= 6; ++i) {
        store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?)"),
                   {i, QStringLiteral("Subject %1").arg(i), QStringLiteral("S%1").arg(i)});
        store.exec(QStringLiteral("INSERT INTO TeacherMaster VALUES (?, 0, ?, ?, NULL, 'S', NULL, NULL, '', '', '', 0, "
                                  "'', '', 0, '', 30, 0, 0, 0, 0, 0)"),
                   {i, QStringLiteral("Teacher %1").arg(i), QStringLiteral("T%1").arg(i)});
    }
}

// One allotment, with group marks as the group screens write them.
struct Row
{
    int teacher, classCode, division, subject, periods;
    int cp = 0, cc = 0, ct = 0;
    const char *ccSystem = "";
    const char *ctSystem = "";
};

inline void allot(TestStore &store, const Row &r)
{
    store.exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
               {r.teacher, r.classCode, r.division, r.subject, r.periods, r.cp ? "CP" : "", r.cc ? "CC" : "",
                r.ct ? "CT" : "", r.cp, r.cc, r.ct, QString::fromLatin1(r.ccSystem), QString::fromLatin1(r.ctSystem)});
}

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

template<typename T>
T *control(QWidget *screen, const char *name)
{
    T *found = screen->findChild<T *>(QString::fromLatin1(name));
    if (!found)
        qFatal("no control %s", name);
    return found;
}

// Presses a button as the user does: a disabled one does nothing.
inline void press(QWidget *screen, const char *name)
{
    QTest::mouseClick(control<QPushButton>(screen, name), Qt::LeftButton);
}

// Chooses the entry with `code` as a user's pick does.
inline void choose(QWidget *screen, const char *name, int code)
{
    auto *combo = control<QComboBox>(screen, name);
    const int index = combo->findData(code);
    if (index < 0)
        qFatal("%s has no code %d", name, code);
    combo->setCurrentIndex(index);
    emit combo->activated(index);
}

inline void clickRow(QTableWidget *grid, int row)
{
    const QRect cell = grid->visualRect(grid->model()->index(row, 0));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
}

// The visible cells of the filled rows, joined with '|'.
inline QStringList cells(QTableWidget *grid)
{
    QStringList rows;
    for (int r = 0; r < grid->rowCount(); ++r) {
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
    return control<QWidget>(screen, name)->isEnabled();
}

}
