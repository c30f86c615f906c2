#pragma once
#include "frmpendingperiods.h"
#include "session.h"

#include <QApplication>
#include <QStringList>

// Stands in for the main window: records every screen asked for and opens the pending window as a window
// of its own, one at a time, deleted when it closes.
class PendingHost : public ScreenHost
{
public:
    explicit PendingHost(AppContext &ctx) : m_ctx(ctx) {}

    void openScreen(const QString &formName) override
    {
        opened << formName;
        if (formName != QLatin1String("frmPendingPeriods") || window())
            return;
        auto *pending = new frmPendingPeriods(m_ctx);
        pending->setAttribute(Qt::WA_DeleteOnClose);
        pending->show();
    }

    // The open pending window, if any.
    static frmPendingPeriods *window()
    {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *pending = qobject_cast<frmPendingPeriods *>(widget); pending && pending->isVisible())
                return pending;
        return nullptr;
    }

    QStringList opened;

private:
    AppContext &m_ctx;
};
