#pragma once
#include <QObject>
#include <QString>
#include <QtGlobal>

// The named control of a screen under test. A name the screen does not have ends the test run with that name,
// since every later step would fail for the same reason.
template<typename T>
T *findControl(const QObject *screen, const QString &name)
{
    T *found = screen->findChild<T *>(name);
    if (!found)
        qFatal("no control %s", qPrintable(name));
    return found;
}

template<typename T>
T *findControl(const QObject *screen, const char *name)
{
    return findControl<T>(screen, QString::fromLatin1(name));
}
