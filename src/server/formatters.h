// Text forms of listing rows: size, date and attribute letters.
#pragma once

#include "platform/wintypes.h"

#include <QString>

// Kilobytes of the signed low word, halves to even, 0 shown as 1: "12 KB".
QString FormatSizeKB(int32_t lFileSizeLow);
// "DD.MM.YYYY HH:MM", as the time was given; no seconds.
QString FormatServerDate(const SYSTEMTIME& tSystemTime);
// Letters T R H S D N C A for the bits set, in that order.
QString FormatAttributes(uint32_t lAttributes);
