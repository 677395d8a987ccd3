#include "platform/controls/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

int ScreenWidth() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? ToTwips(screen->geometry().width()) : 0;
}

int ScreenHeight() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? ToTwips(screen->geometry().height()) : 0;
}

int HalfTwips(int twips) {
    return static_cast<int>(std::nearbyint(twips / 2.0));
}

namespace controls {

int LeftOf(const QWidget* w) { return w ? ToTwips(w->x()) : 0; }
int TopOf(const QWidget* w) { return w ? ToTwips(w->y()) : 0; }
int WidthOf(const QWidget* w) { return w ? ToTwips(w->width()) : 0; }
int HeightOf(const QWidget* w) { return w ? ToTwips(w->height()) : 0; }

bool SetLeftOf(QWidget* w, int twips) {
    if (!w) return false;
    w->move(ToPixels(twips), w->y());
    return true;
}

bool SetTopOf(QWidget* w, int twips) {
    if (!w) return false;
    w->move(w->x(), ToPixels(twips));
    return true;
}

bool SetWidthOf(QWidget* w, int twips) {
    if (!w || twips < 0) return false;
    w->resize(ToPixels(twips), w->height());
    return true;
}

bool SetHeightOf(QWidget* w, int twips) {
    if (!w || twips < 0) return false;
    w->resize(w->width(), ToPixels(twips));
    return true;
}

bool PlaceTwips(QWidget* w, int left, int top, int width, int height) {
    const bool l = SetLeftOf(w, left);
    const bool t = SetTopOf(w, top);
    const bool wi = SetWidthOf(w, width);
    const bool h = SetHeightOf(w, height);
    return l && t && wi && h;
}

}  // namespace controls
