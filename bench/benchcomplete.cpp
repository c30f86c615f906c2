// Measures how far the generator gets and how far the completion takes the week, on every sample school:
// placed share after `ttcli generate` and after `ttcli generate --complete`, the seconds of each whole process,
// the periods the completion moved, the rule breaks `ttcli check` finds, and peak memory.
// Run by hand: benchcomplete [path/to/ttcli]. Goals: 100% on every sample school, the large school's whole
// `generate --complete` under 1 s, under 100 MB, no rule break.
#include "toolrun.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

struct Figures
{
    ToolRun::Run run;
    int placed = 0;
    int total = 0;
    int moved = 0;
    int breaks = -1;
};

// Makes a fresh sample school, runs the tool's command over it and reads the summary lines it printed.
Figures measure(const QString &tool, const QString &size, const QStringList &command)
{
    Figures f;
    QTemporaryDir dir;
    const QString log = dir.filePath(QStringLiteral("out.txt"));
    const QStringList data = {QStringLiteral("--data"), dir.path()};
    if (ToolRun::runTool(tool, data + QStringList{QStringLiteral("sample"), QStringLiteral("--size"), size}, log).exitCode != 0)
        return f;
    f.run = ToolRun::runTool(tool, data + command, log);
    static const QRegularExpression placed(QStringLiteral("Periods placed: (\\d+) of (\\d+)"));
    static const QRegularExpression moved(QStringLiteral("(\\d+) periods moved"));
    if (const auto m = placed.match(f.run.output); m.hasMatch()) {
        f.placed = m.captured(1).toInt();
        f.total = m.captured(2).toInt();
    }
    for (auto it = moved.globalMatch(f.run.output); it.hasNext();)
        f.moved += it.next().captured(1).toInt();
    const ToolRun::Run check = ToolRun::runTool(tool, data + QStringList{QStringLiteral("check")}, log);
    static const QRegularExpression breaks(QStringLiteral("Rule breaks: (\\d+)"));
    if (const auto m = breaks.match(check.output); m.hasMatch())
        f.breaks = m.captured(1).toInt();
    return f;
}

QString share(const Figures &f)
{
    return f.total ? QString::number(100.0 * f.placed / f.total, 'f', 1) + QLatin1Char('%') : QStringLiteral("-");
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const QStringList args = app.arguments();
    const QString tool = args.size() > 1 ? args.at(1)
                                         : QDir(app.applicationDirPath()).filePath(QStringLiteral("../src/cli/ttcli"));
    bool met = true;
    out << "size    generate          generate --complete                       breaks  peak\n";
    for (const char *name : {"small", "medium", "large", "tight"}) {
        const QString size = QString::fromLatin1(name);
        const Figures plain = measure(tool, size, {QStringLiteral("generate")});
        const Figures complete = measure(tool, size, {QStringLiteral("generate"), QStringLiteral("--complete")});
        const long peakKb = qMax(plain.run.peakKb, complete.run.peakKb);
        const bool sizeMet = complete.total > 0 && complete.placed == complete.total && complete.breaks == 0
            && peakKb < 100 * 1024 && (size != QLatin1String("large") || complete.run.seconds < 1.0);
        met = met && sizeMet;
        out << size.leftJustified(8) << (share(plain) + QStringLiteral(" in ") + QString::number(plain.run.seconds, 'f', 2)
                                         + QStringLiteral(" s")).leftJustified(18)
            << (share(complete) + QStringLiteral(" in ") + QString::number(complete.run.seconds, 'f', 2)
                + QStringLiteral(" s, ") + QString::number(complete.moved) + QStringLiteral(" moved"))
                   .leftJustified(42)
            << QString::number(complete.breaks).leftJustified(8) << QString::number(peakKb / 1024.0, 'f', 1)
            << " MB" << (sizeMet ? "" : "  MISSED") << '\n';
    }
    return met ? 0 : 2;
}
