// The connection bar: its controls at their design places, the focus
// colours of the text boxes and their keys.
#include "frame/mdiMain.h"
#include "platform/controls/keys.h"

namespace {
constexpr uint32_t kFocusColour = 0xC0FFFF;  // RGB(255,255,192)
constexpr uint32_t kWhite = 0xFFFFFF;

template <class W>
W* Place(W* w, int left, int top, int width, int height) {
    controls::PlaceTwips(w, left, top, width, height);
    return w;
}
}  // namespace

void MdiMain::BuildConnectionBar() {
    fraTop = Place(new QGroupBox(QStringLiteral("Meine Verbindung"), picTop), 45, 15, 15090, 585);
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(9.75);
    fraTop->setFont(font);

    lblAdresse = Place(new QLabel(QStringLiteral("Adresse"), fraTop), 120, 225, 1020, 240);
    txtAddress = Place(new controls::TextBox(fraTop), 1170, 210, 1500, 285);
    lblBenutzer = Place(new QLabel(QStringLiteral("Benutzer"), fraTop), 2730, 225, 1080, 240);
    txtUserID = Place(new controls::TextBox(fraTop), 3840, 210, 1500, 285);
    lblPasswort = Place(new QLabel(QStringLiteral("Passwort"), fraTop), 5385, 225, 1185, 240);
    txtPassword = Place(new controls::TextBox(fraTop), 6600, 210, 1425, 285);
    lblPort = Place(new QLabel(QStringLiteral("Port"), fraTop), 8085, 225, 795, 240);
    txtPort = Place(new controls::TextBox(fraTop), 8940, 210, 510, 285);
    tlbConnect = Place(new controls::Toolbar(fraTop), 9705, 195, 1260, 330);
    chkPassiveTransfer = Place(new controls::CheckBox(fraTop), 11055, 240, 2370, 270);
    chkPassiveTransfer->setText(QStringLiteral("Passiver Transfer"));
    lblModus = Place(new QLabel(QStringLiteral("Modus"), fraTop), 13545, 240, 735, 240);
    cboTransferMode = Place(new controls::ComboBox(fraTop), 14310, 180, 960, 315);

    txtAddress->setObjectName("txtAddress");
    txtUserID->setObjectName("txtUserID");
    txtPassword->setObjectName("txtPassword");
    txtPort->setObjectName("txtPort");
    txtPort->SetText(QStringLiteral("21"));
    txtPassword->setEchoMode(QLineEdit::Password);
    // Tab order of the design: address, user, password, port, toolbar.
    setTabOrder(txtAddress, txtUserID);
    setTabOrder(txtUserID, txtPassword);
    setTabOrder(txtPassword, txtPort);

    WireConnectionBar();
}

void MdiMain::WireConnectionBar() {
    for (controls::TextBox* box : {txtAddress, txtUserID, txtPassword, txtPort}) {
        box->onGotFocus = [box] {
            box->SetBackColor(kFocusColour);
            box->SetSelStart(0);
            box->SetSelLength(int(box->Text().size()));
        };
        box->onLostFocus = [box] { box->SetBackColor(kWhite); };
    }
    // A click colours the address box only.
    txtAddress->onClick = [this] { txtAddress->SetBackColor(kFocusColour); };

    txtAddress->onKeyDown = [this](int& keyCode, int) {
        if (keyCode == controls::vbKeyTab) {
            txtUserID->SetFocus();
            keyCode = 0;
        }
    };
    txtUserID->onKeyDown = [this](int& keyCode, int) {
        if (keyCode == controls::vbKeyTab) {
            txtPassword->SetFocus();
            keyCode = 0;
        }
    };
    txtPassword->onKeyDown = [this](int& keyCode, int) {
        if (keyCode == controls::vbKeyReturn) QuickConnect();
    };

    tlbConnect->onButtonClick = [this](const QString& key) { tlbConnect_ButtonClick(key); };
    chkPassiveTransfer->onClick = [this] { chkPassiveTransfer_Click(); };
    cboTransferMode->onClick = [this] { cboTransferMode_Click(); };
}
