// A form that is never shown: it carries the popup menu of the local list,
// and its own copies of the list's reader and the tree's reading.
#pragma once

#include "local/frmLocal.h"
#include "platform/controls/FormSlot.h"

#include <QAction>
#include <QMenu>
#include <QWidget>
#include <vector>

class FrmPopUpfrmLocal : public QWidget {
    Q_OBJECT
public:
    FrmPopUpfrmLocal();
    void Form_Load();
    void Form_Unload() {}

    QMenu* mnu = nullptr;
    QAction* mnuUpload = nullptr;
    QAction* mnuUploadAls = nullptr;
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
    QAction* mnuTrennlinie6 = nullptr;
    QAction* mnuEigenschaften = nullptr;

    // Upload of the selection and upload-as come with the transfers.
    void mnuUpload_Click() {}
    void mnuUploadAls_Click() {}
    void mnuOeffnen_Click();
    void mnuOeffnenMit_Click();
    void mnuUmbenennen_Click();
    // Deletes the selected rows, then builds the tree again down to the
    // current folder and drops the visited folders that are gone.
    void mnuLoeschen_Click();
    void mnuNeuVerzeichnis_Click();
    void mnuAktualisieren_Click();
    void mnuEigenschaften_Click();

    // The copies of frmLocal's procedures this form uses: the reader
    // compares case-sensitively and shows no "D"; the tree's reading
    // searches "\*.*" behind the path given.
    void ViewFolder(QString& pPath, const QString& pPattern);
    void GetFilestrwPaths(const QString& pPath);
    void ReadDrive(const QString& pDrive);

    std::vector<tLocalFolder> arrLocalFolders;
};

extern controls::FormSlot<FrmPopUpfrmLocal> frmPopUpfrmLocal;
