// Geometry units: the logic measures in twips, 15 to the pixel.
#pragma once

constexpr int kTwipsPerPixel = 15;
constexpr int ToPixels(int twips) { return twips / kTwipsPerPixel; }
constexpr int ToTwips(int pixels) { return pixels * kTwipsPerPixel; }
