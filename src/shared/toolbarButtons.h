// How every form sets up its toolbars: pictures from the program's own set
// in a keyed list, and buttons whose tool tips come from the catalogue.
#pragma once

#include "platform/controls/ImageList.h"
#include "platform/controls/Toolbar.h"

#include <initializer_list>

struct PictureSetup {
    const char* key;
    const char* picture;  // a name of shell::BundledIcon
};

// A new image list owned by `owner` with the pictures in this order.
controls::ImageList* PictureList(QObject* owner, std::initializer_list<PictureSetup> pictures);

struct ButtonSetup {
    const char* key;
    int image;             // 1-based, in the toolbar's image list
    const char* tipKey;    // catalogue key of the tool tip
    bool description = true;  // the tool tip is also the description
};

// Binds the image list and adds the buttons in this order.
void AddToolbarButtons(controls::Toolbar& toolbar, controls::ImageList* images,
                       std::initializer_list<ButtonSetup> buttons);
