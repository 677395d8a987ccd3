#include "platform/controls/RichLog.h"

#include "platform/controls/colors.h"
#include "platform/controls/keys.h"
#include "platform/controls/twips.h"

#include <QMouseEvent>
#include <QTextBlock>
#include <QTextCursor>

namespace controls {

RichLog::RichLog(QWidget* parent) : QTextEdit(parent) {
    setAcceptRichText(false);
    setUndoRedoEnabled(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // No menu of the toolkit's own: it would open on the press and take the
    // release, and the logic's popup opens on the release.
    setContextMenuPolicy(Qt::PreventContextMenu);
    viewport()->setContextMenuPolicy(Qt::PreventContextMenu);
}

QString RichLog::Text() const {
    return toPlainText();
}

void RichLog::SetText(const QString& text) {
    // New text starts over in the default format with the caret in front.
    setPlainText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    QTextCursor c = textCursor();
    c.movePosition(QTextCursor::Start);
    setTextCursor(c);
}

int RichLog::SelStart() const {
    return textCursor().selectionStart();
}

void RichLog::SetSelStart(int pos) {
    QTextCursor c = textCursor();
    const int end = document()->characterCount() - 1;
    c.setPosition(qBound(0, pos, end));
    setTextCursor(c);
}

int RichLog::SelLength() const {
    const QTextCursor c = textCursor();
    return c.selectionEnd() - c.selectionStart();
}

uint32_t RichLog::SelColor() const {
    const QBrush b = currentCharFormat().foreground();
    return b.style() == Qt::NoBrush ? 0 : FromQColor(b.color());
}

void RichLog::SetSelColor(uint32_t rgb) {
    QTextCharFormat f;
    f.setForeground(ToQColor(rgb));
    mergeCurrentCharFormat(f);
}

void RichLog::SetSelText(const QString& text) {
    QTextCursor c = textCursor();
    c.insertText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n'));
    setTextCursor(c);
    ensureCursorVisible();
}

uint32_t RichLog::ColorAt(int pos) const {
    if (pos < 0 || pos >= document()->characterCount() - 1) return 0;
    QTextCursor c(document());
    c.setPosition(pos + 1);  // format of the character before the cursor
    const QBrush b = c.charFormat().foreground();
    return b.style() == Qt::NoBrush ? 0 : FromQColor(b.color());
}

void RichLog::mouseReleaseEvent(QMouseEvent* e) {
    QTextEdit::mouseReleaseEvent(e);
    if (onMouseUp) {
        const QPoint p = e->position().toPoint();
        onMouseUp(ButtonOf(e->button()), ShiftOf(e->modifiers()), ToTwips(p.x()), ToTwips(p.y()));
    }
}

}  // namespace controls
