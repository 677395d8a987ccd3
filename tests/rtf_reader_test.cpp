// The reader of the agreement text: the shipped file and the pieces of rich
// text it is made of.
#include "language/rtf_reader.h"
#include "platform/localfs.h"

#include <QFile>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <gtest/gtest.h>
#include <memory>

namespace {

std::unique_ptr<QTextDocument> Render(const QByteArray& rtf) {
    auto doc = std::make_unique<QTextDocument>();
    doc->setHtml(RtfToHtml(rtf));
    return doc;
}

QString Plain(const QByteArray& rtf) {
    return Render(rtf)->toPlainText();
}

// The format of the first character of `text` in the document.
QTextCharFormat FormatOf(const QTextDocument& doc, const QString& text) {
    const int at = doc.toPlainText().indexOf(text);
    EXPECT_GE(at, 0) << text.toStdString();
    QTextCursor c(const_cast<QTextDocument*>(&doc));
    c.setPosition(at + 1);
    return c.charFormat();
}

bool Bold(const QTextDocument& doc, const QString& text) {
    return FormatOf(doc, text).fontWeight() >= QFont::Bold;
}

QByteArray ShippedAgreement() {
    QFile f(QStringLiteral(FERRYDOCK_SOURCE_DIR "/data/Dateien/la.rtf"));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    return f.readAll();
}

TEST(RtfReader, TheShippedAgreementReadsInBothLanguages) {
    const auto doc = Render(ShippedAgreement());
    const QString text = doc->toPlainText();
    EXPECT_TRUE(text.contains("Ferrydock \u2013 Licence Agreement"));  // \'96 is cp1252's en dash
    EXPECT_TRUE(text.contains("Ferrydock \u2013 Lizenzvereinbarung"));
    EXPECT_TRUE(text.contains("Copyright \u00a9 2026 Brackhaven Laboratories"));
    EXPECT_TRUE(text.contains("Sie d\u00fcrfen Ferrydock"));
    EXPECT_FALSE(text.contains("Arial"));
    EXPECT_FALSE(text.contains('\\'));
    EXPECT_FALSE(text.contains('{'));
    EXPECT_TRUE(text.startsWith("Ferrydock"));  // nothing of the font or colour table before it
    EXPECT_TRUE(Bold(*doc, "Ferrydock \u2013 Licence"));
    EXPECT_TRUE(Bold(*doc, "1. Use."));
    EXPECT_FALSE(Bold(*doc, "You may install"));
    EXPECT_TRUE(FormatOf(*doc, "Please read").fontItalic());
    EXPECT_EQ(FormatOf(*doc, "Ferrydock \u2013 Licence").foreground().color(), QColor(28, 71, 138));
    EXPECT_GT(doc->blockCount(), 10);
}

TEST(RtfReader, LoadingShowsTheFileOrLeavesTheTargetEmpty) {
    QTextEdit edit;
    EXPECT_TRUE(LoadRtfFile(localfs::ToWindows(FERRYDOCK_PROGRAM_DIR "/Dateien/la.rtf"), &edit));
    EXPECT_TRUE(edit.toPlainText().contains("Brackhaven Laboratories"));
    EXPECT_FALSE(LoadRtfFile(localfs::ToWindows(FERRYDOCK_PROGRAM_DIR "/Dateien/missing.rtf"), &edit));
    EXPECT_TRUE(edit.toPlainText().isEmpty());
}

TEST(RtfReader, BoldItalicAndUnderlineHoldForTheirGroupAndNoLonger) {
    const auto doc = Render("{\\rtf1 plain {\\b bold {\\i both} bold again} {\\ul under\\ul0 over} \\b on\\b0 off}");
    EXPECT_FALSE(Bold(*doc, "plain"));
    EXPECT_TRUE(Bold(*doc, "bold "));
    EXPECT_TRUE(Bold(*doc, "both"));
    EXPECT_TRUE(FormatOf(*doc, "both").fontItalic());
    EXPECT_TRUE(Bold(*doc, "bold again"));
    EXPECT_FALSE(FormatOf(*doc, "bold again").fontItalic());
    EXPECT_TRUE(FormatOf(*doc, "under").fontUnderline());
    EXPECT_FALSE(FormatOf(*doc, "over").fontUnderline());
    EXPECT_FALSE(Bold(*doc, "over"));
    EXPECT_TRUE(Bold(*doc, "on"));
    EXPECT_FALSE(Bold(*doc, "off"));
    EXPECT_EQ(doc->toPlainText(), "plain bold both bold again underover onoff");
}

TEST(RtfReader, SizesAndColoursFollowTheirTables) {
    const auto doc = Render(
        "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red0\\green128\\blue255;}"
        "\\fs20 small {\\fs40\\cf2 big} {\\cf1 red} \\cf0 auto}");
    EXPECT_DOUBLE_EQ(FormatOf(*doc, "small").fontPointSize(), 10);
    EXPECT_DOUBLE_EQ(FormatOf(*doc, "big").fontPointSize(), 20);
    EXPECT_EQ(FormatOf(*doc, "big").foreground().color(), QColor(0, 128, 255));
    EXPECT_EQ(FormatOf(*doc, "red").foreground().color(), QColor(255, 0, 0));
    EXPECT_DOUBLE_EQ(FormatOf(*doc, "red").fontPointSize(), 10);
    EXPECT_NE(FormatOf(*doc, "auto").foreground().color(), QColor(255, 0, 0));
    EXPECT_EQ(doc->toPlainText(), "small big red auto");
}

TEST(RtfReader, EscapesGiveTheirCharacters) {
    EXPECT_EQ(Plain("{\\rtf1\\ansi\\ansicpg1252 Gr\\'fc\\'dfe \\'80 \\'e9t\\'e9}"), "Gr\u00fc\u00dfe \u20ac \u00e9t\u00e9");
    EXPECT_EQ(Plain("{\\rtf1 \\u8364? und \\u252?ber}"), "\u20ac und \u00fcber");
    // \uc counts fallback characters, an escape being one, and holds for its group.
    EXPECT_EQ(Plain("{\\rtf1\\uc2 \\u8364??x {\\uc0 \\u8364 y}\\u8364\\'80\\'80z}"), "\u20acx \u20acy\u20acz");
    EXPECT_EQ(Plain("{\\rtf1 \\u-3913?}"), QString(QChar(0xF0B7)));
    EXPECT_EQ(Plain("{\\rtf1 a \\\\ b \\{c\\} <d> & e}"), "a \\ b {c} <d> & e");
}

TEST(RtfReader, DestinationsAndTablesStayOutOfTheText) {
    const QString text = Plain(
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Arial;}{\\f1 Times New Roman;}}"
        "{\\*\\generator Writer 1.0;}{\\info{\\title Secret}{\\author Someone}}"
        "{\\stylesheet{\\s0 Normal;}}\\f0 visible{\\*\\unknown hidden} text}");
    EXPECT_EQ(text, "visible text");
}

TEST(RtfReader, ParagraphsAndLinesBreakTheText) {
    const auto doc = Render("{\\rtf1 one\\par two\\line three\\par\\par four\\\nfive}");
    EXPECT_EQ(doc->toPlainText(), "one\ntwo\nthree\n\nfour\nfive");
}

}  // namespace
