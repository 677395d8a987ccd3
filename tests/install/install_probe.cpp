// Run from an installed program folder: starts the real forms and prints
// what they found there, one `name=value` line each, for install_test.sh.
// Then adds ZZPROBE to the ASCII list as a user does and prints the list
// read back.
#include "frame/mdiMain.h"
#include "frame/frmStart.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/seams.h"
#include "transfer/asciiDat.h"
#include "transfer/frmASCIIListe.h"

#include <QApplication>
#include <cstdio>

namespace {
void Print(const char* name, const QString& value) {
    std::printf("%s=%s\n", name, value.toUtf8().constData());
}
}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    seams::SetEndHandler([] {});
    seams::SetMsgBoxHandler([](const seams::MessageBoxCall& call) {
        Print("box", call.prompt);
        return vbOK;
    });
    seams::SetInputBoxHandler([](const seams::InputBoxCall&) { return QStringLiteral("zzprobe"); });

    auto& start = frmStart();
    QStringList languages;
    for (int i = 0; i < start.cboSprache->ListCount(); ++i) languages << start.cboSprache->List(i);
    Print("catalogue", localfs::ToPosix(LanguageDatabasePath()));
    Print("languages", languages.join('|'));
    Print("agreement", start.rtfLizenzvereinbarungen->toPlainText().section('\n', 0, 0));
    start.cmdOk->click();

    auto& ascii = frmASCIIListe();
    Print("ascii-title", ascii.windowTitle());
    Print("ascii-file", localfs::ToPosix(AsciiDatPath()));
    Print("ascii", ascii.Entries().join('|'));
    ascii.cmdAdd->click();
    ascii.cmdUebernehmen->click();
    QStringList saved;
    ReadAsciiDat(saved);
    Print("saved", saved.join('|'));
    std::fflush(stdout);
    return 0;
}
