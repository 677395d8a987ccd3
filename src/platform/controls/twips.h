// Geometry units: the logic measures in twips, 15 to the pixel, and places
// controls by assigning Left, Top, Width and Height one at a time.
#pragma once

class QWidget;

constexpr int kTwipsPerPixel = 15;
constexpr int ToPixels(int twips) { return twips / kTwipsPerPixel; }
constexpr int ToTwips(int pixels) { return pixels * kTwipsPerPixel; }

// Screen.Width and Screen.Height: the primary screen's size in twips, 0
// without a screen.
int ScreenWidth();
int ScreenHeight();
// Half a length in twips, converted to an integer the way the program's
// integer conversions round (halves to even).
int HalfTwips(int twips);

namespace controls {

// A control's place and outer size in twips; 0 for no control.
int LeftOf(const QWidget* w);
int TopOf(const QWidget* w);
int WidthOf(const QWidget* w);
int HeightOf(const QWidget* w);

// Each assignment stands alone: a negative width or height is refused and
// leaves the old value, and the other assignments still take effect.
bool SetLeftOf(QWidget* w, int twips);
bool SetTopOf(QWidget* w, int twips);
bool SetWidthOf(QWidget* w, int twips);
bool SetHeightOf(QWidget* w, int twips);
// Left, Top, Width and Height in this order; false when any was refused.
bool PlaceTwips(QWidget* w, int left, int top, int width, int height);

}  // namespace controls
