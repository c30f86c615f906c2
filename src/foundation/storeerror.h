#pragma once
#include <QString>
#include <stdexcept>

// A statement the store refused. Carries the driver's own text, which is what the user is shown.
class StoreError : public std::runtime_error
{
public:
    explicit StoreError(const QString &text)
        : std::runtime_error(text.toStdString()), m_text(text) {}
    const QString &text() const { return m_text; }

private:
    QString m_text;
};

// A store file that is not one this program can use (empty, foreign, damaged, newer). Nothing was written.
class UnusableStore : public StoreError
{
public:
    using StoreError::StoreError;
};

// Another run or user holds the store for writing, and went on holding it past the wait.
class StoreBusy : public StoreError
{
public:
    using StoreError::StoreError;
    static QString busyText()
    {
        return QStringLiteral("The School Is Being Changed By Another Run Or User. Nothing Was Changed Here: "
                              "Please Try Again When It Has Finished");
    }
};
