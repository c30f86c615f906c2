// The completion against the generator's rules on random schools: for each seed a school of the next shape
// (long two-session days, subjects of one and of two periods a day, teachers near their free-period type's
// limit, combined groups of the three kinds) is generated and completed as `ttcli generate --complete` does,
// each completion bounded by its search steps, and the week is judged by the tests' own audit.
// Run by hand on the Release build: benchrulesafety [seeds] [steps]; 240 seeds and 3000 steps unless told.
// Goal: no break on any seed; the exit code is 2 when one has any.
#include "generationrun.h"
#include "randomschool.h"
#include "store.h"
#include "storeerror.h"
#include "weekaudit.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

struct Result
{
    double placed = 0;
    int open = 0;
    int moved = 0;
    int breaks = 0;       // found by the audit
    int engineBreaks = 0; // found by the program's own check after the last completion
    QString firstBreak;
};

Result runSeed(const RandomSchool::Shape &shape, quint32 seed, qint64 steps)
{
    QTemporaryDir folder;
    const QString connection = QStringLiteral("bench_%1").arg(seed);
    Result result;
    {
        const QSqlDatabase db = Store::open(StoreFile::Main, folder.path(), connection);
        RandomSchool::write(db, shape, seed);
        const GeneratedWeek week = GenerateAndComplete(db, steps);
        const QStringList breaks = WeekAudit::Breaks(db);
        result.placed = week.placedShare();
        result.open = week.phaseTwo.outcome.openAfter;
        result.moved = week.phaseOne.outcome.moved + week.phaseTwo.outcome.moved;
        result.breaks = int(breaks.size());
        result.engineBreaks = week.phaseTwo.breaksAfter;
        result.firstBreak = breaks.value(0);
    }
    Store::close(connection);
    return result;
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const QStringList args = app.arguments();
    const int seeds = args.size() > 1 ? args.at(1).toInt() : 240;
    const qint64 steps = args.size() > 2 ? args.at(2).toLongLong() : 3000;
    const QList<RandomSchool::Shape> shapes = RandomSchool::shapes();
    QElapsedTimer clock;
    clock.start();
    int withBreaks = 0, full = 0;
    double placedSum = 0;
    out << "seed  shape                        placed   open  moved  breaks (audit / check)\n";
    for (int seed = 1; seed <= seeds; ++seed) {
        const RandomSchool::Shape &shape = shapes[(seed - 1) % shapes.size()];
        Result r;
        try {
            r = runSeed(shape, quint32(seed), steps);
        } catch (const StoreError &error) {
            out << seed << "  " << shape.name << ": " << error.text() << '\n';
            ++withBreaks;
            continue;
        }
        placedSum += r.placed;
        full += r.open == 0 && r.placed >= 100.0;
        withBreaks += r.breaks > 0 || r.engineBreaks > 0;
        out << QString::number(seed).leftJustified(6) << QString::fromLatin1(shape.name).leftJustified(29)
            << (QString::number(r.placed, 'f', 1) + QLatin1Char('%')).rightJustified(6)
            << QString::number(r.open).rightJustified(7) << QString::number(r.moved).rightJustified(7)
            << QStringLiteral("%1 / %2").arg(r.breaks).arg(r.engineBreaks).rightJustified(10)
            << (r.firstBreak.isEmpty() ? QString() : QStringLiteral("  ") + r.firstBreak) << '\n';
        out.flush();
    }
    out << "\nseeds " << seeds << ", with a break " << withBreaks << ", complete weeks " << full << ", mean placed "
        << QString::number(seeds > 0 ? placedSum / seeds : 0, 'f', 2) << "%, "
        << QString::number(clock.elapsed() / 1000.0, 'f', 1) << " s\n";
    return withBreaks == 0 ? 0 : 2;
}
