#include "frame/frmStart.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "language/rtf_reader.h"
#include "platform/seams.h"
#include "platform/shell.h"
#include "shared/mPublic.h"

#include <QHBoxLayout>
#include <QStackedLayout>
#include <QVBoxLayout>

controls::FormSlot<FrmStart> frmStart;

namespace {
QLabel* InfoLabel(const QString& text, QWidget* parent, int pointSize) {
    auto* l = new QLabel(text, parent);
    QFont f(QStringLiteral("Arial"));
    f.setPointSize(pointSize);
    l->setFont(f);
    return l;
}
}  // namespace

FrmStart::FrmStart() {
    setObjectName(QStringLiteral("frmStart"));
    // Written in all languages at once: none has been chosen yet.
    setWindowTitle(QStringLiteral("Bitte wählen Sie Ihre Sprache"));
    shell::EnsureIconTheme();
    setWindowIcon(shell::BundledIcon(QStringLiteral("app")));

    auto* outer = new QHBoxLayout(this);
    picLinks = new QLabel(this);
    picLinks->setPixmap(shell::BundledIcon(QStringLiteral("start-banner")).pixmap(160, 300));
    outer->addWidget(picLinks);

    auto* right = new QVBoxLayout;
    outer->addLayout(right, 1);
    tabStart = new QTabBar(this);
    tabStart->addTab(QStringLiteral("Sprache/Language/Langue/Idioma"));
    tabStart->addTab(QStringLiteral("Lizenzvereinbarungen/Licence Agreement"));
    tabStart->addTab(QStringLiteral("Info ..."));
    // All three tabs show at once, without scroll arrows: the dialog is at
    // least as wide as they are.
    tabStart->setExpanding(false);
    tabStart->setUsesScrollButtons(false);
    tabStart->setMinimumWidth(tabStart->sizeHint().width());
    right->addWidget(tabStart);

    pages = new QStackedLayout;
    right->addLayout(pages, 1);

    picSprache = new QWidget(this);
    auto* p1 = new QVBoxLayout(picSprache);
    Label1 = new QLabel(QStringLiteral("Bitte wählen Sie Ihre Sprache:"), picSprache);
    Label2 = new QLabel(QStringLiteral("Please select Your language:"), picSprache);
    Label3 = new QLabel(QStringLiteral("Choisir votre langue, s'il vous plaît:"), picSprache);
    Label4 = new QLabel(QStringLiteral("Por savor escoja su idioma:"), picSprache);
    for (QLabel* l : {Label1, Label2, Label3, Label4}) p1->addWidget(l);
    cboSprache = new controls::ComboBox(picSprache);
    p1->addWidget(cboSprache);
    p1->addStretch(1);
    pages->addWidget(picSprache);

    picLizenzvereinbarungen = new QWidget(this);
    auto* p2 = new QVBoxLayout(picLizenzvereinbarungen);
    rtfLizenzvereinbarungen = new QTextEdit(picLizenzvereinbarungen);
    rtfLizenzvereinbarungen->setReadOnly(true);
    p2->addWidget(rtfLizenzvereinbarungen);
    pages->addWidget(picLizenzvereinbarungen);

    picInfo = new QWidget(this);
    auto* p3 = new QVBoxLayout(picInfo);
    Label5 = InfoLabel(QStringLiteral("Ferrydock"), picInfo, 20);
    Label7 = InfoLabel(QStringLiteral("Release 1 Version 3"), picInfo, 10);
    Label6 = InfoLabel(QStringLiteral("Copyright © 2026 Brackhaven Laboratories"), picInfo, 9);
    Label8 = InfoLabel(QStringLiteral("All Rights Reserved."), picInfo, 9);
    Label9 = InfoLabel(QStringLiteral("https://ferrydock.brackhaven.example"), picInfo, 9);
    for (QLabel* l : {Label5, Label7, Label6, Label8, Label9}) p3->addWidget(l);
    p3->addStretch(1);
    pages->addWidget(picInfo);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    cmdOk = new QPushButton(QStringLiteral("Ok"), this);
    cmdOk->setDefault(true);
    cmdAbbrechen = new QPushButton(QStringLiteral("Abbrechen"), this);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdAbbrechen);
    right->addLayout(buttons);

    connect(tabStart, &QTabBar::currentChanged, this, [this](int) { tabStart_Click(); });
    connect(cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    connect(cmdAbbrechen, &QPushButton::clicked, this, [this] { cmdAbbrechen_Click(); });
    resize(720, 380);
}

void FrmStart::Form_Load() {
    OpenLanguageDatabase(LanguageDatabasePath());
    cboSprache->Clear();
    for (const LanguageRow& row : ReadLanguages(30)) cboSprache->AddItem(row.displayName);
    // Kept: with fewer than three languages the assignment fails and
    // nothing is chosen.
    cboSprache->SetListIndex(2);
    LoadRtfFile(AppPath() + QStringLiteral("\\Dateien\\la.rtf"), rtfLizenzvereinbarungen);
}

void FrmStart::tabStart_Click() {
    // The page of the chosen tab is the one shown; the others are hidden.
    QWidget* const page[] = {picSprache, picLizenzvereinbarungen, picInfo};
    const int tab = tabStart->currentIndex();
    if (tab >= 0 && tab < 3) pages->setCurrentWidget(page[tab]);
}

void FrmStart::cmdOk_Click() {
    hide();
    // Kept: up to 20 rows, fewer than the 30 the list may show; a language
    // beyond the twentieth can be listed but not chosen.
    const std::vector<LanguageRow> rows = ReadLanguages(20);
    const QString chosen = cboSprache->List(cboSprache->ListIndex());
    for (const LanguageRow& row : rows) {
        if (row.displayName == chosen) {
            sLanguageTable = row.tableName.trimmed();
            break;
        }
    }
    mdiMain().show();
    frmStart.Unload();
}

void FrmStart::cmdAbbrechen_Click() {
    // Kept: the language database isn't closed first.
    frmStart.Unload();
    EndProgram();
}
