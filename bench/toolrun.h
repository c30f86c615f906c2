#pragma once
// Runs the headless tool as a child process for the benchmarks: wall time, the child's own peak memory, its
// exit code and what it printed.
#include <QElapsedTimer>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace ToolRun {

struct Run
{
    double seconds = 0;
    long peakKb = 0;
    QString output;
    int exitCode = -1;
};

// fork/exec so that wait4 gives this one child's peak memory.
inline Run runTool(const QString &tool, const QStringList &args, const QString &logFile)
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

