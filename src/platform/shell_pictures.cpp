// The program's own pictures, drawn at start so a bare machine shows them
// without any icon theme.
#include "platform/shell.h"

#include <QHash>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

const QColor kInk(0x2e, 0x34, 0x40);
const QColor kBlue(0x35, 0x84, 0xe4);
const QColor kGreen(0x2e, 0xa0, 0x43);
const QColor kRed(0xc0, 0x1c, 0x28);
const QColor kFolder(0xf6, 0xc1, 0x4a);
const QColor kPaper(0xfa, 0xfa, 0xfa);

void Arrow(QPainter& p, bool up, const QColor& c) {
    QPainterPath a;
    if (up) {
        a.moveTo(8, 2); a.lineTo(14, 8); a.lineTo(10.5, 8); a.lineTo(10.5, 14);
        a.lineTo(5.5, 14); a.lineTo(5.5, 8); a.lineTo(2, 8); a.closeSubpath();
    } else {
        a.moveTo(8, 14); a.lineTo(14, 8); a.lineTo(10.5, 8); a.lineTo(10.5, 2);
        a.lineTo(5.5, 2); a.lineTo(5.5, 8); a.lineTo(2, 8); a.closeSubpath();
    }
    p.fillPath(a, c);
    p.setPen(QPen(c.darker(140), 0.8));
    p.drawPath(a);
}

void Folder(QPainter& p, bool open) {
    p.setPen(QPen(kFolder.darker(150), 0.8));
    p.setBrush(kFolder.darker(110));
    p.drawRoundedRect(QRectF(1.5, 3, 6, 3), 1, 1);
    p.drawRect(QRectF(1.5, 4.5, 13, 9));
    p.setBrush(kFolder);
    if (open) {
        QPainterPath f;
        f.moveTo(3.5, 7); f.lineTo(15, 7); f.lineTo(13, 13.5); f.lineTo(1.5, 13.5); f.closeSubpath();
        p.drawPath(f);
    } else {
        p.drawRect(QRectF(1.5, 6, 13, 7.5));
    }
}

void Page(QPainter& p) {
    QPainterPath s;
    s.moveTo(3.5, 1.5); s.lineTo(10, 1.5); s.lineTo(12.5, 4); s.lineTo(12.5, 14.5); s.lineTo(3.5, 14.5);
    s.closeSubpath();
    p.setPen(QPen(kInk, 0.8));
    p.setBrush(kPaper);
    p.drawPath(s);
}

