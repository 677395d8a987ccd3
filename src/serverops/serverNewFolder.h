// A new folder in the server's current directory. The frame menu, the
// pane's popup and the pane's toolbar each have their copy, with their own
// texts and steps around the one FTP call.
#pragma once

struct NewFolderPlace {
    const char* prompt;     // catalogue keys
    const char* logFirst;
    const char* logSecond;
    const char* success;
    const char* failure;
    bool reconnectFirst;    // a new connection before the box, kept if cancelled
    bool paneRefresh;       // the pane's own refresh rather than the public one
};

// The menu's and the popup's copies.
inline constexpr NewFolderPlace kMenuNewFolder{"FRMPUSERVER_FOLDNAME", "FRMPUSERVER_DIRNEW1", "FRMPUSERVER_DIRNEW2",
                                               "FRMPUSERVER_DIROK", "FRMPUSERVER_DIRFAILED", false, false};
// The toolbar's "new".
inline constexpr NewFolderPlace kToolbarNewFolder{"FRMSERVER_DIRNAME", "FRMSERVER_NEWDIR1", "FRMSERVER_NEWDIR2",
                                                  "FRMSERVER_GENOK", "FRMSERVER_GENFAIL", true, true};

// Asks for the name and makes the folder relative to the current
// directory, the name going as typed. No guard: the callers that have one
// test the connection first.
void NewServerFolder(const NewFolderPlace& place);
