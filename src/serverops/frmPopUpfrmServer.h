// A form that is never shown: it only carries the server pane's popup
// menu. Every item is always offered; each command copes with what is
// selected, and none of them tests the connection.
#pragma once

#include "platform/controls/FormSlot.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

class FrmPopUpfrmServer : public QWidget {
    Q_OBJECT
public:
    FrmPopUpfrmServer();
    void Form_Load();
    void Form_Unload() {}

    QMenu* mnu = nullptr;
    QAction* mnuDownload = nullptr;
    QAction* mnuDownloadAls = nullptr;
    QAction* mnuTrennlinie1 = nullptr;
    QAction* mnuOeffnen = nullptr;
    QAction* mnuOeffnenMit = nullptr;
    QAction* mnuTrennlinie2 = nullptr;
    QAction* mnuUmbenennen = nullptr;
    QAction* mnuTrennlinie3 = nullptr;
    QAction* mnuLoeschen = nullptr;
    QAction* mnuTrennlinie4 = nullptr;
    QMenu* mnuNeu = nullptr;
    QAction* mnuNeuVerzeichnis = nullptr;
    QAction* mnuTrennlinie5 = nullptr;
    QAction* mnuAktualisieren = nullptr;

    void mnuUmbenennen_Click();
    void mnuLoeschen_Click();
    void mnuNeuVerzeichnis_Click();
};

extern controls::FormSlot<FrmPopUpfrmServer> frmPopUpfrmServer;
