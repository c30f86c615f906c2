#pragma once
#include "messageservice.h"

#include <QList>
#include <QString>
#include <QStringList>

// The test double of the message service: a test queues the boxes it expects, in order, with the answers
// to give; a box that was not expected, or one with another text, is recorded as a failure.
class ScriptedMessages : public MessageService
{
public:
    enum class Kind { Information, Critical, Question, OkCancel };

    struct Box
    {
        Kind kind;
        QString title;
        QString text;
    };

    ScriptedMessages &expectInformation(const QString &text); // empty: any text
    ScriptedMessages &expectCritical(const QString &text = {}); // empty: any text
    ScriptedMessages &expectQuestion(const QString &text, bool answer); // empty: any text
    ScriptedMessages &expectOkCancel(const QString &text, bool answer);

    void information(const QString &text, const QString &title) override;
    void critical(const QString &text, const QString &title) override;
    bool question(const QString &text, const QString &title) override;
    bool okCancel(const QString &text, const QString &title) override;

    // Every expected box was shown and nothing else: use as QVERIFY2(m.done(), m.report()).
    bool done() const { return m_expected.isEmpty() && m_failures.isEmpty(); }
    QByteArray report() const;
    const QList<Box> &shown() const { return m_shown; }
    void reset();

private:
    struct Expected
    {
        Kind kind;
        QString text;
        bool answer;
    };
    bool take(Kind kind, const QString &text, const QString &title);

    QList<Expected> m_expected;
    QList<Box> m_shown;
    QStringList m_failures;
};
