// A form that is never shown: it only carries the log's popup menu.
#pragma once

#include "platform/controls/FormSlot.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

class FrmPopUpfrmTransferHistory : public QWidget {
    Q_OBJECT
public:
    FrmPopUpfrmTransferHistory();
    void Form_Load();
    void Form_Unload() {}

    QMenu* mnu = nullptr;
    QAction* mnuClipboard = nullptr;
    QAction* mnuTrennlinie1 = nullptr;
    QAction* mnuLoeschen = nullptr;

    void mnuClipboard_Click();
    void mnuLoeschen_Click();
};

extern controls::FormSlot<FrmPopUpfrmTransferHistory> frmPopUpfrmTransferHistory;
