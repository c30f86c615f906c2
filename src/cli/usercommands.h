#pragma once
#include <QSqlDatabase>
#include <QStringList>
#include <QTextStream>

// `ttcli user add NAME --login ID [--all-privileges]` (the password read from standard input) and
// `ttcli user list`: the same checks and hashing as the User Master and User Privileges screens.
// Returns the exit code: 0 done, 2 refused or bad usage.
int runUserCommand(const QSqlDatabase &db, const QStringList &args, const QString &loginId, bool allPrivileges,
                   QTextStream &in, QTextStream &out, QTextStream &err);
