// Times one click on the manual screen of the large sample school: placing a combined class group, then
// removing it, each with the redraw of both week grids. Run by hand:
//   bench_manualclick [rounds]
#include "frmmanualperiodsentry.h"
#include "manualentry.h"
#include "messageservice.h"
#include "sampleschool.h"
#include "session.h"
#include "sql.h"
#include "store.h"
#include "transaction.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QSet>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstdio>

namespace {

// Says Yes to every question, so that a click on a filled cell removes it.
class YesMessages : public MessageService
{
public:
    void information(const QString &text, const QString &) override { std::fprintf(stderr, "info: %s\n", qPrintable(text)); }
    void critical(const QString &text, const QString &) override { std::fprintf(stderr, "error: %s\n", qPrintable(text)); }
    bool question(const QString &, const QString &) override { return true; }
    bool okCancel(const QString &, const QString &) override { return true; }
};

struct Selection
{
    int classCode = 0, division = 0, subject = 0, ccGroup = 0;
};

Selection combinedClassMainRow(const QSqlDatabase &db)
{
    QSqlQuery row = Sql(db).run(QStringLiteral(
        "SELECT ClassCode, DivisionCode, SubjectCode, CCGroupNo FROM WorkAllotmentEntry WHERE CCGroupNo > 0 "
        "AND (CCSystem IS NULL OR CCSystem = '') ORDER BY ClassCode, DivisionCode LIMIT 1"));
    if (!row.next())
        return {};
    return {row.value(0).toInt(), row.value(1).toInt(), row.value(2).toInt(), row.value(3).toInt()};
}

// A busy week for every class division, first free slot first, as a generator's last pass would leave it.
// The group under test stays out, and Monday's first period stays free for its teacher and class divisions.
int fillWeek(const QSqlDatabase &db, const SchoolCalendar &calendar, int ccGroup)
{
    QSet<QString> busy;
    QSqlQuery members = Sql(db).run(
        QStringLiteral("SELECT TeacherCode, ClassCode, DivisionCode FROM WorkAllotmentEntry WHERE CCGroupNo = ?"),
        {ccGroup});
    while (members.next()) {
        busy << QStringLiteral("t%1:1:1").arg(members.value(0).toInt());
        busy << QStringLiteral("c%1/%2:1:1").arg(members.value(1).toInt()).arg(members.value(2).toInt());
    }
    const QList<int> days = Placement::WeekDays(calendar);
    Transaction transaction(db);
    QSqlQuery rows = Sql(db).run(QStringLiteral(
        "SELECT TeacherCode, ClassCode, DivisionCode, SubjectCode, NoOfSectionPeriods FROM WorkAllotmentEntry "
        "WHERE CCGroupNo IS NULL OR CCGroupNo <> ? ORDER BY ClassCode, DivisionCode"), {ccGroup});
    int placed = 0;
    while (rows.next()) {
        const int teacher = rows.value(0).toInt(), classCode = rows.value(1).toInt(), division = rows.value(2).toInt();
        int remaining = rows.value(4).toInt();
        for (int day : days) {
            for (int period = 1; period <= calendar.periodsOn(day) && remaining > 0; ++period) {
                const QString t = QStringLiteral("t%1:%2:%3").arg(teacher).arg(day).arg(period);
                const QString c = QStringLiteral("c%1/%2:%3:%4").arg(classCode).arg(division).arg(day).arg(period);
                if (busy.contains(t) || busy.contains(c))
                    continue;
                busy << t << c;
                Sql(db).run(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, ?, ?, ?, '2', '', '', '')"),
                            {classCode, division, day, period, rows.value(3), teacher});
                --remaining;
                ++placed;
            }
        }
    }
    transaction.commit();
    return placed;
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values[values.size() / 2];
}

}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 20;

    QTemporaryDir folder;
    YesMessages messages;
    AppContext ctx;
    ctx.connectionName = QStringLiteral("bench");
    ctx.dataFolder = folder.path();
    ctx.messages = &messages;
    {
        const QSqlDatabase db = Store::open(StoreFile::Main, folder.path(), ctx.connectionName);
        SampleSchool::build(db, SampleSchool::Size::Large);
        ctx.session.calendar.load(db);
    }
    const Selection selection = combinedClassMainRow(ctx.db());
    if (selection.ccGroup == 0) {
        std::fprintf(stderr, "the large school has no combined class group\n");
        return 1;
    }
    const int filled = fillWeek(ctx.db(), ctx.session.calendar, selection.ccGroup);

    QList<double> placing, removing;
    {
        frmManualPeriodsEntry form(ctx);
        form.show();
        if (!QTest::qWaitForWindowExposed(&form))
            return 1;
        const auto pick = [&form](const char *name, int code) {
            auto *combo = form.findChild<QComboBox *>(QString::fromLatin1(name));
            combo->setCurrentIndex(combo->findData(code));
        };
        pick("cboClass", selection.classCode);
        pick("cboDivision", selection.division);
        pick("cboSubject", selection.subject);
        auto *teacher = form.findChild<QTableWidget *>(QStringLiteral("msgTeacher"));
        auto *classWeek = form.findChild<QTableWidget *>(QStringLiteral("msgClass"));
        const QPoint cell = teacher->visualRect(teacher->model()->index(0, 1)).center();

        QElapsedTimer timer;
        for (int round = 0; round < rounds; ++round) {
            for (QList<double> *times : {&placing, &removing}) {
                timer.start();
                QTest::mouseClick(teacher->viewport(), Qt::LeftButton, {}, cell);
                teacher->viewport()->repaint();
                classWeek->viewport()->repaint();
                times->append(timer.nsecsElapsed() / 1e6);
            }
            if (teacher->item(0, 1)->text().isEmpty() != true) {
                std::fprintf(stderr, "the removing click left the cell filled\n");
                return 1;
            }
        }
    }
    const int rows = Sql(ctx.db()).scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable")).toInt();
    Store::close(ctx.connectionName);

    std::printf("large school: %d TimeTable rows (%d filled first), %d rounds\n", rows, filled, rounds);
    std::printf("place a combined class group + redraw: median %.1f ms, max %.1f ms\n", median(placing),
                *std::max_element(placing.begin(), placing.end()));
    std::printf("remove it + redraw:                   median %.1f ms, max %.1f ms\n", median(removing),
                *std::max_element(removing.begin(), removing.end()));
    return 0;
}
