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
