// A one-line text box with the events the connection bar relies on:
// GotFocus, LostFocus, Click and KeyDown (Tab included).
#pragma once

#include <QLineEdit>
#include <functional>

namespace controls {

class TextBox : public QLineEdit {
    Q_OBJECT
public:
    explicit TextBox(QWidget* parent = nullptr);

    QString Text() const { return text(); }
    void SetText(const QString& t) { setText(t); }
    bool Enabled() const { return isEnabled(); }
    void SetEnabled(bool e) { setEnabled(e); }
    void SetFocus() { setFocus(Qt::OtherFocusReason); }
    void SetSelStart(int pos);
    void SetSelLength(int length);
    // RGB as the logic writes colours (red in the low byte).
    void SetBackColor(uint32_t rgb);
    // PasswordChar: every character shows as `c` at once; a null character
    // shows the text.
    void SetPasswordChar(QChar c);
    uint32_t BackColor() const { return backColor_; }

    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;
    std::function<void()> onClick;
    std::function<void(int& keyCode, int shift)> onKeyDown;

protected:
    bool event(QEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    uint32_t backColor_ = 0xFFFFFF;
};

}  // namespace controls
