#pragma once
#include <QObject>
#include <QString>
#include <QTest>

#include <source_location>

// The named control of a screen under test. A name the screen does not have fails the current test at the
// caller's line and gives nullptr; the caller stops there (FIND_OR_FAIL) and the other tests still run.
template<typename T>
T *findControl(const QObject *screen, const QString &name, std::source_location where = std::source_location::current())
{
    T *found = screen ? screen->findChild<T *>(name) : nullptr;
    if (!found)
        QTest::qFail(qPrintable(QStringLiteral("no control %1").arg(name)), where.file_name(), int(where.line()));
    return found;
}

template<typename T>
T *findControl(const QObject *screen, const char *name, std::source_location where = std::source_location::current())
{
    return findControl<T>(screen, QString::fromLatin1(name), where);
}

// Binds `var` to `lookup`, a control lookup that has failed the test when it gives nullptr, and then returns from
// the calling function: with nothing, or with the value given after the lookup.
#define FIND_OR_FAIL(var, lookup, ...) \
    auto *const var = (lookup);        \
    if (!var)                          \
        return __VA_ARGS__
