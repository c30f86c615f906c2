#pragma once
#include <QPixmap>
#include <QSize>

// The program's own pictures, drawn in code so that they fit any screen: the main window's background
// (without and with a child screen open), the splash, the About Us picture and the lock picture.
namespace Artwork {
enum class Background { NoChild, ChildOpen };

QPixmap background(Background kind, const QSize &size, bool smallScreen);
QPixmap splash();
QPixmap lockPicture();
// True for the small screens (about 800 x 600) that get the compact background.
bool isSmallScreen(const QSize &screenSize);
// Writes a picture into the temp folder under its resource number ("1001.png"), as the program's other
// copies expect to find it there; returns the file's path, or empty when it cannot be written.
QString exportPicture(const QPixmap &picture, int resourceNo, const QString &tempFolder);
}
