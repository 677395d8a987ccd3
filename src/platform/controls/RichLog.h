// The rich-text log control: Text, SelStart, SelColor and SelText. Moving
// the caret takes over the format of the text
// before it, so a colour set before a caret move can be lost; callers that
// set SelColor first and move afterwards get exactly that.
#pragma once

#include <QTextEdit>
#include <functional>

namespace controls {

class RichLog : public QTextEdit {
    Q_OBJECT
public:
    explicit RichLog(QWidget* parent = nullptr);

    // Plain text, lines separated by "\n".
    QString Text() const;
    void SetText(const QString& text);
    int SelStart() const;
    void SetSelStart(int pos);
    int SelLength() const;
    // RGB with red in the low byte, as the logic writes colours.
    uint32_t SelColor() const;
    void SetSelColor(uint32_t rgb);
    // Inserts at the caret (replacing a selection); CRLF becomes a line break.
    void SetSelText(const QString& text);

    // Colour of the character at a plain-text position, for tests and the
    // clipboard; black when out of range.
    uint32_t ColorAt(int pos) const;

    std::function<void(int button, int shift, int x, int y)> onMouseUp;

protected:
    void mouseReleaseEvent(QMouseEvent* e) override;
};

}  // namespace controls
