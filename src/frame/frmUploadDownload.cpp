#include "frame/frmUploadDownload.h"

#include "language/mDataBase.h"
#include "platform/shell.h"

controls::FormSlot<FrmUploadDownload> frmUploadDownload;

FrmUploadDownload::FrmUploadDownload() {
    setObjectName("frmUploadDownload");
    imgUploadDownload = new controls::ImageList(this);
    imgUploadDownload->Add(QStringLiteral("upload"), shell::BundledIcon(QStringLiteral("upload")));
    imgUploadDownload->Add(QStringLiteral("download"), shell::BundledIcon(QStringLiteral("download")));
    tlbUpload = new controls::Toolbar(this);
    tlbDownload = new controls::Toolbar(this);
    tlbUpload->setOrientation(Qt::Vertical);
    tlbDownload->setOrientation(Qt::Vertical);
    tlbUpload->onButtonClick = [this](const QString& key) { tlbUpload_ButtonClick(key); };
    tlbDownload->onButtonClick = [this](const QString& key) { tlbDownload_ButtonClick(key); };
}

void FrmUploadDownload::Form_Load() {
    tlbUpload->SetImageList(imgUploadDownload);
    auto& up = tlbUpload->AddButton(QStringLiteral("upload"), 1);
    up.SetToolTipText(GetLanguageText("FRMLOCAL_UPLOAD"));
    up.description = up.ToolTipText();
    tlbDownload->SetImageList(imgUploadDownload);
    // The download arrow's key is "del"; nothing reads it.
    auto& down = tlbDownload->AddButton(QStringLiteral("del"), 2);
    down.SetToolTipText(GetLanguageText("FRMSERVER_DOWN"));
    down.description = down.ToolTipText();
    tlbUpload->adjustSize();
    tlbDownload->adjustSize();
    PlaceArrows();
}

void FrmUploadDownload::Form_Resize() {
    SetWidth(400);
    PlaceArrows();
}

void FrmUploadDownload::PlaceArrows() {
    const int upHeight = tlbUpload->height() * 15;
    const int downHeight = tlbDownload->height() * 15;
    tlbUpload->move(2, (ScaleHeight() / 2 - upHeight) / 15);
    tlbDownload->move(2, (ScaleHeight() / 2 + downHeight) / 15);
}

// The transfers behind the arrows come with the transfer walks.
void FrmUploadDownload::tlbUpload_ButtonClick(const QString&) {}
void FrmUploadDownload::tlbDownload_ButtonClick(const QString&) {}
