#include "transfer/frmASCIIListe.h"

#include "language/mDataBase.h"
#include "platform/seams.h"
#include "transfer/asciiDat.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

controls::FormSlot<FrmASCIIListe> frmASCIIListe;

FrmASCIIListe::FrmASCIIListe() {
    setObjectName("frmASCIIListe");
    setModal(true);
    auto* outer = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    lstASCIIList = new QListWidget(this);
    lblHilfe = new QLabel(QStringLiteral("Im AUTO-Modus werden alle Dateien binär übertragen, sofern der jeweilige "
                                         "Dateityp hier nicht aufgeführt ist. Alle hier aufgeführten Dateitypen "
                                         "werden im ASCII-Modus übertragen."),
                          this);
    lblHilfe->setWordWrap(true);
    left->addWidget(lstASCIIList, 1);
    left->addWidget(lblHilfe);
    outer->addLayout(left, 1);
    auto* buttons = new QVBoxLayout;
    cmdAdd = new QPushButton(QStringLiteral("&Hinzufügen..."), this);
    cmdRemove = new QPushButton(QStringLiteral("&Entfernen"), this);
    cmdUebernehmen = new QPushButton(QStringLiteral("&Übernehmen"), this);
    cmdAbbrechen = new QPushButton(QStringLiteral("&Abbrechen"), this);
    for (QPushButton* b : {cmdAdd, cmdRemove}) buttons->addWidget(b);
    buttons->addStretch(1);
    for (QPushButton* b : {cmdUebernehmen, cmdAbbrechen}) buttons->addWidget(b);
    outer->addLayout(buttons);
    cmdUebernehmen->setDefault(true);
    connect(cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    connect(cmdRemove, &QPushButton::clicked, this, [this] { cmdRemove_Click(); });
    connect(cmdUebernehmen, &QPushButton::clicked, this, [this] { cmdUebernehmen_Click(); });
    connect(cmdAbbrechen, &QPushButton::clicked, this, [this] { cmdAbbrechen_Click(); });
    resize(460, 320);
}

void FrmASCIIListe::Form_Load() {
    setWindowTitle(GetLanguageText("FRMASCIILISTE_CAPTION"));
    lblHilfe->setText(GetLanguageText("FRMASCIILISTE_ASCII_HELP"));
    cmdAdd->setText(GetLanguageText("FERMASCIILISTE_ADD"));
    cmdRemove->setText(GetLanguageText("FERMASCIILISTE_REMOVE"));
    cmdUebernehmen->setText(GetLanguageText("FERMASCIILISTE_TAKE"));
    cmdAbbrechen->setText(GetLanguageText("FERMASCIILISTE_CANCEL"));
    lstASCIIList->clear();
    // Kept: an unreadable list added empty entries for ever; here the
    // dialog opens empty instead.
    QStringList entries;
    ReadAsciiDat(entries);
    lstASCIIList->addItems(entries);
}

QStringList FrmASCIIListe::Entries() const {
    QStringList out;
    for (int i = 0; i < lstASCIIList->count(); ++i) out << lstASCIIList->item(i)->text();
    return out;
}

void FrmASCIIListe::cmdAdd_Click() {
    const QString entry = InputBox(GetLanguageText("FRMASCIILISTE_NEWEXT")).toUpper();
    if (entry.isEmpty()) return;
    // Kept: an exact comparison; an entry kept in lower case by hand is not
    // found.
    if (Entries().contains(entry))
        MsgBox(GetLanguageText("FRMASCIILISTE_ENTRYDA"), vbInformation);
    else
        lstASCIIList->addItem(entry);
}

void FrmASCIIListe::cmdRemove_Click() {
    const int index = lstASCIIList->currentRow();
    if (index < 0) return;
    const QString entry = lstASCIIList->item(index)->text();
    if (MsgBox(GetLanguageText("FRMASCIILISTE_ENTRYDEL1") + u' ' + entry + u' ' +
                   GetLanguageText("FRMASCIILISTE_ENTRYDEL2"),
               vbYesNo) == vbYes)
        delete lstASCIIList->takeItem(index);
}

void FrmASCIIListe::cmdUebernehmen_Click() {
    // Kept: a list that can't be written is dropped without a word.
    WriteAsciiDat(Entries());
    done(QDialog::Accepted);
    frmASCIIListe.Unload();
}

void FrmASCIIListe::cmdAbbrechen_Click() {
    done(QDialog::Rejected);
    frmASCIIListe.Unload();
}

void ShowAsciiListModal() {
    frmASCIIListe().exec();
    // Closed by its title bar: the changes are lost as with Abbrechen.
    frmASCIIListe.Unload();
}
