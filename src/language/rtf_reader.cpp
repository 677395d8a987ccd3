#include "language/rtf_reader.h"

#include "platform/fileio.h"

#include <QTextEdit>
#include <cctype>
#include <cstring>
#include <vector>

namespace {

struct State {
    bool bold = false, italic = false, underline = false;
    int halfPoints = 24;
    int colour = 0;
    bool skip = false;  // inside a destination that isn't text
    int ucSkip = 1;
};

// RTF paragraphs have no spacing of their own; HTML's would double every gap.
const QString kParagraph = QStringLiteral("<p style=\"margin-top:0px; margin-bottom:0px;\">");
const QString kEmptyParagraph =
    QStringLiteral("<p style=\"-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px;\"><br/></p>");

QString Escape(QChar c) {
    switch (c.unicode()) {
    case '<': return QStringLiteral("&lt;");
    case '>': return QStringLiteral("&gt;");
    case '&': return QStringLiteral("&amp;");
    default: return QString(c);
    }
}

class Reader {
public:
    explicit Reader(const QByteArray& in) : in_(in) {}

    QString Run() {
        std::vector<State> stack{State{}};
        QString html = QStringLiteral("<html><body>");
        bool paragraphOpen = false;
        int pendingSkip = 0;
        const auto emitRun = [&](const QString& text) {
            State& s = stack.back();
            if (s.skip || text.isEmpty()) return;
            if (!paragraphOpen) {
                html += kParagraph;
                paragraphOpen = true;
            }
            QString style = QStringLiteral("font-size:%1pt;").arg(s.halfPoints / 2.0);
            if (s.bold) style += QStringLiteral("font-weight:bold;");
            if (s.italic) style += QStringLiteral("font-style:italic;");
            if (s.underline) style += QStringLiteral("text-decoration:underline;");
            if (s.colour > 0 && s.colour < int(colours_.size())) style += QStringLiteral("color:") + colours_[size_t(s.colour)] + QStringLiteral(";");
            html += QStringLiteral("<span style=\"") + style + QStringLiteral("\">") + text + QStringLiteral("</span>");
        };
        // An empty \par still takes a line, as it does in a word processor.
        const auto endParagraph = [&] {
            html += paragraphOpen ? QStringLiteral("</p>") : kEmptyParagraph;
            paragraphOpen = false;
        };
        QString run;
        const auto flush = [&] {
            emitRun(run);
            run.clear();
        };
        while (pos_ < in_.size()) {
            const char c = in_[pos_++];
            if (c == '{') {
                flush();
                stack.push_back(stack.back());
                if (Peek("\\*")) stack.back().skip = true;
            } else if (c == '}') {
                flush();
                pendingSkip = 0;  // a \u fallback never reaches past its group
                if (stack.size() > 1) stack.pop_back();
            } else if (c == '\\') {
                if (pos_ >= in_.size()) break;
                const char n = in_[pos_];
                if (n == '\\' || n == '{' || n == '}') {
                    ++pos_;
                    if (pendingSkip > 0) --pendingSkip; else run += Escape(QLatin1Char(n));
                } else if (n == '\'') {
                    pos_++;
                    bool ok = false;
                    const int v = QByteArray(in_.mid(pos_, 2)).toInt(&ok, 16);
                    pos_ += 2;
                    if (pendingSkip > 0) { --pendingSkip; continue; }
                    if (ok && v > 0) run += Escape(FromCp1252(uint8_t(v)));
                } else if (n == '*') {
                    ++pos_;
                    stack.back().skip = true;
                } else if (n == '\r' || n == '\n') {
                    ++pos_;  // a backslash before a line break is a paragraph
                    flush();
                    if (!stack.back().skip) endParagraph();
                } else if (!isalpha(uchar(n))) {
                    ++pos_;  // control symbols such as \~ or \-
                    if (n == '~') run += QStringLiteral("&nbsp;");
                    if (n == '_') run += QChar(0x2011);
                } else {
                    QByteArray word;
                    while (pos_ < in_.size() && isalpha(uchar(in_[pos_]))) word += in_[pos_++];
                    bool hasArg = false;
                    int arg = 0;
                    if (pos_ < in_.size() && (in_[pos_] == '-' || isdigit(uchar(in_[pos_])))) {
                        QByteArray num;
                        num += in_[pos_++];
                        while (pos_ < in_.size() && isdigit(uchar(in_[pos_]))) num += in_[pos_++];
                        arg = num.toInt();
                        hasArg = true;
                    }
                    if (pos_ < in_.size() && in_[pos_] == ' ') ++pos_;
                    State& s = stack.back();
                    if (word == "par" || word == "line") {
                        flush();
                        if (word == "line") {
                            if (!s.skip) html += QStringLiteral("<br/>");
                        } else if (!s.skip) {
                            endParagraph();
                        }
                    } else if (word == "b" || word == "i" || word == "ul" || word == "ulnone" || word == "fs" ||
                               word == "cf" || word == "plain") {
                        flush();
                        if (word == "b") s.bold = !hasArg || arg != 0;
                        if (word == "i") s.italic = !hasArg || arg != 0;
                        if (word == "ul") s.underline = !hasArg || arg != 0;
                        if (word == "ulnone") s.underline = false;
                        if (word == "fs" && hasArg) s.halfPoints = arg;
                        if (word == "cf") s.colour = arg;
                        if (word == "plain") s.bold = s.italic = s.underline = false, s.halfPoints = 24, s.colour = 0;
                    } else if (word == "fonttbl" || word == "info" || word == "stylesheet" || word == "pict" ||
                               word == "header" || word == "footer") {
                        s.skip = true;
                    } else if (word == "colortbl") {
                        flush();
                        ReadColourTable();
                        stack.pop_back();
                        if (stack.empty()) stack.push_back(State{});
                    } else if (word == "uc" && hasArg) {
                        s.ucSkip = arg;
                    } else if (word == "u" && hasArg) {
                        run += Escape(QChar(char16_t(arg < 0 ? arg + 65536 : arg)));
                        pendingSkip = s.ucSkip;
                    } else if (word == "tab") {
                        run += QStringLiteral("&nbsp;&nbsp;&nbsp;&nbsp;");
                    } else if (word == "bullet") {
                        run += QChar(0x2022);
                    } else if (word == "emdash") {
                        run += QChar(0x2014);
                    } else if (word == "endash") {
                        run += QChar(0x2013);
                    }
                }
            } else if (c == '\r' || c == '\n') {
                continue;
            } else {
                if (pendingSkip > 0) { --pendingSkip; continue; }
                run += Escape(FromCp1252(uchar(c)));
            }
        }
        flush();
        if (paragraphOpen) html += QStringLiteral("</p>");
        return html + QStringLiteral("</body></html>");
    }

private:
    bool Peek(const char* s) const { return in_.mid(pos_, qsizetype(strlen(s))) == s; }

