#pragma once
#include <QSqlDatabase>
#include <QString>

// The login rules of the start screen: the first login of a new school, a known pair, a blocked user.
struct LoginResult
{
    enum class Outcome {
        NoLoginsYet, // no login exists: any pair is let in, to create the first user
        Accepted,
        WrongPair,
        Blocked,
    };
    Outcome outcome = Outcome::WrongPair;
    int userCode = 0;
    QString userName;
};

// Looks the (already trimmed) pair up; StoreError on a store failure.
LoginResult checkLogin(const QSqlDatabase &db, const QString &loginId, const QString &password);
