#include "shared/toolbarButtons.h"

#include "language/mDataBase.h"
#include "platform/shell.h"

controls::ImageList* PictureList(QObject* owner, std::initializer_list<PictureSetup> pictures) {
    auto* images = new controls::ImageList(owner);
    for (const PictureSetup& p : pictures)
        images->Add(QString::fromLatin1(p.key), shell::BundledIcon(QString::fromLatin1(p.picture)));
    return images;
}

void AddToolbarButtons(controls::Toolbar& toolbar, controls::ImageList* images,
                       std::initializer_list<ButtonSetup> buttons) {
    toolbar.SetImageList(images);
    for (const ButtonSetup& b : buttons) {
        controls::ToolbarButton& button = toolbar.AddButton(QString::fromLatin1(b.key), b.image);
        button.SetToolTipText(GetLanguageText(b.tipKey));
        if (b.description) button.description = button.ToolTipText();
    }
}
