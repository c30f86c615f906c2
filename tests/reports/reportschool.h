#pragma once
#include "teststore.h"

// A school of 5 days of 4 periods with 2 on the last day, whose first teacher (code 1, "Anita Rao") has
// five cells in the week: a plain period, a Combined Class slot whose main row was written before its
// generated row, a class and division of 9 characters, a class whose name starts with an apostrophe, and
// a period on the short last day. Teacher 2 ("Biju Paul") has none.
inline void buildReportSchool(TestStore &store)
{
    store.setUpSchool(5, 4, 2, 2);
    store.exec(QStringLiteral("UPDATE SchoolSetup SET SchoolName = ?"), {QStringLiteral("'Little Flower' School")});
    const auto exec = [&store](const char *sql) { store.exec(QString::fromLatin1(sql)); };
    exec("INSERT INTO ClassDivisionMaster VALUES (1, 'X', 2, 1), (2, 'XII', 1, 2), (3, '''N', 1, 3), "
         "(4, 'Standard', 1, 4)");
    exec("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2), (2, 'SC', 1), (3, 'C', 1), (4, 'A', 1)");
    exec("INSERT INTO SubjectMaster VALUES (1, 'Mathematics', 'MA'), (2, 'English', 'E'), (3, 'Physics', 'PHY')");
    exec("INSERT INTO TeacherMaster (TeacherCode, TeacherName, TeacherShortName) VALUES "
         "(2, 'Biju Paul', 'BP'), (1, 'Anita Rao', 'AR')");
    // ClassCode, DivisionCode, DayCode, PeriodCode, SubjectCode, TeacherCode, Manual, spare, CC, CT
    exec("INSERT INTO TimeTable VALUES (1, 1, 1, 1, 1, 1, 'M', '', '', ''), (2, 1, 1, 4, 3, 1, 'M', '', '', ''), "
         "(1, 1, 2, 2, 2, 1, 'M', '', NULL, NULL), (1, 2, 2, 2, 2, 1, 'M', '', 'CC', ''), "
         "(4, 1, 3, 3, 1, 1, '1', '', 'Y', NULL), (3, 1, 5, 2, 1, 1, '2', '', '', '')");
}
