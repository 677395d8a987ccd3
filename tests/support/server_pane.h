// The server pane of a started frame, as its tests look at it.
#pragma once

#include "support/frame_fixture.h"
#include "support/ftp_server.h"

#include "server/frmServer.h"

#include <QStringList>

class ServerPaneTest : public StartedFrameTest {
protected:
    // Connected by the full connect; the pane shows the server's "/".
    void ConnectTo(const FtpServer& s) { ASSERT_TRUE(Connect(s, /*full=*/true)); }
    static controls::ListView& list() { return *frmServer().lsvServer; }
    static controls::ComboBox& combo() { return *frmServer().cboServer; }
    static QStringList Rows() { return RowTexts(list()); }
    static int RowOf(const QString& text) { return FrameTest::RowOf(list(), text); }
    static QStringList ComboItems() {
        QStringList items;
        for (int i = 0; i < combo().ListCount(); ++i) items << combo().List(i);
        return items;
    }
};
