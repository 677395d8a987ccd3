// The watch over the connection and the silent reconnect.
#include "frame/watch.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/seams.h"
#include "platform/wininet.h"
#include "shared/mPublic.h"

namespace {
const QString kReconnectAgent = QStringLiteral("BRACKHAVEN Ferrydock 1");
}

void MdiMain::timIsConnected_Timer() {
    if (!GetServerDirectory().trimmed().isEmpty()) return;
    // Off before the box, so no second tick arrives behind it.
    timIsConnected->SetEnabled(false);
    if (MsgBox(GetLanguageText("CONNECTION_CANCEL1") + vbCrLf + GetLanguageText("CONNECTION_CANCEL2"), vbYesNo) ==
        vbYes)
        Reinitialize_Internet();
}

void Reinitialize_Internet() {
    // Kept: active again, whatever the passive box shows.
    hInternetReconnect = InternetOpenA(kReconnectAgent, 0, QString(), QString(), 0);
    lConnectFlags = 0;
    auto& frame = mdiMain();
    const QString server = frame.txtAddress->Text();
    const QString port = frame.txtPort->Text();
    const QString user = frame.txtUserID->Text();
    const QString password = frame.txtPassword->Text();
    if (ReopenConnection(server, port, user, password)) {
        // Kept: the passive box is read, and nothing hangs on it.
        (void)frame.chkPassiveTransfer->Value();
        FtpSetCurrentDirectoryA(hConnection, QStringLiteral("/"));
    } else {
        MsgBox(GetLanguageText("MPUB_NOCONN1") + vbCrLf + GetLanguageText("MPUB_NOCONN2") + vbCrLf +
                   GetLanguageText("MPUB_NOCONN3") + vbCrLf,
               vbExclamation);
        frame.txtAddress->SetFocus();
    }
}

bool ReopenConnection(const QString& sServer, const QString& sPort, const QString& sUser,
                      const QString& sPassword) {
    if (hConnection != 0) InternetCloseHandle(hConnection);
    hConnection = 0;
    if (const auto port = PortToInteger(sPort))
        hConnection = InternetConnectA(hInternetReconnect, sServer, *port, sUser, sPassword,
                                       INTERNET_SERVICE_FTP, lConnectFlags, 0);
    return hConnection != 0;
}
