#include "frame/frmUploadDownload.h"

#include "platform/controls/twips.h"
#include "shared/toolbarButtons.h"

controls::FormSlot<FrmUploadDownload> frmUploadDownload;

namespace {
constexpr int kStripWidth = 400;
constexpr int kArrowLeft = 2;
}  // namespace

FrmUploadDownload::FrmUploadDownload() {
    setObjectName(QStringLiteral("frmUploadDownload"));
    imgUploadDownload = PictureList(this, {{"upload", "upload"}, {"download", "download"}});
    tlbUpload = new controls::Toolbar(this);
    tlbDownload = new controls::Toolbar(this);
    tlbUpload->setOrientation(Qt::Vertical);
    tlbDownload->setOrientation(Qt::Vertical);
    tlbUpload->onButtonClick = [this](const QString& key) { tlbUpload_ButtonClick(key); };
    tlbDownload->onButtonClick = [this](const QString& key) { tlbDownload_ButtonClick(key); };
}

void FrmUploadDownload::Form_Load() {
    AddToolbarButtons(*tlbUpload, imgUploadDownload, {{"upload", 1, "FRMLOCAL_UPLOAD"}});
    // Kept: the download arrow's key is "del"; nothing reads it.
    AddToolbarButtons(*tlbDownload, imgUploadDownload, {{"del", 2, "FRMSERVER_DOWN"}});
    tlbUpload->adjustSize();
    tlbDownload->adjustSize();
    PlaceArrows();
}

void FrmUploadDownload::Form_Resize() {
    SetWidth(kStripWidth);
    PlaceArrows();
}

// One toolbar height stays free between the arrows, around the middle.
void FrmUploadDownload::PlaceArrows() {
    controls::SetTopOf(tlbUpload, ScaleHeight() / 2 - controls::HeightOf(tlbUpload));
    controls::SetTopOf(tlbDownload, ScaleHeight() / 2 + controls::HeightOf(tlbDownload));
    controls::SetLeftOf(tlbUpload, kArrowLeft);
    controls::SetLeftOf(tlbDownload, kArrowLeft);
}

// The transfers behind the arrows come with the transfer walks.
void FrmUploadDownload::tlbUpload_ButtonClick(const QString&) {}
void FrmUploadDownload::tlbDownload_ButtonClick(const QString&) {}
