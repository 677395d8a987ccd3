// Ferrydock starts with its language dialog; everything else comes up from
// its buttons.
#include "language/frmStart.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setApplicationName(QStringLiteral("Ferrydock"));
    frmStart().show();
    return app.exec();
}
