#include "platform/controls/TextBox.h"

#include "platform/controls/colors.h"
#include "platform/controls/keys.h"

#include <QKeyEvent>
#include <QProxyStyle>
#include <QTimer>

namespace controls {

namespace {
// The desktop's style, but with the mask character asked for and no delay
// before a typed character is hidden.
class MaskStyle : public QProxyStyle {
public:
    explicit MaskStyle(QChar mask) : mask_(mask) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override {
        if (hint == SH_LineEdit_PasswordCharacter) return mask_.unicode();
        if (hint == SH_LineEdit_PasswordMaskDelay) return 0;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }

private:
    QChar mask_;
};
}  // namespace

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {}

void TextBox::SetPasswordChar(QChar c) {
    if (c.isNull()) {
        setEchoMode(QLineEdit::Normal);
        return;
    }
    auto* style = new MaskStyle(c);
    style->setParent(this);
    setStyle(style);
    setEchoMode(QLineEdit::Password);
}

void TextBox::SetSelStart(int pos) {
    setCursorPosition(qBound(0, pos, int(text().size())));
}

void TextBox::SetSelLength(int length) {
    const int start = cursorPosition();
    setSelection(start, qBound(0, length, int(text().size()) - start));
}

void TextBox::SetBackColor(uint32_t rgb) {
    backColor_ = rgb;
    QPalette p = palette();
    p.setColor(QPalette::Base, ToQColor(rgb));
    setPalette(p);
}

bool TextBox::event(QEvent* e) {
    // Tab never reaches keyPressEvent: the focus chain takes it first.
    if (e->type() == QEvent::KeyPress) {
        auto* ke = static_cast<QKeyEvent*>(e);
        int code = KeyCodeOf(ke);
        if (onKeyDown && code != 0) {
            onKeyDown(code, ShiftOf(ke));
            if (code == 0) return true;
            if (code == vbKeyTab && (ke->key() == Qt::Key_Tab || ke->key() == Qt::Key_Backtab)) {
                // The handler may have moved the focus itself.
                if (!hasFocus()) return true;
            }
        }
    }
    return QLineEdit::event(e);
}

void TextBox::focusInEvent(QFocusEvent* e) {
    QLineEdit::focusInEvent(e);
    if (onGotFocus) {
        onGotFocus();
        // A mouse focus would otherwise drop the selection the handler made.
        if (e->reason() == Qt::MouseFocusReason) {
            const int start = selectionStart();
            const int len = selectedText().size();
            QTimer::singleShot(0, this, [this, start, len] {
                if (start >= 0 && hasFocus()) setSelection(start, len);
            });
        }
    }
}

void TextBox::focusOutEvent(QFocusEvent* e) {
    QLineEdit::focusOutEvent(e);
    if (onLostFocus) onLostFocus();
}

void TextBox::mouseReleaseEvent(QMouseEvent* e) {
    QLineEdit::mouseReleaseEvent(e);
    if (onClick) onClick();
}

}  // namespace controls
