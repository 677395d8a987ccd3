// The dialog that keeps the list of ASCII extensions (ascii.dat).
#pragma once

#include "platform/controls/FormSlot.h"

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

class FrmASCIIListe : public QDialog {
    Q_OBJECT
public:
    FrmASCIIListe();
    void Form_Load();
    void Form_Unload() {}

    QListWidget* lstASCIIList = nullptr;
    QLabel* lblHilfe = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdRemove = nullptr;
    QPushButton* cmdUebernehmen = nullptr;
    QPushButton* cmdAbbrechen = nullptr;

    QStringList Entries() const;

    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdUebernehmen_Click();
    void cmdAbbrechen_Click();
};

extern controls::FormSlot<FrmASCIIListe> frmASCIIListe;

// Opens the dialog modally (menu entry and the connection toolbar).
void ShowAsciiListModal();
