#include "language/frmPopUpfrmTransferHistory.h"

#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "platform/seams.h"

controls::FormSlot<FrmPopUpfrmTransferHistory> frmPopUpfrmTransferHistory;

namespace {
// Kept: the rich-text clipboard format, though the data stays plain text.
constexpr int kRichTextFormat = -16639;
}

FrmPopUpfrmTransferHistory::FrmPopUpfrmTransferHistory() {
    setObjectName("frmPopUpfrmTransferHistory");
    mnu = new QMenu(this);
    mnuClipboard = mnu->addAction(QString());
    mnuClipboard->setObjectName("mnuClipboard");
    mnuTrennlinie1 = mnu->addSeparator();
    mnuLoeschen = mnu->addAction(QString());
    mnuLoeschen->setObjectName("mnuLoeschen");
    connect(mnuClipboard, &QAction::triggered, this, [this] { mnuClipboard_Click(); });
    connect(mnuLoeschen, &QAction::triggered, this, [this] { mnuLoeschen_Click(); });
}

void FrmPopUpfrmTransferHistory::Form_Load() {
    mnuClipboard->setText(GetLanguageText("FRMPU_TRANS_CLIP"));
    mnuLoeschen->setText(GetLanguageText("FRMPU_TRANS_DELETE"));
}

void FrmPopUpfrmTransferHistory::mnuClipboard_Click() {
    ClipboardClear();
    ClipboardSetText(frmTransferHistory().rtfTransferHistory->Text(), kRichTextFormat);
}

void FrmPopUpfrmTransferHistory::mnuLoeschen_Click() {
    frmTransferHistory().rtfTransferHistory->SetText(QString());
}
