// The connection bar: its controls at their design places, a font with
// which every caption shows whole, the focus colours of the text boxes and
// their keys.
#include "frame/mdiMain.h"

#include "platform/controls/colors.h"
#include "platform/controls/keys.h"
#include "platform/controls/twips.h"

#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>

namespace {

constexpr uint32_t kFocusColour = RGB(255, 255, 192);
constexpr uint32_t kWhite = RGB(255, 255, 255);

// Design places in twips, inside the frame fraTop.
struct Place {
    int left, top, width, height;
};
constexpr Place kFraTop{45, 15, 15090, 585};
constexpr Place kLblAdresse{120, 225, 1020, 240};
constexpr Place kTxtAddress{1170, 210, 1500, 285};
constexpr Place kLblBenutzer{2730, 225, 1080, 240};
constexpr Place kTxtUserID{3840, 210, 1500, 285};
constexpr Place kLblPasswort{5385, 225, 1185, 240};
constexpr Place kTxtPassword{6600, 210, 1425, 285};
constexpr Place kLblPort{8085, 225, 795, 240};
constexpr Place kTxtPort{8940, 210, 510, 285};
constexpr Place kTlbConnect{9705, 195, 1260, 330};
constexpr Place kChkPassiveTransfer{11055, 240, 2370, 270};
constexpr Place kLblModus{13545, 240, 735, 240};
constexpr Place kCboTransferMode{14310, 180, 960, 315};

// fraTop is the frame's width less this; the bar needs room for its last
// control and a margin behind it.
constexpr int kFrameToBar = 130;
constexpr int kMarginBehindLastControl = 60;

// The design font; the bar takes a smaller size of it only where a caption
// wouldn't fit.
constexpr qreal kDesignPoints = 9.75;
constexpr int kSmallestPixels = 8;

template <class W>
W* At(W* w, const Place& p) {
    controls::PlaceTwips(w, p.left, p.top, p.width, p.height);
    return w;
}

// Room for text inside a text box, in pixels.
int TextRoom(const QLineEdit* box) {
    QStyleOptionFrame opt;
    opt.initFrom(box);
    opt.rect = box->rect();
    opt.lineWidth = box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &opt, box);
    opt.state |= QStyle::State_Sunken;
    const QRect contents = box->style()->subElementRect(QStyle::SE_LineEditContents, &opt, box);
    const QMargins margins = box->textMargins();
    // A line edit keeps two pixels free on either side of its text.
    return contents.width() - margins.left() - margins.right() - 4;
}

// Room for an item's text inside a combo box, in pixels.
int TextRoom(const QComboBox* combo) {
    QStyleOptionComboBox opt;
    opt.initFrom(combo);
    opt.rect = combo->rect();
    opt.editable = false;
    opt.frame = true;
    return combo->style()->subControlRect(QStyle::CC_ComboBox, &opt, QStyle::SC_ComboBoxEditField, combo).width();
}

}  // namespace

void MdiMain::BuildConnectionBar() {
    fraTop = At(new QGroupBox(QStringLiteral("Meine Verbindung"), picTop), kFraTop);
    lblAdresse = At(new QLabel(QStringLiteral("Adresse"), fraTop), kLblAdresse);
    txtAddress = At(new controls::TextBox(fraTop), kTxtAddress);
    lblBenutzer = At(new QLabel(QStringLiteral("Benutzer"), fraTop), kLblBenutzer);
    txtUserID = At(new controls::TextBox(fraTop), kTxtUserID);
    lblPasswort = At(new QLabel(QStringLiteral("Passwort"), fraTop), kLblPasswort);
    txtPassword = At(new controls::TextBox(fraTop), kTxtPassword);
    lblPort = At(new QLabel(QStringLiteral("Port"), fraTop), kLblPort);
    txtPort = At(new controls::TextBox(fraTop), kTxtPort);
    tlbConnect = At(new controls::Toolbar(fraTop), kTlbConnect);
    chkPassiveTransfer = At(new controls::CheckBox(fraTop), kChkPassiveTransfer);
    chkPassiveTransfer->setText(QStringLiteral("Passiver Transfer"));
    lblModus = At(new QLabel(QStringLiteral("Modus"), fraTop), kLblModus);
    cboTransferMode = At(new controls::ComboBox(fraTop), kCboTransferMode);

    txtAddress->setObjectName(QStringLiteral("txtAddress"));
    txtUserID->setObjectName(QStringLiteral("txtUserID"));
    txtPassword->setObjectName(QStringLiteral("txtPassword"));
    txtPort->setObjectName(QStringLiteral("txtPort"));
    txtPort->SetText(QStringLiteral("21"));
    txtPassword->SetPasswordChar(u'*');
    // The design's tab order: address, user, password, port, then the
    // passive box and the mode.
    setTabOrder(txtAddress, txtUserID);
    setTabOrder(txtUserID, txtPassword);
    setTabOrder(txtPassword, txtPort);
    setTabOrder(txtPort, chkPassiveTransfer);
    setTabOrder(chkPassiveTransfer, cboTransferMode);

    FitConnectionBarFont();
    WireConnectionBar();
}

int MdiMain::ConnectionBarWidth() {
    return kCboTransferMode.left + kCboTransferMode.width + kMarginBehindLastControl + kFrameToBar;
}

bool MdiMain::ConnectionBarFits(const QFont& font) const {
    const QFontMetrics fm(font);
    if (fm.height() > lblAdresse->height()) return false;
    for (const QLabel* label : {lblAdresse, lblBenutzer, lblPasswort, lblPort, lblModus})
        if (fm.horizontalAdvance(label->text()) > label->width()) return false;
    const QStyle* style = chkPassiveTransfer->style();
    const int box = style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, chkPassiveTransfer) +
                    style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, chkPassiveTransfer);
    if (box + fm.horizontalAdvance(chkPassiveTransfer->text()) > chkPassiveTransfer->width()) return false;
    // A port of four digits.
    if (fm.horizontalAdvance(QStringLiteral("0000")) > TextRoom(txtPort)) return false;
    for (int i = 0; i < cboTransferMode->count(); ++i)
        if (fm.horizontalAdvance(cboTransferMode->itemText(i)) > TextRoom(cboTransferMode)) return false;
    return true;
}

void MdiMain::FitConnectionBarFont() {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(kDesignPoints);
    // Where the design's own font is missing, the stand-in is often wider:
    // a size smaller, pixel by pixel, until everything shows whole.
    for (int pixels = QFontInfo(font).pixelSize(); pixels > kSmallestPixels && !ConnectionBarFits(font); --pixels)
        font.setPixelSize(pixels - 1);
    fraTop->setFont(font);
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
    // Kept: a click colours the address box only.
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
