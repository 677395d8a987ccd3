#include "local/frmLocal.h"

#include "language/mDataBase.h"

controls::FormSlot<FrmLocal> frmLocal;

FrmLocal::FrmLocal() {
    setObjectName("frmLocal");
    fraLocal = new QGroupBox("Mein Computer", this);
    cboLocal = new controls::ComboBox(fraLocal);
    lsvDirFile = new controls::ListView(fraLocal);
}

void FrmLocal::Form_Load() {
    fraLocal->setTitle(GetLanguageText("FRMLOCAL_MYCOMPUTER"));
    lsvDirFile->SetView(3);
}
