#include "shared/openWith.h"

#include "language/mDataBase.h"
#include "platform/desktop.h"

void HandDialogTextsToDesktop() {
    desktop::DialogTexts t;
    t.propertiesTitle = GetLanguageText("SHELL_PROP_TITLE");
    t.name = GetLanguageText("SHELL_PROP_NAME");
    t.folder = GetLanguageText("SHELL_PROP_FOLDER");
    t.type = GetLanguageText("SHELL_PROP_TYPE");
    t.size = GetLanguageText("SHELL_PROP_SIZE");
    t.bytes = GetLanguageText("SHELL_PROP_BYTES");
    t.contents = GetLanguageText("SHELL_PROP_CONTENTS");
    t.items = GetLanguageText("SHELL_PROP_ITEMS");
    t.modified = GetLanguageText("SHELL_PROP_MODIFIED");
    t.accessed = GetLanguageText("SHELL_PROP_ACCESSED");
    t.permissions = GetLanguageText("SHELL_PROP_PERMISSIONS");
    t.owner = GetLanguageText("SHELL_PROP_OWNER");
    t.close = GetLanguageText("SHELL_CLOSE");
    t.openWithTitle = GetLanguageText("SHELL_OPENWITH_TITLE");
    t.openWithPrompt = GetLanguageText("SHELL_OPENWITH_PROMPT");
    t.otherProgram = GetLanguageText("SHELL_OPENWITH_OTHER");
    t.browse = GetLanguageText("SHELL_OPENWITH_BROWSE");
    t.ok = GetLanguageText("SHELL_OK");
    t.cancel = GetLanguageText("SHELL_CANCEL");
    desktop::SetDialogTexts(t);
}

void OpenLocalFileWith(const QString& sFile) {
    HandDialogTextsToDesktop();
    // Unquoted: the entry point takes the rest of the line as the file.
    Shell(QStringLiteral("rundll32.exe shell32.dll, OpenAs_RunDLL ") + sFile, vbMinimizedFocus);
}
