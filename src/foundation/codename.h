#pragma once
#include <QList>
#include <QString>

// A row of a drop-down list: the stored code and the name a user sees. Code 0 is the blank entry.
struct CodeName
{
    int code = 0;
    QString name;

    bool operator==(const CodeName &other) const = default;
};
