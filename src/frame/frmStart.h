// The language dialog that opens every run.
#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/FormSlot.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QTabBar>
#include <QTextEdit>

class FrmStart : public QDialog {
    Q_OBJECT
public:
    FrmStart();
    void Form_Load();
    void Form_Unload() {}

    QLabel* picLinks = nullptr;
    QTabBar* tabStart = nullptr;
    QWidget* picSprache = nullptr;
    controls::ComboBox* cboSprache = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label4 = nullptr;
    QWidget* picLizenzvereinbarungen = nullptr;
    QTextEdit* rtfLizenzvereinbarungen = nullptr;
    QWidget* picInfo = nullptr;
    QLabel* Label5 = nullptr;
    QLabel* Label6 = nullptr;
    QLabel* Label7 = nullptr;
    QLabel* Label8 = nullptr;
    QLabel* Label9 = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdAbbrechen = nullptr;

    void tabStart_Click();
    void cmdOk_Click();
    void cmdAbbrechen_Click();

private:
    QStackedLayout* pages = nullptr;
};

extern controls::FormSlot<FrmStart> frmStart;
