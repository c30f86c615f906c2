#include "scriptedmessages.h"

namespace {
const char *kindName(ScriptedMessages::Kind kind)
{
    switch (kind) {
    case ScriptedMessages::Kind::Information:
        return "information";
    case ScriptedMessages::Kind::Critical:
        return "critical";
    case ScriptedMessages::Kind::Question:
        return "question";
    case ScriptedMessages::Kind::OkCancel:
        return "ok/cancel";
    }
    return "?";
}
}

ScriptedMessages &ScriptedMessages::expectInformation(const QString &text)
{
    m_expected.append({Kind::Information, text, true});
    return *this;
}

ScriptedMessages &ScriptedMessages::expectCritical(const QString &text)
{
    m_expected.append({Kind::Critical, text, true});
    return *this;
}

ScriptedMessages &ScriptedMessages::expectQuestion(const QString &text, bool answer)
{
    m_expected.append({Kind::Question, text, answer});
    return *this;
}

ScriptedMessages &ScriptedMessages::expectOkCancel(const QString &text, bool answer)
{
    m_expected.append({Kind::OkCancel, text, answer});
    return *this;
}

bool ScriptedMessages::take(Kind kind, const QString &text, const QString &title)
{
    m_shown.append({kind, title, text});
    if (m_expected.isEmpty()) {
        m_failures << QStringLiteral("unexpected %1 box: \"%2\"").arg(QLatin1String(kindName(kind)), text);
        return false;
    }
    const Expected next = m_expected.takeFirst();
    const bool anyText = next.text.isEmpty();
    if (next.kind != kind || (!anyText && next.text != text)) {
        m_failures << QStringLiteral("expected %1 \"%2\", got %3 \"%4\"")
                          .arg(QLatin1String(kindName(next.kind)), next.text, QLatin1String(kindName(kind)), text);
        return false;
    }
    return next.answer;
}

void ScriptedMessages::information(const QString &text, const QString &title)
{
    take(Kind::Information, text, title);
}

void ScriptedMessages::critical(const QString &text, const QString &title)
{
    take(Kind::Critical, text, title);
}

bool ScriptedMessages::question(const QString &text, const QString &title)
{
    return take(Kind::Question, text, title);
}

bool ScriptedMessages::okCancel(const QString &text, const QString &title)
{
    return take(Kind::OkCancel, text, title);
}

QByteArray ScriptedMessages::report() const
{
    QStringList lines = m_failures;
    for (const Expected &missing : m_expected)
        lines << QStringLiteral("expected %1 \"%2\" was never shown")
                     .arg(QLatin1String(kindName(missing.kind)), missing.text);
    return lines.join(QLatin1Char('\n')).toUtf8();
}

void ScriptedMessages::reset()
{
    m_expected.clear();
    m_shown.clear();
    m_failures.clear();
}
