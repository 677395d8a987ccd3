// The left pane: the local computer.
#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormSlot.h"
#include "platform/controls/ListView.h"

#include <QGroupBox>

class FrmLocal : public controls::Form {
    Q_OBJECT
public:
    FrmLocal();
    void Form_Load();
    void Form_Unload() {}

    QGroupBox* fraLocal = nullptr;
    controls::ComboBox* cboLocal = nullptr;
    controls::ListView* lsvDirFile = nullptr;

protected:
    void Form_Resize() override;
};

extern controls::FormSlot<FrmLocal> frmLocal;
