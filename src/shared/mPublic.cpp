#include "shared/mPublic.h"

#include "language/frmTransferHistory.h"
#include "platform/localfs.h"
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

std::optional<int16_t> PortToInteger(const QString& sPort) {
    // The classic conversion: blanks around are fine, a decimal fraction
    // rounds half to even, anything else or out of range is an error.
    const QString t = sPort.trimmed();
    if (t.isEmpty()) return std::nullopt;
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
