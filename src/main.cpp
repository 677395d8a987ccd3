// Ferrydock starts with its language dialog; everything else comes up from
// its buttons.
#include "frame/frmStart.h"
#include "platform/tempfolder.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setApplicationName(QStringLiteral("Ferrydock"));
    // What a run that died left in the temporary folder goes now.
    tempfolder::RemoveStale();
    frmStart().show();
    return app.exec();
}
