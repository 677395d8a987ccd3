// Drives the real forms offscreen as a user would: the catalogue opened in
// English, message and input boxes answered from a queue, the program's end
// recorded instead of carried out. Every test starts from no forms and no
// connection.
#pragma once

#include "platform/seams.h"
#include "platform/wintypes.h"

#include <QString>
#include <QStringList>
#include <deque>
#include <gtest/gtest.h>
#include <vector>

class FtpServer;
namespace controls {
class ListView;
}

class FrameTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // The language table; "english" unless a test chooses otherwise first.
    virtual QString LanguageTable() const { return QStringLiteral("english"); }

    // Creates the frame (its load runs the whole start order).
    void StartFrame();
    // Unloads whatever forms exist and flushes their deletion.
    static void UnloadAll();
    // Lets queued events run (several turns, deferred deletes included).
    static void Pump(int turns = 3);

    // Fills the connection bar for the server (another port if given).
    static void FillBar(const FtpServer& server, const QString& port = QString());
    // Fills the bar and connects, by the menu's full connect or by Return's
    // quick one; true when a connection stands.
    static bool Connect(const FtpServer& server, bool full = false);

    // The texts of a list's rows, and the 1-based row of a text (0 if none).
    static QStringList RowTexts(const controls::ListView& list);
    static int RowOf(const controls::ListView& list, const QString& text);

    // True while the connection answers for its current directory.
    static bool Alive(HINTERNET h);

    QString LogText() const;
    // Plain text of each log line with the colour of its first character.
    struct LogLine {
        QString text;
        uint32_t colour;
    };
    std::vector<LogLine> LogLines() const;

    std::vector<seams::MessageBoxCall> boxes;  // every box shown, in order
    std::deque<int> boxAnswers;                // answers; vbOK / vbNo when empty
    std::deque<QString> inputAnswers;          // input boxes; "" when empty
    std::vector<QString> inputPrompts;
    std::vector<seams::InputBoxCall> inputBoxes;  // every input box asked, in order
    std::vector<QString> inputDefaults;
    std::vector<std::pair<QString, QString>> started;  // program, parameters
    int endCalls = 0;
};

// The same, with the frame started before each test.
class StartedFrameTest : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        StartFrame();
    }
};
