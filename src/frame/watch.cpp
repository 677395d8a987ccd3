// The watch over the connection: a poll a second, and the question when the
// poll gets no answer.
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/seams.h"
#include "shared/mPublic.h"

void MdiMain::timIsConnected_Timer() {
    if (!GetServerDirectory().trimmed().isEmpty()) return;
    // Off before the box, so no second tick arrives behind it.
    timIsConnected->SetEnabled(false);
    if (MsgBox(GetLanguageText("CONNECTION_CANCEL1") + vbCrLf + GetLanguageText("CONNECTION_CANCEL2"), vbYesNo) ==
        vbYes)
        Reinitialize_Internet();
}
