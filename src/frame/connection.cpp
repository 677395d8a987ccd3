// Opening the one FTP connection from the connection bar: the full connect
// (menu, F4, toolbar) and the quick connect (Return in the password box).
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "platform/seams.h"
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "server/serverRefresh.h"
#include "shared/mPublic.h"

namespace {
const QString kAgent = QStringLiteral("brackhaven laboratories Ferrydock 1");

controls::RichLog& Log() {
    return *frmTransferHistory().rtfTransferHistory;
}
}  // namespace

void MdiMain::Initialize_Internet() {
    // Kept: the session before is overwritten without a close, and the
    // flags go back to 0 whatever the passive box shows: every connection
    // is made active.
    hInternet = InternetOpenA(kAgent, 0, QString(), QString(), 0);
    lConnectFlags = 0;
    hMainConnection = 0;
}

bool MdiMain::OpenConnection(const QString& sServer, const QString& sPort, const QString& sUser,
                             const QString& sPassword) {
    // Kept: both connect sequences have just cleared hMainConnection, so the
    // live connection is left open beside the new one.
    if (hMainConnection != 0) InternetCloseHandle(hMainConnection);
    // Kept: a port that doesn't convert skips the assignment, so the connect
    // fails like an unreachable server, with no word on the port.
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
        // Kept: colour before the caret move, so a caret the user moved
        // makes the line take the colour of the text at the end.
        Log().SetSelColor(kGreen);
        MoveLogCaretToEnd();
        Log().SetSelText(GetLanguageText("CONNECTION_TO") + u' ' + txtAddress->Text() + u' ' +
                         GetLanguageText("ESTABLSHED") + vbCrLf);
        Log().SetSelColor(kBlack);
        RefreshServer(hConnection);
    } else {
        // Kept: colour before the caret move here too.
        Log().SetSelColor(kRed);
        MoveLogCaretToEnd();
        Log().SetSelText(GetLanguageText("NOT_ESTABLISHED") + vbCrLf);
        Log().SetSelColor(kBlack);
        MsgBox(GetLanguageText("NOT_ESTABLISHED") + vbCrLf + GetLanguageText("SPELLING") + vbCrLf +
                   GetLanguageText("PROVIDER"),
               vbExclamation);
    }
    SetMousePointer(vbDefault);
    // Kept: the boxes stay disabled; only a button of tlbConnect enables
    // them again.
}

void MdiMain::QuickConnect() {
    if (txtAddress->Text().trimmed().isEmpty()) {
        MsgBox(GetLanguageText("ENTER_HOST"), vbInformation);
        txtAddress->SetFocus();
        return;
    }
    // Kept: the port is neither checked nor disabled on this route.
    SetMousePointer(vbHourglass);
    txtAddress->SetEnabled(false);
    txtUserID->SetEnabled(false);
    txtPassword->SetEnabled(false);
    Log().SetText(QString());
    frmServer().lsvServer->Clear();

    Initialize_Internet();
    if (OpenConnection(txtAddress->Text(), txtPort->Text(), txtUserID->Text(), txtPassword->Text())) {
        FtpSetCurrentDirectoryA(hConnection, QStringLiteral("/"));
        // Kept: this route writes its first line once the connection stands.
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
    // Kept: whatever the button, the four boxes are enabled afterwards.
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
        // Kept: no caret move on this side; the line lands where the caret
        // stands.
        Log().SetSelColor(kBlue);
        Log().SetSelText(GetLanguageText("PASSIVE_TRANSER_ON") + vbCrLf);
    }
    Log().SetSelColor(kBlack);
}
