// The silent reconnect: a routine step of the walks and the watch's answer
// to a lost connection.
#include "language/mDataBase.h"
#include "platform/seams.h"
#include "platform/wininet.h"
#include "shared/frameControls.h"
#include "shared/mPublic.h"

namespace {
const QString kReconnectAgent = QStringLiteral("BRACKHAVEN Ferrydock 1");

QString TextOf(const controls::TextBox* box) {
    return box ? box->Text() : QString();
}
}  // namespace

void Reinitialize_Internet() {
    // Kept: active again, whatever the passive box shows.
    hInternetReconnect = InternetOpenA(kReconnectAgent, 0, QString(), QString(), 0);
    lConnectFlags = 0;
    // The bar's texts as they stand now, not those of the last connect.
    const FrameControls& bar = Frame();
    const QString server = TextOf(bar.txtAddress);
    const QString port = TextOf(bar.txtPort);
    const QString user = TextOf(bar.txtUserID);
    const QString password = TextOf(bar.txtPassword);
    if (ReopenConnection(server, port, user, password)) {
        // Kept: the passive box is read, and nothing hangs on it.
        if (bar.chkPassiveTransfer) (void)bar.chkPassiveTransfer->Value();
        FtpSetCurrentDirectoryA(hConnection, QStringLiteral("/"));
    } else {
        MsgBox(GetLanguageText("MPUB_NOCONN1") + vbCrLf + GetLanguageText("MPUB_NOCONN2") + vbCrLf +
                   GetLanguageText("MPUB_NOCONN3") + vbCrLf,
               vbExclamation);
        if (bar.txtAddress) bar.txtAddress->SetFocus();
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
