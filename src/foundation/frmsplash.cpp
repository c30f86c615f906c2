#include "frmsplash.h"
#include "apppaths.h"
#include "artwork.h"
#include "session.h"

#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

frmSplash::frmSplash(AppContext &ctx, QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), m_ctx(ctx)
{
    setObjectName(QStringLiteral("frmSplash"));
    auto *picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("imgSplash"));
    picture->setPixmap(Artwork::splash());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picture);
}

void frmSplash::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_started)
        return;
    m_started = true;
    AppPaths::makeFreshFolder(m_ctx.tempFolder);
    Artwork::exportPicture(Artwork::splash(), 1006, m_ctx.tempFolder);
    QTimer::singleShot(ShowMilliseconds, this, [this] {
        emit movieCommand(QStringLiteral("quit"), QStringLiteral("enter"));
    });
}

void frmSplash::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        emit movieCommand(QStringLiteral("quit"), QStringLiteral("true"));
    else
        QWidget::keyPressEvent(event);
}
