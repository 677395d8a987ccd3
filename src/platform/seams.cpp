#include "platform/seams.h"

#include "platform/controls/twips.h"
#include "platform/desktop_internal.h"
#include "platform/tempfolder.h"

#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>
#include <cstdio>
#include <cstdlib>

namespace {
seams::MsgBoxHandler& msgBoxHandler() {
    static seams::MsgBoxHandler h;
    return h;
}
seams::InputBoxHandler& inputBoxHandler() {
    static seams::InputBoxHandler h;
    return h;
}
seams::StartHandler& startHandler() {
    static seams::StartHandler h;
    return h;
}

seams::EndHandler& endHandler() {
    static seams::EndHandler h;
    return h;
}

int ShowRealBox(const seams::MessageBoxCall& call) {
    QMessageBox box(QApplication::activeWindow());
    box.setText(call.prompt);
    // A box without a title shows the program's name, as a desktop does.
    box.setWindowTitle(call.title.isEmpty() ? QStringLiteral("Ferrydock") : call.title);
    switch (call.flags & 0x70) {
    case vbCritical: box.setIcon(QMessageBox::Critical); break;
    case vbExclamation: box.setIcon(QMessageBox::Warning); break;
    case vbInformation: box.setIcon(QMessageBox::Information); break;
    case vbQuestion: box.setIcon(QMessageBox::Question); break;
    default: box.setIcon(QMessageBox::NoIcon); break;
    }
    if ((call.flags & 0x7) == vbYesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        return box.exec() == QMessageBox::Yes ? vbYes : vbNo;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return vbOK;
}

}  // namespace

int MsgBox(const QString& prompt, int flags, const QString& title) {
    const seams::MessageBoxCall call{prompt, flags, title};
    if (msgBoxHandler()) return msgBoxHandler()(call);
    return ShowRealBox(call);
}

QString InputBox(const QString& prompt, const QString& title, const QString& defaultText, int xPos, int yPos) {
    if (inputBoxHandler()) return inputBoxHandler()(seams::InputBoxCall{prompt, title, defaultText, xPos, yPos});
    QInputDialog box(QApplication::activeWindow());
    box.setWindowTitle(title.isEmpty() ? QStringLiteral("Ferrydock") : title);
    box.setLabelText(prompt);
    box.setTextValue(defaultText);
    // A box that was moved keeps its place when shown.
    if (xPos != kBoxUnplaced && yPos != kBoxUnplaced) box.move(ToPixels(xPos), ToPixels(yPos));
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

bool StartProgram(const QString& program, const QString& parameters) {
    if (startHandler()) return startHandler()(program, parameters);
    return desktop::detail::StartDetached(program, parameters);
}

void EndProgram() {
    if (endHandler()) return endHandler()();
    // The process ends here and now, also inside an event turn of a running
    // walk or upload: nothing goes on once the frame is gone. Only the
    // helper file of the temporary folder is taken away first.
    tempfolder::Release();
    std::fflush(nullptr);
    std::_Exit(0);
}

void ClipboardClear() {
    if (QClipboard* cb = QApplication::clipboard()) cb->clear();
}

void ClipboardSetText(const QString& text, int format) {
    QClipboard* cb = QApplication::clipboard();
    if (!cb) return;
    auto* data = new QMimeData;
    // The rich-text format number (-16639) carries plain text as it stands.
    if (format == -16639)
        data->setData(QStringLiteral("text/rtf"), text.toUtf8());
    else
        data->setText(text);
    cb->setMimeData(data);
}

namespace seams {

MsgBoxHandler SetMsgBoxHandler(MsgBoxHandler handler) {
    return std::exchange(msgBoxHandler(), std::move(handler));
}
InputBoxHandler SetInputBoxHandler(InputBoxHandler handler) {
    return std::exchange(inputBoxHandler(), std::move(handler));
}
StartHandler SetStartHandler(StartHandler handler) {
    return std::exchange(startHandler(), std::move(handler));
}

EndHandler SetEndHandler(EndHandler handler) {
    return std::exchange(endHandler(), std::move(handler));
}

}  // namespace seams
