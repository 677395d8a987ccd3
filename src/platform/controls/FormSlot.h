// One global instance per form: created at first touch, which runs its
// Form_Load; Unload destroys it, and the next touch makes a new one.
#pragma once

#include <QPointer>

namespace controls {

template <class F>
class FormSlot {
public:
    F& operator()() {
        if (!form_) {
            form_ = new F;
            form_->Form_Load();
        }
        return *form_;
    }
    bool Exists() const { return !form_.isNull(); }
    void Unload() {
        if (!form_) return;
        F* f = form_.data();
        form_.clear();
        f->Form_Unload();
        // Later, so a form can unload itself from its own handler.
        f->hide();
        f->deleteLater();
    }

private:
    // QPointer: a child form may also die with its parent window.
    QPointer<F> form_;
};

}  // namespace controls
