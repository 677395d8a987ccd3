// Base of every form: geometry in twips and the resize hook.
//
// Twips are kept exactly as assigned while the widget still has the pixel
// size they map to, so arithmetic on Width and Height doesn't drift by the
// rounding to whole pixels. A negative size is refused and leaves the old
// value, so a layout on a tiny frame keeps the panes' last sizes.
#pragma once

#include <QWidget>
#include <functional>

namespace controls {

class Form : public QWidget {
    Q_OBJECT
public:
    explicit Form(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

    int Left() const;
    int Top() const;
    int Width() const;
    int Height() const;
    bool SetLeft(int twips);
    bool SetTop(int twips);
    bool SetWidth(int twips);
    bool SetHeight(int twips);
    // Inner size, in twips.
    int ScaleWidth() const;
    int ScaleHeight() const;

    QString Caption() const { return windowTitle(); }
    void SetCaption(const QString& c) { setWindowTitle(c); }

    // Run around the form's own resize handler by whoever places the form
    // among others, so the form itself needn't know them.
    std::function<void()> beforeResize;
    std::function<void()> afterResize;

protected:
    virtual void Form_Resize() {}
    void resizeEvent(QResizeEvent* e) override;

private:
    struct Twips {
        int value = 0;
        int pixels = -1;  // pixel value `value` was set for
    };
    int read(const Twips& t, int pixels) const;
    Twips left_, top_, width_, height_;
};

}  // namespace controls
