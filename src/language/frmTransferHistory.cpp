#include "language/frmTransferHistory.h"

#include "language/mDataBase.h"
#include "platform/controls/twips.h"

controls::FormSlot<FrmTransferHistory> frmTransferHistory;

FrmTransferHistory::FrmTransferHistory() {
    setObjectName("frmTransferHistory");
    fraTransferHistory = new QGroupBox(this);
    rtfTransferHistory = new controls::RichLog(fraTransferHistory);
    rtfTransferHistory->setObjectName("rtfTransferHistory");
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(8.25);
    rtfTransferHistory->setFont(font);
    controls::PlaceTwips(rtfTransferHistory, 90, 195, 4000, 1000);
    rtfTransferHistory->onMouseUp = [this](int button, int shift, int x, int y) {
        rtfTransferHistory_MouseUp(button, shift, x, y);
    };
}

void FrmTransferHistory::Form_Load() {
    fraTransferHistory->setTitle(GetLanguageText("FRMTH_FRACAPTION"));
}
