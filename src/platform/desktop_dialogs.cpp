// The program's own properties and open-with dialogs, for desktops without
// a file manager on the bus and in place of the shell's open-with choice.
// Both show without waiting, as the shell's do, and go when closed.
#include "platform/desktop_internal.h"
#include "platform/localfs_internal.h"
#include "platform/seams.h"
#include "platform/shell.h"

#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>
#include <dirent.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>

namespace desktop::detail {

namespace {

QString NameOf(const QString& windowsPath) {
    QString path = windowsPath;
    while (path.size() > 3 && (path.endsWith(u'\\') || path.endsWith(u'/'))) path.chop(1);
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

QDialog* NewDialog(QWidget* owner, const char* objectName, const QString& title) {
    auto* dialog = new QDialog(owner ? owner->window() : nullptr);
    dialog->setObjectName(QLatin1String(objectName));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    return dialog;
}

QString Permissions(mode_t mode) {
    const char* letters = "rwxrwxrwx";
    QString s;
    for (int bit = 0; bit < 9; ++bit) s += (mode & (0400 >> bit)) ? QLatin1Char(letters[bit]) : QLatin1Char('-');
    return s + QStringLiteral(" (") + QString::number(mode & 07777, 8) + QLatin1Char(')');
}

QString OwnerOf(const struct stat& st) {
    QString user = QString::number(st.st_uid), group = QString::number(st.st_gid);
    char buffer[4096];
    struct passwd pw, *pwResult = nullptr;
    if (getpwuid_r(st.st_uid, &pw, buffer, sizeof buffer, &pwResult) == 0 && pwResult)
        user = QString::fromLocal8Bit(pw.pw_name);
    struct group gr, *grResult = nullptr;
    if (getgrgid_r(st.st_gid, &gr, buffer, sizeof buffer, &grResult) == 0 && grResult)
        group = QString::fromLocal8Bit(gr.gr_name);
    return user + QLatin1Char(':') + group;
}

int EntriesIn(const QByteArray& posix) {
    DIR* d = ::opendir(posix.constData());
    if (!d) return -1;
    int n = 0;
    while (const dirent* e = ::readdir(d)) {
        const QByteArray name(e->d_name);
        if (name != "." && name != "..") ++n;
    }
    ::closedir(d);
    return n;
}

QString Stamp(const struct timespec& t) {
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(t.tv_sec), QLocale::ShortFormat);
}

QLabel* Value(QWidget* parent, const char* objectName, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(objectName));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

}  // namespace

bool ShowPropertiesDialog(QWidget* owner, const QString& windowsPath) {
    const localfs::detail::Resolved r = localfs::detail::Resolve(windowsPath);
    const QByteArray& posix = r.posix;
    struct stat st;
    if (!r.ok || (::stat(posix.constData(), &st) != 0 && ::lstat(posix.constData(), &st) != 0)) return false;
    const DialogTexts& t = Texts();
    // The name and folder as they are on disk, whatever the case asked for;
    // a drive's root is named by its drive.
    const qsizetype cut = posix.lastIndexOf('/');
    const QString name =
        r.driveRoot ? localfs::detail::WindowsOf(posix) : localfs::detail::NameText(posix.mid(cut + 1));
    const QString folder =
        r.driveRoot ? QString() : localfs::detail::WindowsOf(cut <= 0 ? QByteArray("/") : posix.left(cut));
    QDialog* dialog = NewDialog(owner, "dlgProperties", t.propertiesTitle + u' ' + name);
    auto* form = new QFormLayout;
    auto* icon = new QLabel(dialog);
    icon->setPixmap(GetShellIcon(SHGFI_ICON, windowsPath).pixmap(32, 32));
    form->addRow(icon, Value(dialog, "valName", name));
    form->addRow(t.name, Value(dialog, "valFullName", name));
    form->addRow(t.folder, Value(dialog, "valFolder", folder));
    form->addRow(t.type, Value(dialog, "valType", GetShellTypeName(windowsPath)));
    const QLocale locale;
    if (S_ISDIR(st.st_mode)) {
        const int n = EntriesIn(posix);
        form->addRow(t.contents, Value(dialog, "valContents", n < 0 ? QString() : locale.toString(n) + u' ' + t.items));
    } else {
        form->addRow(t.size, Value(dialog, "valSize", locale.toString(qlonglong(st.st_size)) + u' ' + t.bytes));
    }
    form->addRow(t.modified, Value(dialog, "valModified", Stamp(st.st_mtim)));
    form->addRow(t.accessed, Value(dialog, "valAccessed", Stamp(st.st_atim)));
    form->addRow(t.permissions, Value(dialog, "valPermissions", Permissions(st.st_mode)));
    form->addRow(t.owner, Value(dialog, "valOwner", OwnerOf(st)));
    auto* buttons = new QDialogButtonBox(dialog);
    QPushButton* close = buttons->addButton(t.close, QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("cmdClose"));
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(form);
    layout->addWidget(buttons);
    dialog->show();
    return true;
}

void ShowOpenWithDialog(QWidget* owner, const QString& windowsPath) {
    const DialogTexts& t = Texts();
    const QString name = NameOf(windowsPath);
    QDialog* dialog = NewDialog(owner, "dlgOpenWith", t.openWithTitle + u' ' + name);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(new QLabel(t.openWithPrompt + u' ' + name, dialog));

    auto* programs = new QListWidget(dialog);
    programs->setObjectName(QStringLiteral("lstPrograms"));
    for (const Application& app : ApplicationsFor(localfs::detail::NameBytes(name))) {
        auto* item = new QListWidgetItem(app.icon, app.name, programs);
        item->setData(Qt::UserRole, app.id);
    }
    if (programs->count() > 0) programs->setCurrentRow(0);
    layout->addWidget(programs);

    auto* other = new QHBoxLayout;
    other->addWidget(new QLabel(t.otherProgram, dialog));
    auto* program = new QLineEdit(dialog);
    program->setObjectName(QStringLiteral("txtProgram"));
    other->addWidget(program, 1);
    auto* browse = new QPushButton(t.browse, dialog);
    browse->setObjectName(QStringLiteral("cmdBrowse"));
    other->addWidget(browse);
    layout->addLayout(other);
    QObject::connect(browse, &QPushButton::clicked, dialog, [dialog, program] {
        const QString chosen = QFileDialog::getOpenFileName(dialog);
        if (!chosen.isEmpty()) program->setText(chosen);
    });

    auto* buttons = new QDialogButtonBox(dialog);
    buttons->addButton(t.ok, QDialogButtonBox::AcceptRole)->setObjectName(QStringLiteral("cmdOK"));
    buttons->addButton(t.cancel, QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cmdCancel"));
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, [dialog, programs, program, windowsPath] {
        // A program typed or picked goes before the list's choice. The file
        // is one parameter, blanks and all.
        const QString typed = program->text().trimmed();
        const QListWidgetItem* item = programs->currentItem();
        const QString chosen = !typed.isEmpty() ? typed : item ? item->data(Qt::UserRole).toString() : QString();
        if (chosen.isEmpty()) return;
        StartProgram(chosen, u'"' + windowsPath + u'"');
        dialog->close();
    });
    dialog->show();
}

}  // namespace desktop::detail