    // The file declares \ansicpg1252; it differs from Latin-1 only in 0x80..0x9F.
    static QChar FromCp1252(uint8_t v) {
        if (v < 0x80 || v > 0x9F) return QChar(char16_t(v));
        static const char16_t table[32] = {0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F,
                                           0x90, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178};
        return QChar(table[v - 0x80]);
    }

    // "\red0\green0\blue0;" entries up to the group's end; entry 0 is "auto".
    void ReadColourTable() {
        int r = 0, g = 0, b = 0;
        colours_.clear();
        while (pos_ < in_.size() && in_[pos_] != '}') {
            const char c = in_[pos_++];
            if (c == ';') {
                colours_.push_back(QStringLiteral("#%1%2%3").arg(r, 2, 16, QChar(u'0')).arg(g, 2, 16, QChar(u'0')).arg(b, 2, 16, QChar(u'0')));
                r = g = b = 0;
            } else if (c == '\\') {
                QByteArray word;
                while (pos_ < in_.size() && isalpha(uchar(in_[pos_]))) word += in_[pos_++];
                QByteArray num;
                while (pos_ < in_.size() && isdigit(uchar(in_[pos_]))) num += in_[pos_++];
                if (word == "red") r = num.toInt();
                if (word == "green") g = num.toInt();
                if (word == "blue") b = num.toInt();
            }
        }
        if (pos_ < in_.size()) ++pos_;  // the closing brace
    }

    QByteArray in_;
    qsizetype pos_ = 0;
    std::vector<QString> colours_;
};

}  // namespace

QString RtfToHtml(const QByteArray& rtf) {
    return Reader(rtf).Run();
}

bool LoadRtfFile(const QString& windowsPath, QTextEdit* target) {
    if (!target) return false;
    QByteArray rtf;
    if (!ReadWholeFile(windowsPath, rtf)) {
        target->clear();
        return false;
    }
    target->setHtml(RtfToHtml(rtf));
    return true;
}
