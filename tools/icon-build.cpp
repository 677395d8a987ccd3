// Scales the program's picture to one size of the desktop's icon theme.
// Whole multiples of the source keep its pixels sharp (each becomes a
// block); other sizes are smoothed.
// Usage: icon-build SOURCE.png SIZE OUTPUT.png
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: icon-build SOURCE.png SIZE OUTPUT.png\n");
        return 2;
    }
    const QImage source(QString::fromLocal8Bit(argv[1]));
    const int size = QString::fromLocal8Bit(argv[2]).toInt();
    if (source.isNull() || source.width() != source.height() || size <= 0) {
        std::fprintf(stderr, "icon-build: %s is no square picture, or %s no size\n", argv[1], argv[2]);
        return 1;
    }
    const Qt::TransformationMode mode =
        size % source.width() == 0 ? Qt::FastTransformation : Qt::SmoothTransformation;
    const QImage icon = source.convertToFormat(QImage::Format_ARGB32).scaled(size, size, Qt::IgnoreAspectRatio, mode);
    const QString out = QString::fromLocal8Bit(argv[3]);
    QDir().mkpath(QFileInfo(out).path());
    if (!icon.save(out, "PNG")) {
        std::fprintf(stderr, "icon-build: cannot write %s\n", argv[3]);
        return 1;
    }
    return 0;
}
