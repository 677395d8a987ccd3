// Opening the one FTP connection from the connection bar: the full connect
// (menu, F4, toolbar) and the quick connect (Return in the password box).
#include "shared/mPublic.h"
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "platform/seams.h"
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "server/serverRefresh.h"

namespace {
const QString kAgent = QStringLiteral("brackhaven laboratories Ferrydock 1");

controls::RichLog& Log() {
    return *frmTransferHistory().rtfTransferHistory;
}
}  // namespace

void MdiMain::Initialize_Internet() {
    hInternet = InternetOpenA(kAgent, 0, QString(), QString(), 0);
    lConnectFlags = 0;
    hMainConnection = 0;
}

bool MdiMain::OpenConnection(const QString& sServer, const QString& sPort, const QString& sUser,
                             const QString& sPassword) {
    // Both connect sequences have just cleared hMainConnection, so the live
    // connection is left open beside the new one.
    if (hMainConnection != 0) InternetCloseHandle(hMainConnection);
    // A port that doesn't convert skips the assignment: the connect fails
    // like an unreachable server.
    if (const auto port = PortToInteger(sPort))
        hMainConnection = InternetConnectA(hInternet, sServer, *port, sUser, sPassword, INTERNET_SERVICE_FTP,
                                           lConnectFlags, 0);
    if (hMainConnection != 0) {
        hConnection = hMainConnection;
        timIsConnected->SetEnabled(true);
        return true;
    }
    hConnection = 0;
    return false;
}

void MdiMain::mnuVerbindungVerbinden_Click() {
    if (txtAddress->Text().trimmed().isEmpty()) {
        MsgBox(GetLanguageText("ENTER_ADRESS"), vbCritical);
        txtAddress->SetFocus();
        return;
    }
    if (txtPort->Text().trimmed().isEmpty()) {
        MsgBox(GetLanguageText("ENTER_PORT"), vbCritical);
        txtPort->SetFocus();
        return;
    }
    SetMousePointer(vbHourglass);
    txtAddress->SetEnabled(false);
    txtUserID->SetEnabled(false);
    txtPassword->SetEnabled(false);
    txtPort->SetEnabled(false);
    Log().SetText(QString());
    frmServer().lsvServer->Clear();

    MoveLogCaretToEnd();
    Log().SetSelColor(kBlack);
    Log().SetSelText(GetLanguageText("CONNECT_WITH") + u' ' + txtAddress->Text() + QStringLiteral(" ...") + vbCrLf);
    DoEvents();

    Initialize_Internet();
    if (OpenConnection(txtAddress->Text(), txtPort->Text(), txtUserID->Text(), txtPassword->Text())) {
        FtpSetCurrentDirectoryA(hConnection, QStringLiteral("/"));
        // Colour before the caret move: the move takes the colour of the
        // text before the caret, as it always has here.
        Log().SetSelColor(kGreen);
        MoveLogCaretToEnd();
        Log().SetSelText(GetLanguageText("CONNECTION_TO") + u' ' + txtAddress->Text() + u' ' +
                         GetLanguageText("ESTABLSHED") + vbCrLf);
        Log().SetSelColor(kBlack);
        RefreshServer(hConnection);
    } else {
        Log().SetSelColor(kRed);
        MoveLogCaretToEnd();
        Log().SetSelText(GetLanguageText("NOT_ESTABLISHED") + vbCrLf);
        Log().SetSelColor(kBlack);
        MsgBox(GetLanguageText("NOT_ESTABLISHED") + vbCrLf + GetLanguageText("SPELLING") + vbCrLf +
                   GetLanguageText("PROVIDER"),
               vbExclamation);
    }
    SetMousePointer(vbDefault);
}

void MdiMain::QuickConnect() {
    if (txtAddress->Text().trimmed().isEmpty()) {
        MsgBox(GetLanguageText("ENTER_HOST"), vbInformation);
        txtAddress->SetFocus();
        return;
    }
    SetMousePointer(vbHourglass);
    txtAddress->SetEnabled(false);
    txtUserID->SetEnabled(false);
    txtPassword->SetEnabled(false);
    Log().SetText(QString());
    frmServer().lsvServer->Clear();

    Initialize_Internet();
    if (OpenConnection(txtAddress->Text(), txtPort->Text(), txtUserID->Text(), txtPassword->Text())) {
        FtpSetCurrentDirectoryA(hConnection, QStringLiteral("/"));
        MoveLogCaretToEnd();
        Log().SetSelColor(kBlack);
        Log().SetSelText(GetLanguageText("CONNECT_WITH") + u' ' + txtAddress->Text() + QStringLiteral(" ...") + vbCrLf);
        AppendLogLine(kGreen, GetLanguageText("CONNECTION_WITH") + u' ' + txtAddress->Text() + u' ' +
                                  GetLanguageText("WAS_ESTABLISHT"));
        RefreshServer(hConnection);
    } else {
        MsgBox(GetLanguageText("NO_CONNECTION") + vbCrLf + GetLanguageText("CHECK_PROVIDER"), vbExclamation);
    }
    SetMousePointer(vbDefault);
    txtAddress->SetEnabled(true);
    txtUserID->SetEnabled(true);
    txtPassword->SetEnabled(true);
}

void MdiMain::tlbConnect_ButtonClick(const QString& key) {
    if (key == u"connect")
        mnuVerbindungVerbinden_Click();
    else if (key == u"ascii")
        mnuVerbindungASCIIListe_Click();
    txtAddress->SetEnabled(true);
    txtUserID->SetEnabled(true);
    txtPassword->SetEnabled(true);
    txtPort->SetEnabled(true);
}

void MdiMain::chkPassiveTransfer_Click() {
    if (chkPassiveTransfer->Value() == 0) {
        lConnectFlags = 0;
        MoveLogCaretToEnd();
        Log().SetSelColor(kBlue);
        Log().SetSelText(GetLanguageText("PASSIVE_TRANSER_OFF") + vbCrLf);
    } else {
        lConnectFlags = INTERNET_FLAG_PASSIVE;
        // No caret move on this side: the line lands where the caret stands.
        Log().SetSelColor(kBlue);
        Log().SetSelText(GetLanguageText("PASSIVE_TRANSER_ON") + vbCrLf);
    }
    Log().SetSelColor(kBlack);
}
