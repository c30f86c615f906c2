// Times `ttcli generate` on the sample schools, as a whole process: start-up, every phase and every write.
// Run by hand: benchgenerate [path/to/ttcli] [runs]. Each size runs `runs` times (5 unless told) on a fresh
// sample; the median run is reported, since other work on the machine only ever adds to a time.
// Targets: large under 0.3 s, medium under 0.1 s, under 100 MB.
#include "toolrun.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>


int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const QStringList args = app.arguments();
    const QString tool = args.size() > 1 ? args.at(1)
                                         : QDir(app.applicationDirPath()).filePath(QStringLiteral("../src/cli/ttcli"));
    const int runs = args.size() > 2 ? qMax(1, args.at(2).toInt()) : 5;
    const struct
    {
        const char *size;
        double target; // seconds; 0: none
    } sizes[] = {{"small", 0}, {"medium", 0.1}, {"large", 0.3}};
    bool met = true;
    for (const auto &[size, target] : sizes) {
        QList<ToolRun::Run> timed;
        for (int i = 0; i < runs; ++i) {
            QTemporaryDir dir;
            const QString log = dir.filePath(QStringLiteral("out.txt"));
            const ToolRun::Run sample = ToolRun::runTool(tool, {QStringLiteral("--data"), dir.path(), QStringLiteral("sample"),
                                              QStringLiteral("--size"), QString::fromLatin1(size)}, log);
            if (sample.exitCode != 0) {
                out << size << ": sample failed\n";
                return 1;
            }
            timed << ToolRun::runTool(tool, {QStringLiteral("--data"), dir.path(), QStringLiteral("generate")}, log);
        }
        std::sort(timed.begin(), timed.end(), [](const ToolRun::Run &a, const ToolRun::Run &b) { return a.seconds < b.seconds; });
        const ToolRun::Run &median = timed.at(timed.size() / 2);
        long peakKb = 0;
        for (const ToolRun::Run &run : std::as_const(timed))
            peakKb = qMax(peakKb, run.peakKb);
        const bool sizeMet = (target == 0 || median.seconds < target) && peakKb < 100 * 1024 && median.exitCode <= 1; // 1: periods stay open, as on some sample schools
        met = met && sizeMet;
        out << "== " << size << ": " << QString::number(median.seconds, 'f', 3) << " s wall (median of " << runs
            << ", fastest " << QString::number(timed.first().seconds, 'f', 3) << " s), peak "
            << QString::number(peakKb / 1024.0, 'f', 1) << " MB, exit " << median.exitCode;
        if (target > 0)
            out << ", target " << target << " s " << (sizeMet ? "met" : "MISSED");
        out << '\n';
        for (const QString &line : median.output.split(QLatin1Char('\n')))
            if (line.startsWith(QLatin1String("Phase")) || line.startsWith(QLatin1String("Fix Balance Periods "))
                || line.startsWith(QLatin1String("Periods placed")))
                out << "   " << line << '\n';
    }
    return met ? 0 : 2;
}
