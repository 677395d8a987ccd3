#include "local/mShellDelete.h"

#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/localReader.h"
#include "platform/desktop.h"
#include "platform/localfs.h"
#include "platform/seams.h"
#include "shared/frameControls.h"
#include "shared/mPublic.h"

#include <cmath>
#include <functional>
#include <optional>
#include <vector>

namespace {

// The bar at the frame's foot; its refused values leave it as it was.
void Bar(const std::function<void(controls::ProgressBar&)>& set) {
    if (controls::ProgressBar* bar = Frame().pgbBottom) set(*bar);
}

// A name read as a 32-bit number the way a conversion of text does:
// blanks around, a decimal number (rounded half to even) or an "&H" or
// "&O" one. Nothing for anything else, the empty text included.
std::optional<int32_t> AsNumber(const QString& text) {
    const QString t = TrimBlanks(text);
    if (t.isEmpty()) return std::nullopt;
    bool ok = false;
    if (t.size() > 2 && t[0] == u'&' && (t[1].toUpper() == u'H' || t[1].toUpper() == u'O')) {
        const qulonglong v = t.mid(2).toULongLong(&ok, t[1].toUpper() == u'H' ? 16 : 8);
        if (!ok || v > 0xFFFFFFFFull || !t[2].isLetterOrNumber()) return std::nullopt;
        return static_cast<int32_t>(static_cast<uint32_t>(v));
    }
    const double v = t.toDouble(&ok);
    if (!ok || !std::isfinite(v)) return std::nullopt;
    const double r = std::nearbyint(v);
    if (r < -2147483648.0 || r > 2147483647.0) return std::nullopt;
    return int32_t(r);
}

// Kept: seven lookups of the path, their names read as numbers and joined.
// A name that is no number fails the test, and the delete follows the
// failed test; only an entry whose name reads as 0 is left, though the log
// says it went.
bool ProbeLetsDelete(const QString& path) {
    int32_t joined = 0;
    for (const int mask : {localfs::vbNormal, localfs::vbAlias, localfs::vbArchive, localfs::vbHidden,
                           localfs::vbReadOnly, localfs::vbSystem, localfs::vbVolume}) {
        const std::optional<int32_t> n = AsNumber(localfs::Dir(path, mask));
        if (!n) return true;
        joined |= *n;
    }
    return joined != 0;
}

// One delete call per path: no question of the shell's own, no trash.
void ShellDelete(SHFILEOPSTRUCT& op, const QString& path) {
    op.hwnd = &frmLocal();
    op.wFunc = FO_DELETE;
    op.pFrom = path;
    op.pTo = QString(QChar(0));
    op.fFlags = op.fFlags | FOF_NOCONFIRMATION | FOF_SIMPLEPROGRESS;
    SHFileOperationA(op);
}

void RepaintLog() {
    frmTransferHistory().rtfTransferHistory->repaint();
}

void DeleteSeveral(const std::vector<QString>& paths, const QString& folder) {
    const int count = int(paths.size());
    AppendLogText(QStringLiteral("Aktion: Beginne mit löschen"));
    const int answer = MsgBox(GetLanguageText("MSDEL_FILEDEL1") + u' ' + QString::number(count) + u' ' +
                                  GetLanguageText("MSDEL_FILEDEL2"),
                              vbYesNo);
    if (answer == vbNo) {
        AppendLogLine(kRed, GetLanguageText("MSDEL_DELCANCEL"));
        return;
    }
    SetMousePointer(vbHourglass);
    Bar([count](controls::ProgressBar& bar) {
        bar.SetMin(1);
        bar.SetMax(count);
        bar.SetValue(1);
    });
    SHFILEOPSTRUCT op;
    for (int i = 0; i < count; ++i) {
        AppendLogText(GetLanguageText("MSDEL_WILLDELETE1") + u' ' + paths[size_t(i)]);
        if (ProbeLetsDelete(paths[size_t(i)])) {
            ShellDelete(op, paths[size_t(i)]);
            // Kept: the first value, 0, lies below the bar's minimum and is
            // refused.
            Bar([i](controls::ProgressBar& bar) { bar.SetValue(i); });
        }
        // Kept: the shell's answer isn't read; what couldn't go shows only
        // as a row still there after the refill.
        AppendLogLine(kGreen, GetLanguageText("MSDEL_DELSUCC"));
        RepaintLog();
    }
    Bar([](controls::ProgressBar& bar) { bar.SetValue(bar.Min()); });
    SetMousePointer(vbDefault);
    QString refill = folder;
    RefreshAfterDelete(refill);
}

void DeleteOne(const QString& path, const QString& folder) {
    // Kept: the hourglass comes before the question here.
    SetMousePointer(vbHourglass);
    AppendLogText(GetLanguageText("MSDEL_DELETE") + u' ' + path);
    // Kept: a path without a point counts as a folder, whatever the row is.
    const bool folderText = !path.contains(u'.');
    const QString question = folderText ? GetLanguageText("MSDEL_FOLDDEL1") + u' ' + path + u' ' +
                                              GetLanguageText("MSDEL_FOLDDEL2")
                                        : GetLanguageText("MSDEL_DELETEIT1") + u' ' + path + u' ' +
                                              GetLanguageText("MSDEL_DELETEIT2");
    const int answer = MsgBox(question, vbYesNo);
    if (answer == vbYes) {
        // The bar simply stands full.
        Bar([](controls::ProgressBar& bar) {
            bar.SetMin(1);
            bar.SetMax(10);
            bar.SetValue(10);
        });
        SHFILEOPSTRUCT op;
        if (ProbeLetsDelete(path)) ShellDelete(op, path);
        Bar([](controls::ProgressBar& bar) { bar.SetValue(10); });
        AppendLogLine(kGreen, GetLanguageText("MSDEL_DELSUCC"));
        RepaintLog();
        Bar([](controls::ProgressBar& bar) { bar.SetValue(bar.Min()); });
        QString refill = folder;
        RefreshAfterDelete(refill);
    } else if (answer == vbNo) {
        AppendLogLine(kRed, GetLanguageText("MSDEL_DELCANCEL"));
    }
    SetMousePointer(vbDefault);
}

}  // namespace

void DeleteLocalSelection() {
    auto& pane = frmLocal();
    auto& list = *pane.lsvDirFile;
    const QString folder = pane.CurrentFolder();
    // Files and folders alike.
    std::vector<QString> arrDeletePaths;
    for (int i = 1; i <= list.Count(); ++i)
        if (list.Selected(i)) arrDeletePaths.push_back(folder + list.Text(i));
    if (arrDeletePaths.empty()) return;
    if (arrDeletePaths.size() == 1)
        DeleteOne(arrDeletePaths.front(), folder);
    else
        DeleteSeveral(arrDeletePaths, folder);
}

void RefreshAfterDelete(QString& pPath) {
    ViewLocalFolderWith(pPath, QStringLiteral("*.*"), DeleteReader(), SetMousePointer);
}
