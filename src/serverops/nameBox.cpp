#include "serverops/nameBox.h"

#include "platform/controls/twips.h"
#include "platform/seams.h"

#include <cmath>

namespace {
// Half the screen, rounded as the program's integers round.
int Half(int twips) {
    return int(std::nearbyint(twips / 2.0));
}
}  // namespace

QString AskServerName(const QString& prompt, const QString& defaultText) {
    const int lLeft = Half(ScreenWidth()) - 1000;
    const int lTop = Half(ScreenHeight()) - 1500;
    return InputBox(prompt, QString(), defaultText, lLeft, lTop);
}
