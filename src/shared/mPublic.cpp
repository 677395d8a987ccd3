#include "shared/mPublic.h"

#include "language/frmTransferHistory.h"
#include "platform/controls/twips.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "platform/wininet.h"

#include <QApplication>
#include <QCoreApplication>
#include <cmath>

HINTERNET hConnection = 0;
HINTERNET hInternetReconnect = 0;
uint32_t lConnectFlags = 0;
uint32_t lTransferMode = 0;

QString AppPath() {
    return localfs::ProgramFolder();
}

void MoveLogCaretToEnd() {
    auto& log = *frmTransferHistory().rtfTransferHistory;
    log.SetSelStart(int(log.Text().size()));
}

void AppendLogLine(uint32_t lColour, const QString& sText) {
    MoveLogCaretToEnd();
    auto& log = *frmTransferHistory().rtfTransferHistory;
    log.SetSelColor(lColour);
    log.SetSelText(sText + vbCrLf);
    log.SetSelColor(0);
}

void AppendLogText(const QString& sText) {
    MoveLogCaretToEnd();
    auto& log = *frmTransferHistory().rtfTransferHistory;
    log.SetSelText(sText + vbCrLf);
    log.SetSelColor(0);
}

QString TrimBlanks(const QString& s) {
    qsizetype from = 0, to = s.size();
    while (from < to && s[from] == u' ') ++from;
    while (to > from && s[to - 1] == u' ') --to;
    return s.mid(from, to - from);
}

QString UCase(const QString& s) {
    QString out;
    out.reserve(s.size());
    for (const char32_t c : s.toUcs4()) {
        const char32_t upper[1] = {QChar::toUpper(c)};
        out += QString::fromUcs4(upper, 1);
    }
    return out;
}

QString FindAssociatedProgram(const QString& sFile) {
    // The buffer of 256 characters, cut at its first NUL.
    QString sResult = FindExecutableA(sFile).left(256);
    const qsizetype nul = sResult.indexOf(QChar(0));
    if (nul >= 0) sResult = sResult.left(nul);
    // A program file is its own program: it has none.
    if (UCase(sResult) == UCase(sFile)) sResult.clear();
    return sResult;
}

QString GetServerDirectory() {
    QString buffer;
    uint32_t length = 1024;
    const uint32_t result = FtpGetCurrentDirectoryA(hConnection, buffer, length);
    if ((result & 0xFFFF) == 0) return QString();
    const qsizetype nul = buffer.indexOf(QChar(0));
    return nul < 0 ? buffer : buffer.left(nul);
}

bool SetServerDirectory(const QString& sPath) {
    return FtpSetCurrentDirectoryA(hConnection, sPath);
}

bool CreateServerDirectory(const QString& sName) {
    return FtpCreateDirectoryA(hConnection, sName);
}

QString ReplaceInString(QString& sText, const QString& sFind, const QString& sReplace) {
    if (sFind.isEmpty()) return sText;
    qsizetype position = 0;
    for (;;) {
        const qsizetype found = sText.indexOf(sFind, position, Qt::CaseInsensitive);
        if (found < 0) return sText;
        QString sLeft = sText.left(found);
        const QString sRight = sText.mid(found + sFind.size());
        while (sLeft.endsWith(u' ')) sLeft.chop(1);
        sText = sLeft + sReplace + sRight;
        position = found + (sReplace.size() <= 1 ? 1 : sReplace.size() - 1);
    }
}

namespace {
// "&H" (hexadecimal) and "&O" (octal) numbers: up to 16 bits they are the
// 16-bit pattern (&HFFFF is -1), up to 32 bits the 32-bit one, which then
// has to lie in the 16-bit range.
std::optional<int16_t> BasedToInteger(const QString& t) {
    const QChar kind = t.size() > 2 ? t[1].toUpper() : QChar();
    const int base = kind == u'H' ? 16 : kind == u'O' ? 8 : 0;
    if (base == 0) return std::nullopt;
    bool ok = false;
    const qulonglong v = t.mid(2).toULongLong(&ok, base);
    if (!ok || t[2] == u'+' || t[2] == u'-' || t[2].isSpace()) return std::nullopt;
    if (v <= 0xFFFF) return static_cast<int16_t>(static_cast<uint16_t>(v));
    if (v > 0xFFFFFFFF) return std::nullopt;
    const auto wide = static_cast<int32_t>(static_cast<uint32_t>(v));
    if (wide < -32768 || wide > 32767) return std::nullopt;
    return static_cast<int16_t>(wide);
}
}  // namespace

std::optional<int16_t> PortToInteger(const QString& sPort) {
    // Blanks around are fine, a decimal fraction rounds half to even, "&H"
    // and "&O" forms are read by their base; anything else or a value out
    // of range is an error.
    const QString t = sPort.trimmed();
    if (t.isEmpty()) return std::nullopt;
    if (t.startsWith(u'&')) return BasedToInteger(t);
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok || !std::isfinite(v)) return std::nullopt;
    const double r = std::nearbyint(v);  // default rounding mode: half to even
    if (r < -32768.0 || r > 32767.0) return std::nullopt;
    return int16_t(r);
}

void DoEvents() {
    QCoreApplication::processEvents();
}

namespace {
int gMousePointer = 0;
}

void SetMousePointer(int value) {
    // Balanced: at most one override cursor stands for the hourglass.
    if (value == vbHourglass && gMousePointer != vbHourglass) {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()))
            QApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (value != vbHourglass && gMousePointer == vbHourglass) {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()))
            QApplication::restoreOverrideCursor();
    }
    gMousePointer = value;
}

int MousePointer() {
    return gMousePointer;
}