void Draw(QPainter& p, const QString& name) {
    p.setRenderHint(QPainter::Antialiasing);
    if (name == "upload") return Arrow(p, true, kGreen);
    if (name == "download") return Arrow(p, false, kBlue);
    if (name == "up") {
        Folder(p, false);
        p.translate(4, -1);
        p.scale(0.55, 0.55);
        return Arrow(p, true, kInk);
    }
    if (name == "folder") return Folder(p, false);
    if (name == "folder-open" || name == "open") return Folder(p, true);
    if (name == "new-folder") {
        Folder(p, false);
        p.setPen(QPen(kGreen, 2));
        p.drawLine(QPointF(12, 1), QPointF(12, 7));
        p.drawLine(QPointF(9, 4), QPointF(15, 4));
        return;
    }
    if (name == "file" || name == "unknown" || name == "ascii-list" || name == "properties") {
        Page(p);
        p.setPen(QPen(name == "unknown" ? kRed : kInk.lighter(200), 0.8));
        if (name == "unknown") {
            QFont f;
            f.setPixelSize(9);
            f.setBold(true);
            p.setFont(f);
            p.drawText(QRectF(3.5, 3, 9, 11), Qt::AlignCenter, QStringLiteral("?"));
        } else {
            for (int y = 5; y <= 12; y += 2) p.drawLine(QPointF(5, y), QPointF(11, y));
        }
        if (name == "ascii-list") {
            QFont f;
            f.setPixelSize(6);
            f.setBold(true);
            p.setFont(f);
            p.setPen(kBlue);
            p.drawText(QRectF(2, 8, 12, 7), Qt::AlignCenter, QStringLiteral("Aa"));
        }
        return;
    }
    if (name == "delete") {
        p.setPen(QPen(kRed, 2.2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(3.5, 3.5), QPointF(12.5, 12.5));
        p.drawLine(QPointF(12.5, 3.5), QPointF(3.5, 12.5));
        return;
    }
    if (name == "refresh") {
        p.setPen(QPen(kGreen, 1.8, Qt::SolidLine, Qt::RoundCap));
        p.drawArc(QRectF(2.5, 2.5, 11, 11), 30 * 16, 280 * 16);
        QPainterPath head;
        head.moveTo(13.5, 1.5); head.lineTo(13.8, 6.5); head.lineTo(9, 5.5); head.closeSubpath();
        p.fillPath(head, kGreen);
        return;
    }
    if (name == "connect") {
        p.setPen(QPen(kInk, 1.6, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(2, 8), QPointF(6, 8));
        p.drawLine(QPointF(10, 8), QPointF(14, 8));
        p.setBrush(kGreen);
        p.drawRoundedRect(QRectF(5, 5, 3, 6), 1, 1);
        p.setBrush(kBlue);
        p.drawRoundedRect(QRectF(8, 5, 3, 6), 1, 1);
        return;
    }
    if (name.startsWith("view-")) {
        p.setPen(Qt::NoPen);
        p.setBrush(kBlue);
        if (name == "view-large") {
            p.drawRect(QRectF(2, 2, 5, 5)); p.drawRect(QRectF(9, 2, 5, 5));
            p.drawRect(QRectF(2, 9, 5, 5)); p.drawRect(QRectF(9, 9, 5, 5));
        } else if (name == "view-small") {
            for (int y : {2, 7, 12}) for (int x : {2, 7, 12}) p.drawRect(QRectF(x, y, 3, 3));
        } else {
            for (int y : {2, 7, 12}) {
                p.drawRect(QRectF(2, y, 3, 3));
                p.setBrush(kInk);
                p.drawRect(QRectF(6, y + 1, name == "view-details" ? 4 : 8, 1.5));
                if (name == "view-details") p.drawRect(QRectF(11, y + 1, 3, 1.5));
                p.setBrush(kBlue);
            }
        }
        return;
    }
    if (name == "drive" || name == "drive-root") {
        p.setPen(QPen(kInk, 0.8));
        p.setBrush(QColor(0xde, 0xdd, 0xda));
        p.drawRoundedRect(QRectF(1.5, 5, 13, 7), 1.5, 1.5);
        p.setBrush(name == "drive-root" ? kBlue : kGreen);
        p.drawEllipse(QPointF(12, 8.5), 1, 1);
        return;
    }
    if (name == "app") {
        QLinearGradient g(0, 0, 16, 16);
        g.setColorAt(0, kBlue.lighter(120));
        g.setColorAt(1, kBlue.darker(130));
        p.setPen(Qt::NoPen);
        p.setBrush(g);
        p.drawRoundedRect(QRectF(0.5, 0.5, 15, 15), 3, 3);
        QPainterPath hull;
        hull.moveTo(2.5, 9.5); hull.lineTo(13.5, 9.5); hull.lineTo(11.5, 13); hull.lineTo(4.5, 13);
        hull.closeSubpath();
        p.fillPath(hull, Qt::white);
        p.fillRect(QRectF(6, 5.5, 4.5, 4), Qt::white);
        p.fillRect(QRectF(7, 3, 1.2, 2.5), Qt::white);
        return;
    }
}

QPixmap Render(const QString& name, int size) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.scale(size / 16.0, size / 16.0);
    Draw(p, name);
    return pm;
}

QPixmap Banner() {
    QPixmap pm(160, 300);
    QPainter p(&pm);
    QLinearGradient sky(0, 0, 0, 300);
    sky.setColorAt(0, QColor(0x1c, 0x47, 0x8a));
    sky.setColorAt(0.65, QColor(0x62, 0xa0, 0xea));
    sky.setColorAt(0.66, QColor(0x1a, 0x5f, 0xb4));
    sky.setColorAt(1, QColor(0x0b, 0x2e, 0x5c));
    p.fillRect(pm.rect(), sky);
    p.setRenderHint(QPainter::Antialiasing);
    p.save();
    p.translate(20, 110);
    p.scale(7.5, 7.5);
    Draw(p, QStringLiteral("app"));
    p.restore();
    QFont f(QStringLiteral("Arial"));
    f.setPixelSize(24);
    f.setBold(true);
    p.setFont(f);
    p.setPen(Qt::white);
    p.drawText(QRect(0, 30, 160, 40), Qt::AlignCenter, QStringLiteral("Ferrydock"));
    return pm;
}

}  // namespace

namespace shell {

QIcon BundledIcon(const QString& name) {
    static QHash<QString, QIcon> cache;
    auto it = cache.constFind(name);
    if (it != cache.constEnd()) return *it;
    QIcon icon;
    if (name == QLatin1String("start-banner")) {
        icon.addPixmap(Banner());
    } else {
        for (int size : {16, 24, 32, 48}) icon.addPixmap(Render(name, size));
    }
    cache.insert(name, icon);
    return icon;
}

}  // namespace shell
