#pragma once
#include "teststore.h"

// A hand-made school for the placement tests and the group screens: 5 days of 6 periods with 4 on the last
// day; class I with divisions A, B, C (codes 1 to 3) and class II with A, B; subjects 1 to 6 ("Subject n",
// short S1..S6) and teachers 1 to 6 ("Teacher n", short T1..T6, 30 working periods each).
inline void buildSmallSchool(TestStore &store)
{
    store.setUpSchool(5, 6, 4, 3);
    store.exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 3, 1), (2, 'II', 2, 2)"));
    store.exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2), (1, 'C', 3), "
                              "(2, 'A', 1), (2, 'B', 2)"));
    for (int i = 1; i <= 6; ++i) {
        store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?)"),
                   {i, QStringLiteral("Subject %1").arg(i), QStringLiteral("S%1").arg(i)});
        store.addTeacher({i, QStringLiteral("Teacher %1").arg(i), QStringLiteral("T%1").arg(i)});
    }
}

// One allotment row, with its group marks written as the group screens write them.
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
