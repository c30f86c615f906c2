#include "classdivisions.h"
#include "classdivisionstore.h"
#include "teststore.h"

#include <QTest>

using namespace ClassDivisions;

namespace {

ClassRow classRow(const QString &name, const QString &count, const QString &order, int code = 0)
{
    ClassRow row{code, name, count, order, {}};
    settleDivisions(row);
    return row;
}

QStringList divisionNames(const ClassRow &row)
{
    QStringList names;
    for (const CodeName &division : row.divisions)
        names.append(division.name);
    return names;
}

QStringList orders(const QList<ClassRow> &rows)
{
    QStringList list;
    for (const ClassRow &row : rows)
        list.append(row.orderText);
    return list;
}

// "VIII:2:1:A,B" per class by ClassOrder, from the store.
QStringList stored(const TestStore &store)
{
    QStringList list;
    for (const ClassRow &row : ClassDivisionStore(store.db()).load())
        list.append(QStringLiteral("%1:%2:%3:%4").arg(row.name, row.divisionText, row.orderText,
                                                        divisionNames(row).join(QLatin1Char(','))));
    return list;
}

}

class tst_ClassDivisions : public QObject
{
    Q_OBJECT

private slots:
    void seriesNames_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("name");
        QTest::newRow("first") << 1 << "A";
        QTest::newRow("last single letter") << 26 << "Z";
        QTest::newRow("first pair") << 27 << "AA";
        QTest::newRow("thirtieth") << 30 << "AD";
        QTest::newRow("end of A pairs") << 52 << "AZ";
        QTest::newRow("B pairs") << 53 << "BA";
        QTest::newRow("end of B pairs") << 78 << "BZ";
        QTest::newRow("C pairs") << 79 << "CA";
        QTest::newRow("largest count") << 99 << "CU";
    }
    void seriesNames()
    {
        QFETCH(int, position);
        QFETCH(QString, name);
        QCOMPARE(seriesName(position), name);
    }

    void divisionsFollowTheCount()
    {
        ClassRow row = classRow(QStringLiteral("X"), QStringLiteral("30"), QStringLiteral("1"));
        QCOMPARE(row.divisions.size(), 30);
        QCOMPARE(divisionNames(row).mid(24), (QStringList{"Y", "Z", "AA", "AB", "AC", "AD"}));
        QCOMPARE(row.divisions.constLast().code, 30);

        // Fewer drop from the end; more again take the next codes of the class.
        row.divisionText = QStringLiteral("2");
        settleDivisions(row);
        QCOMPARE(divisionNames(row), (QStringList{"A", "B"}));
        row.divisions[1].name = QStringLiteral("c");
        row.divisionText = QStringLiteral("4");
        settleDivisions(row);
        QCOMPARE(divisionNames(row), (QStringList{"A", "c", "D", "E"})); // a taken name is passed over
        QCOMPARE(row.divisions[3].code, 4);
        row.divisionText = QStringLiteral("0");
        settleDivisions(row);
        QVERIFY(row.divisions.isEmpty());
    }

    void rerank_data()
    {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<int>("changed");
        QTest::addColumn<QStringList>("after");
        QTest::newRow("new row takes a middle place")
            << QStringList{"1", "2", "3", "2"} << 3 << QStringList{"1", "3", "4", "2"};
        QTest::newRow("last class moves to the top")
            << QStringList{"1", "2", "1"} << 2 << QStringList{"2", "3", "1"};
        QTest::newRow("lower ranks and blanks stay")
            << QStringList{"1", "", "3", "4", "3"} << 4 << QStringList{"1", "", "4", "5", "3"};
        QTest::newRow("grid order, not rank order")
            << QStringList{"3", "1", "2", "1"} << 3 << QStringList{"2", "3", "4", "1"};
        QTest::newRow("a blank order ranks nothing")
            << QStringList{"1", "2", ""} << 2 << QStringList{"1", "2", ""};
    }
    void rerank()
    {
        QFETCH(QStringList, before);
        QFETCH(int, changed);
        QFETCH(QStringList, after);
        QList<ClassRow> rows;
        for (const QString &order : before)
            rows.append(classRow(QStringLiteral("C%1").arg(rows.size()), QStringLiteral("1"), order));
        ClassDivisions::rerank(rows, changed);
        QCOMPARE(orders(rows), after);
    }

    void removeRowBySerial()
    {
        QList<ClassRow> rows{classRow("XII", "2", "1", 1), classRow("XI", "1", "2", 2), classRow("X", "3", "3", 3),
                             classRow("", "", "", 4)};
        QVERIFY(!removeRow(rows, 0));
        QVERIFY(!removeRow(rows, 5));
        QVERIFY(removeRow(rows, 2));
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows[1].name, QStringLiteral("X"));
        QCOMPARE(divisionNames(rows[1]), (QStringList{"A", "B", "C"}));
        QCOMPARE(orders(rows), (QStringList{"1", "2", ""}));

        // The only row left is emptied, divisions and code included.
        QList<ClassRow> one{classRow("IX", "2", "1", 7)};
        QVERIFY(removeRow(one, 1));
        QCOMPARE(one.size(), 1);
        QVERIFY(one[0].isBlank());
        QVERIFY(one[0].divisions.isEmpty());
        QCOMPARE(one[0].code, 0);
    }

    void validate_data()
    {
        QTest::addColumn<QList<ClassRow>>("rows");
        QTest::addColumn<QStringList>("kept");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("column");

        const ClassRow ok = classRow("XII", "2", "1");
        const QStringList none;
        QTest::newRow("count without name") << QList<ClassRow>{ok, classRow("", "2", "")} << none
                                            << "Class Name Should Not Be Empty" << 1 << int(NameColumn);
        QTest::newRow("order without name") << QList<ClassRow>{ok, classRow(" ", "", "2")} << none
                                            << "Enter Class Name" << 1 << int(NameColumn);
        // Each check runs over every row before the next: row 2's missing name beats row 1's missing count.
        QTest::newRow("checks run in order")
            << QList<ClassRow>{ok, classRow("XI", "", "2"), classRow("", "1", "")} << none
            << "Class Name Should Not Be Empty" << 2 << int(NameColumn);
        QTest::newRow("no divisions") << QList<ClassRow>{ok, classRow("XI", "0", "2")} << none
                                      << "Each Class Should Have Atleast One Division" << 1 << int(DivisionsColumn);
        QTest::newRow("same name in another case")
            << QList<ClassRow>{ok, classRow(" xii ", "1", "2")} << none << "Class Name Already Exists" << 0 << int(NameColumn);
        QTest::newRow("name of a class kept outside the grid")
            << QList<ClassRow>{classRow("xi", "1", "1")} << QStringList{"XI"} << "Class Name Already Exists" << 0
            << int(NameColumn);
        QTest::newRow("blank order") << QList<ClassRow>{ok, classRow("XI", "1", "")} << none
                                     << "Class Order Should  Not Be Empty" << 1 << int(OrderColumn);
        QTest::newRow("same order") << QList<ClassRow>{ok, classRow("XI", "1", "01")} << none
                                    << "Class Order Already Exists" << 0 << int(OrderColumn);
        QTest::newRow("order zero") << QList<ClassRow>{ok, classRow("XI", "1", "0")} << none
                                    << "Class Order Should Not Be Blank. Enter Class Order" << 1 << int(OrderColumn);
        QTest::newRow("nothing entered") << QList<ClassRow>{classRow("", "", "")} << none
                                         << "Enter Class/Division Details" << 0 << int(NameColumn);
        QTest::newRow("all well") << QList<ClassRow>{ok, classRow("XI", "1", "2"), classRow("", "", "")} << none
                                  << QString() << -1 << int(NameColumn);
    }
    void validate()
    {
        QFETCH(QList<ClassRow>, rows);
        QFETCH(QStringList, kept);
        QFETCH(QString, text);
        QFETCH(int, row);
        QFETCH(int, column);
        const ClassRefusal refusal = ClassDivisions::validate(rows, kept);
        QCOMPARE(refusal.text, text);
        QCOMPARE(refusal.row, row);
        QCOMPARE(refusal.column, column);
    }

    void blankDivisionNameNamesTheClass()
    {
        QList<ClassRow> rows{classRow("XII", "2", "1"), classRow("XI", "3", "2")};
        rows[1].divisions[2].name = QStringLiteral("  ");
        const ClassRefusal refusal = ClassDivisions::validate(rows);
        QCOMPARE(refusal.text, QStringLiteral("Enter Division Name To Class XI"));
        QCOMPARE(refusal.row, 1);
        QCOMPARE(refusal.division, 2);
    }

    void newCodesStayAboveStoredOnes()
    {
        QList<ClassRow> rows{classRow("XII", "1", "1", 3), classRow("", "", "")};
        assignCodes(rows, 5); // class 5 was stored and has just been removed from the grid
        QCOMPARE(rows[1].code, 6);
    }

    void saveNewThenEdit()
    {
        TestStore store;
        const ClassDivisionStore classes(store.db());
        classes.saveNew({classRow(" XII ", "2", "1", 1), classRow("XI", "3", "2", 2), classRow("", "", "", 3)});
        QCOMPARE(stored(store), (QStringList{"XII:2:1:A,B", "XI:3:2:A,B,C"}));
        QCOMPARE(store.count(QStringLiteral("ClassDivisionMaster")), 3); // with the code-0 row

        // Rename a division, drop one, rename a class, add a class; the pair codes stay.
        QList<ClassRow> rows = classes.load();
        rows[0].divisions[1].name = QStringLiteral("Sci");
        rows[1].name = QStringLiteral("XI ");
        rows[1].divisionText = QStringLiteral("1");
        settleDivisions(rows[1]);
        rows.append(classRow("X", "1", "3", 3));
        QCOMPARE(classes.saveEdit(rows), QString());
        QCOMPARE(stored(store), (QStringList{"XII:2:1:A,Sci", "XI:1:2:A", "X:1:3:A"}));
        QCOMPARE(store.scalar(QStringLiteral("SELECT DivisionCode FROM ClassDivisionDetails "
                                             "WHERE ClassCode = 1 AND DivisionName = 'Sci'")).toInt(), 2);
        QVERIFY(!classes.rearrangeClassOrder());

        // An unused class goes with its divisions.
        rows = classes.load();
        rows.removeAt(2);
        QCOMPARE(classes.saveEdit(rows), QString());
        QCOMPARE(store.count(QStringLiteral("ClassDivisionDetails")), 3);
        QCOMPARE(stored(store).size(), 2);
    }

    // Whatever another screen still uses stays, and the refused Save writes nothing at all.
    void usedRowsRefuseTheWholeEdit_data()
    {
        QTest::addColumn<QString>("use");
        QTest::addColumn<bool>("removeClass");
        QTest::addColumn<QString>("text");
        const QString division = QStringLiteral("This Division 'XI - C' Is Used In Other Entry Screen(s). So You Cannot Delete");
        QTest::newRow("division in an allotment")
            << "INSERT INTO WorkAllotmentEntry VALUES (0, 2, 3, 0, 4, '', '', '', 0, 0, 0, '', '')" << false << division;
        QTest::newRow("division in the timetable")
            << "INSERT INTO TimeTable VALUES (2, 3, 1, 1, 0, 0, 'M', '', '', '')" << false << division;
        QTest::newRow("division of a class teacher")
            << "UPDATE TeacherMaster SET ClassCode = 2, DivisionCode = 3 WHERE TeacherCode = 0" << false << division;
        // A removed class loses its divisions first, so a timetable row names its division.
        QTest::newRow("class in the timetable")
            << "INSERT INTO TimeTable VALUES (2, 3, 1, 1, 0, 0, 'M', '', '', '')" << true << division;
        QTest::newRow("class with working days only")
            << "INSERT INTO ClasswiseNoOfWorkingDays VALUES (2, 5)" << true
            << "The Class 'XI' Used In Other Entry Screen(s). So You Cannot Delete";
    }
    void usedRowsRefuseTheWholeEdit()
    {
        QFETCH(QString, use);
        QFETCH(bool, removeClass);
        QFETCH(QString, text);
        TestStore store;
        const ClassDivisionStore classes(store.db());
        classes.saveNew({classRow("XII", "2", "1", 1), classRow("XI", "3", "2", 2)});
        store.exec(use);
        const QStringList before = stored(store);

        QList<ClassRow> rows = classes.load();
        rows[0].name = QStringLiteral("XIIA"); // a change that must not survive the refusal
        if (removeClass) {
            rows.removeAt(1);
        } else {
            rows[1].divisionText = QStringLiteral("2");
            settleDivisions(rows[1]);
        }
        QCOMPARE(classes.saveEdit(rows), text);
        QCOMPARE(stored(store), before);
    }
};

QTEST_GUILESS_MAIN(tst_ClassDivisions)
#include "tst_classdivisions.moc"
