// The narrow strip between the panes with the two arrow toolbars.
#pragma once

#include "platform/controls/Form.h"
#include "platform/controls/FormSlot.h"
#include "platform/controls/ImageList.h"
#include "platform/controls/Toolbar.h"

class FrmUploadDownload : public controls::Form {
    Q_OBJECT
public:
    FrmUploadDownload();
    void Form_Load();
    void Form_Unload() {}

    // Steps of the layout that place the two arrows around the middle.
    void PlaceArrows();

    controls::ImageList* imgUploadDownload = nullptr;
    controls::Toolbar* tlbUpload = nullptr;
    controls::Toolbar* tlbDownload = nullptr;

    void tlbUpload_ButtonClick(const QString& key);
    void tlbDownload_ButtonClick(const QString& key);

protected:
    void Form_Resize() override;
};

extern controls::FormSlot<FrmUploadDownload> frmUploadDownload;
