#include "serverops/nameBox.h"

#include "platform/controls/twips.h"
#include "platform/seams.h"

QString AskServerName(const QString& prompt, const QString& defaultText) {
    const int lLeft = HalfTwips(ScreenWidth()) - 1000;
    const int lTop = HalfTwips(ScreenHeight()) - 1500;
    return InputBox(prompt, QString(), defaultText, lLeft, lTop);
}
