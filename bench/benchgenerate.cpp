// Times `ttcli generate` on the sample schools, as a whole process: start-up, every phase and every write.
// Run by hand: benchgenerate [path/to/ttcli]. Targets: large under 0.3 s, medium under 0.1 s, under 100 MB.
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Run
{
    double seconds = 0;
    long peakKb = 0;
    QString output;
    int exitCode = -1;
};

// fork/exec so that wait4 gives this one child's peak memory.
Run runTool(const QString &tool, const QStringList &args, const QString &logFile)
{
    Run run;
    QElapsedTimer clock;
    clock.start();
    const pid_t child = fork();
    if (child == 0) {
        const QByteArray log = QFile::encodeName(logFile);
        if (!freopen(log.constData(), "w", stdout))
            _exit(127);
        QList<QByteArray> storage{QFile::encodeName(tool)};
        for (const QString &a : args)
            storage << a.toLocal8Bit();
        std::vector<char *> argv;
        for (QByteArray &s : storage)
            argv.push_back(s.data());
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    run.seconds = clock.nsecsElapsed() / 1e9;
    run.peakKb = usage.ru_maxrss;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    QFile file(logFile);
    if (file.open(QIODevice::ReadOnly))
        run.output = QString::fromLocal8Bit(file.readAll());
    return run;
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const QString tool = app.arguments().size() > 1
        ? app.arguments().at(1) : QDir(app.applicationDirPath()).filePath(QStringLiteral("../src/cli/ttcli"));
    for (const char *size : {"small", "medium", "large"}) {
        QTemporaryDir dir;
        const QString log = dir.filePath(QStringLiteral("out.txt"));
        const Run sample = runTool(tool, {QStringLiteral("--data"), dir.path(), QStringLiteral("sample"),
                                          QStringLiteral("--size"), QString::fromLatin1(size)}, log);
        if (sample.exitCode != 0) {
            out << size << ": sample failed\n";
            return 1;
        }
        const Run run = runTool(tool, {QStringLiteral("--data"), dir.path(), QStringLiteral("generate")}, log);
        out << "== " << size << ": " << QString::number(run.seconds, 'f', 3) << " s wall, peak "
            << QString::number(run.peakKb / 1024.0, 'f', 1) << " MB, exit " << run.exitCode << '\n';
        for (const QString &line : run.output.split(QLatin1Char('\n')))
            if (line.startsWith(QLatin1String("Phase")) || line.startsWith(QLatin1String("Fix Balance Periods "))
                || line.startsWith(QLatin1String("Periods placed")))
                out << "   " << line << '\n';
    }
    return 0;
}
