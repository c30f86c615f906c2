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

// Looks the (already trimmed) pair up: login ids compare without case, the password exactly against its
// stored hash. A login whose user is gone from UserMaster finds nothing. StoreError on a store failure.
LoginResult checkLogin(const QSqlDatabase &db, const QString &loginId, const QString &password);
// True when the pair is the login of `userCode` (the lock screen's check of the user at the keyboard); a
// session begun while no login existed (`userCode` 0) takes any valid login.
bool isLoginOf(const QSqlDatabase &db, int userCode, const QString &loginId, const QString &password);
