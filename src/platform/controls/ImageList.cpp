#include "platform/controls/ImageList.h"

namespace controls {

namespace {
quint64 NextSerial() {
    static quint64 next = 0;
    return ++next;
}
}  // namespace

ImageList::ImageList(QObject* parent) : QObject(parent), serial_(NextSerial()) {}

bool ImageList::Add(const QString& key, const QIcon& picture) {
    if (picture.isNull()) return false;
    if (!key.isEmpty() && IndexOf(key) > 0) return false;
    images_.push_back({key, picture});
    if (!key.isEmpty()) index_.insert(key, Count());
    return true;
}

void ImageList::Clear() {
    images_.clear();
    index_.clear();
    serial_ = NextSerial();
}

int ImageList::IndexOf(const QString& key) const {
    if (key.isEmpty()) return 0;
    return index_.value(key, 0);
}

QIcon ImageList::Picture(int index) const {
    if (index < 1 || index > Count()) return {};
    return images_[size_t(index - 1)].picture;
}

}  // namespace controls
