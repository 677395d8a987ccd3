// The server pane of a started frame, as its tests look at it.
#pragma once

#include "support/frame_fixture.h"
#include "support/ftp_server.h"

#include "language/frmTransferHistory.h"
#include "server/frmServer.h"
#include "shared/mPublic.h"

#include <QStringList>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

class ServerPaneTest : public StartedFrameTest {
protected:
    // Connected by the full connect; the pane shows the server's "/".
    void ConnectTo(const FtpServer& s) { ASSERT_TRUE(Connect(s, /*full=*/true)); }
    // Connected, the pane in the server's own folder (vsftpd's "/" is the
    // machine's), the log empty.
    void ConnectInRoot(const FtpServer& s) {
        ConnectTo(s);
        if (s.serverRoot() != "/") {
            ASSERT_TRUE(SetServerDirectory(s.serverRoot()));
            frmServer().RefreshServer(hConnection);
        }
        frmTransferHistory().rtfTransferHistory->SetText("");
    }
    static controls::ListView& list() { return *frmServer().lsvServer; }
    static controls::ComboBox& combo() { return *frmServer().cboServer; }
    static QStringList Rows() { return RowTexts(list()); }
    static int RowOf(const QString& text) { return FrameTest::RowOf(list(), text); }
    static QStringList ComboItems() {
        QStringList items;
        for (int i = 0; i < combo().ListCount(); ++i) items << combo().List(i);
        return items;
    }

    // The log's lines as "text|colour", the colours named black, green, red.
    QStringList ColouredLog() const {
        QStringList out;
        for (const LogLine& l : LogLines()) {
            const char* colour = l.colour == kGreen ? "green" : l.colour == kRed ? "red" : l.colour == kBlack ? "black" : "?";
            out << l.text + "|" + colour;
        }
        return out;
    }

    // The list's report view, where the user clicks and types.
    static QTreeView& view() { return *list().findChild<QTreeView*>(); }
    // A click on a row by its text, with Ctrl to add it to the selection.
    static void ClickRow(const QString& text, Qt::KeyboardModifiers modifiers = {}) {
        const int row = RowOf(text);
        ASSERT_GT(row, 0) << text.toStdString();
        const QModelIndex index = view().model()->index(row - 1, 0);
        view().scrollTo(index);
        QTest::mouseClick(view().viewport(), Qt::LeftButton, modifiers, view().visualRect(index).center());
    }
    static void PressKey(Qt::Key key) {
        view().setFocus();
        QTest::keyClick(&view(), key);
    }
    // A click on a button of the pane's command toolbar.
    static void ClickButton(const QString& key) {
        controls::Toolbar& bar = *frmServer().tlbServerLinks;
        QWidget* button = bar.widgetForAction(bar.Button(key)->action);
        ASSERT_NE(button, nullptr) << key.toStdString();
        QTest::mouseClick(button, Qt::LeftButton);
    }
};
