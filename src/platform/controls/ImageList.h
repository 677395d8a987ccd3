// Keyed pictures with 1-based indexes, as toolbars, lists and trees use them.
#pragma once

#include <QIcon>
#include <QObject>
#include <QHash>
#include <QString>
#include <vector>

namespace controls {

class ImageList : public QObject {
    Q_OBJECT
public:
    explicit ImageList(QObject* parent = nullptr);

    // False (and nothing added) when the key exists already or the picture
    // is null; an empty key is allowed, like an unkeyed image.
    bool Add(const QString& key, const QIcon& picture);
    void Clear();
    int Count() const { return int(images_.size()); }
    bool HasKey(const QString& key) const { return IndexOf(key) > 0; }
    // 0 when absent.
    int IndexOf(const QString& key) const;
    // Null icon for an index out of range or a missing key.
    QIcon Picture(int index) const;
    QIcon Picture(const QString& key) const { return Picture(IndexOf(key)); }

    // Names this list's pictures as they stand: a key, once added, keeps its
    // picture until the list is cleared, and each clear (like each list)
    // gets a serial no other list had. Users may cache pictures by it.
    quint64 Serial() const { return serial_; }

private:
    quint64 serial_;
    struct Image {
        QString key;
        QIcon picture;
    };
    std::vector<Image> images_;
    QHash<QString, int> index_;
};

}  // namespace controls
