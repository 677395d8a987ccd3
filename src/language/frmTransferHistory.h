// The log pane under the three upper forms.
#pragma once

#include "platform/controls/Form.h"
#include "platform/controls/FormSlot.h"
#include "platform/controls/RichLog.h"

#include <QGroupBox>

class FrmTransferHistory : public controls::Form {
    Q_OBJECT
public:
    FrmTransferHistory();
    void Form_Load();
    void Form_Unload() {}

    QGroupBox* fraTransferHistory = nullptr;
    controls::RichLog* rtfTransferHistory = nullptr;

    void rtfTransferHistory_MouseUp(int button, int shift, int x, int y);

protected:
    void Form_Resize() override;
};

extern controls::FormSlot<FrmTransferHistory> frmTransferHistory;
