#pragma once
#include "referencemasterservice.h"

// The user master: one name per user, with the code of the user who made the row.
const ReferenceKind &userKind();

struct NewUserResult
{
    bool saved = false;
    QString message; // the refusal, when not saved
    int userCode = 0;
};

// A user and his or her login made together, or neither, through the rules of the User Master and User
// Privileges screens; `allPrivileges` checks the whole privilege tree, else none of it.
NewUserResult addUserWithLogin(const QSqlDatabase &db, const QString &name, const QString &loginId,
                               const QString &password, bool allPrivileges);
