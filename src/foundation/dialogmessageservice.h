#pragma once
#include "messageservice.h"

// The desktop's message boxes, shown over the active window.
class DialogMessageService : public MessageService
{
public:
    void information(const QString &text, const QString &title) override;
    void critical(const QString &text, const QString &title) override;
    bool question(const QString &text, const QString &title) override;
    bool okCancel(const QString &text, const QString &title) override;
};
