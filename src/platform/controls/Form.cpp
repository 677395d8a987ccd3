#include "platform/controls/Form.h"

#include "platform/controls/twips.h"

namespace controls {

Form::Form(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags) {}

int Form::read(const Twips& t, int pixels) const {
    return t.pixels == pixels ? t.value : ToTwips(pixels);
}

int Form::Left() const { return read(left_, x()); }
int Form::Top() const { return read(top_, y()); }
int Form::Width() const { return read(width_, width()); }
int Form::Height() const { return read(height_, height()); }

bool Form::SetLeft(int twips) {
    left_ = {twips, ToPixels(twips)};
    move(ToPixels(twips), y());
    return true;
}

bool Form::SetTop(int twips) {
    top_ = {twips, ToPixels(twips)};
    move(x(), ToPixels(twips));
    return true;
}

bool Form::SetWidth(int twips) {
    if (twips < 0) return false;
    width_ = {twips, ToPixels(twips)};
    resize(ToPixels(twips), height());
    return true;
}

bool Form::SetHeight(int twips) {
    if (twips < 0) return false;
    height_ = {twips, ToPixels(twips)};
    resize(width(), ToPixels(twips));
    return true;
}

int Form::ScaleWidth() const {
    return width() == ToPixels(Width()) ? Width() - ToTwips(width() - contentsRect().width())
                                        : ToTwips(contentsRect().width());
}

int Form::ScaleHeight() const {
    return height() == ToPixels(Height()) ? Height() - ToTwips(height() - contentsRect().height())
                                          : ToTwips(contentsRect().height());
}

void Form::resizeEvent(QResizeEvent* e) {
    QWidget::resizeEvent(e);
    if (beforeResize) beforeResize();
    Form_Resize();
    if (afterResize) afterResize();
}

}  // namespace controls
