#include "artwork.h"

#include <QDir>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {
const QColor Plum(244, 234, 244); // the main window's back colour
const QColor Ink(74, 52, 96);
const QColor Accent(151, 108, 176);

// A week grid in soft lines: five days of eight periods, a few of them filled.
void drawWeek(QPainter &painter, const QRectF &area, qreal opacity)
{
    painter.save();
    painter.setOpacity(opacity);
    const int days = 5;
    const int periods = 8;
    const qreal cellW = area.width() / periods;
    const qreal cellH = area.height() / days;
    static const int filled[days][periods] = {{1, 1, 0, 1, 1, 0, 1, 1}, {0, 1, 1, 1, 0, 1, 1, 0},
                                              {1, 0, 1, 1, 1, 1, 0, 1}, {1, 1, 1, 0, 1, 0, 1, 1},
                                              {0, 1, 1, 1, 1, 1, 0, 0}};
    for (int d = 0; d < days; ++d) {
        for (int p = 0; p < periods; ++p) {
            const QRectF cell(area.left() + p * cellW + 3, area.top() + d * cellH + 3, cellW - 6, cellH - 6);
            QPainterPath path;
            path.addRoundedRect(cell, 6, 6);
            painter.fillPath(path, filled[d][p] ? Accent.lighter(130 + 10 * ((d + p) % 3)) : QColor(255, 255, 255));
            painter.setPen(QPen(Accent.lighter(150), 1));
            painter.drawPath(path);
        }
    }
    painter.restore();
}

void drawTitle(QPainter &painter, const QRectF &area, int pointSize, const QString &subtitle)
{
    QFont title(QStringLiteral("Sans Serif"), pointSize, QFont::Bold);
    painter.setFont(title);
    painter.setPen(Ink);
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignTop, QStringLiteral("Zarlo-TimeTable"));
    QFont small(QStringLiteral("Sans Serif"), qMax(8, pointSize / 3));
    painter.setFont(small);
    painter.setPen(Ink.lighter(140));
    painter.drawText(area.adjusted(0, pointSize * 2.2, 0, 0), Qt::AlignHCenter | Qt::AlignTop, subtitle);
}
}

namespace Artwork {

QPixmap background(Background kind, const QSize &size, bool smallScreen)
{
    QPixmap picture(size.expandedTo(QSize(64, 64)));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient wash(0, 0, 0, picture.height());
    wash.setColorAt(0, Plum.lighter(103));
    wash.setColorAt(1, Plum.darker(104));
    painter.fillRect(picture.rect(), wash);

    const qreal scale = smallScreen ? 0.75 : 1.0;
    const QRectF grid(picture.width() * 0.18, picture.height() * 0.38, picture.width() * 0.64,
                      picture.height() * 0.42);
    // With a screen open the picture steps back so that the screen stands out.
    drawWeek(painter, grid, kind == Background::NoChild ? 0.55 : 0.18);
    if (kind == Background::NoChild)
        drawTitle(painter, QRectF(0, picture.height() * 0.12, picture.width(), picture.height() * 0.25),
                  int(36 * scale), QStringLiteral("The school's week, built and kept"));
    return picture;
}

QPixmap splash()
{
    QPixmap picture(560, 320);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient wash(0, 0, picture.width(), picture.height());
    wash.setColorAt(0, Plum.lighter(104));
    wash.setColorAt(1, Accent.lighter(160));
    painter.fillRect(picture.rect(), wash);
    drawWeek(painter, QRectF(70, 150, 420, 140), 0.7);
    drawTitle(painter, QRectF(0, 30, picture.width(), 110), 30, QStringLiteral("Loading the school's week ..."));
    return picture;
}

QPixmap lockPicture()
{
    QPixmap picture(244, 133);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient wash(0, 0, 0, picture.height());
    wash.setColorAt(0, Accent.lighter(150));
    wash.setColorAt(1, Accent);
    painter.fillRect(picture.rect(), wash);
    // A padlock.
    painter.setPen(QPen(Qt::white, 5));
    painter.drawArc(QRectF(27, 26, 34, 38), 0, 180 * 16);
    painter.fillRect(QRectF(20, 46, 48, 40), Qt::white);
    painter.setPen(Ink);
    painter.setFont(QFont(QStringLiteral("Sans Serif"), 12, QFont::Bold));
    painter.drawText(QRectF(80, 30, 150, 30), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Locked"));
    painter.setFont(QFont(QStringLiteral("Sans Serif"), 9));
    painter.drawText(QRectF(80, 58, 155, 50), Qt::AlignLeft | Qt::TextWordWrap,
                     QStringLiteral("Press F10 To Unlock\nPress Esc To Close"));
    return picture;
}

bool isSmallScreen(const QSize &screenSize)
{
    // 11000 to 12500 by 8500 to 9500 twips, at 15 twips a pixel.
    return screenSize.width() >= 733 && screenSize.width() < 833 && screenSize.height() >= 567
        && screenSize.height() < 633;
}

QString exportPicture(const QPixmap &picture, int resourceNo, const QString &tempFolder)
{
    const QString path = QDir(tempFolder).filePath(QString::number(resourceNo) + QStringLiteral(".png"));
    return picture.save(path) ? path : QString();
}

}
