#include "support/userquestion.h"

#include <QLabel>
#include <QMessageBox>
#include <QPointer>

namespace UserQuestion {

namespace {

struct BoxContent {
    QMessageBox::Icon icon;
    QString title;
    QString text;
    QString informativeText;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton preset;
};

/** The button pressed; nothing is touched when the parent took the box with it. */
int run(QWidget *parent, const BoxContent &content, bool *gone)
{
    const QPointer<QWidget> guard(parent);
    const bool hadParent = parent != nullptr;
    QPointer<QMessageBox> box =
            new QMessageBox(content.icon, content.title, content.text, content.buttons, parent);
    // Both may hold names, which are shown letter by letter whatever they look like.
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(content.informativeText);
    // The box gives no other way to its second label, which ignores the format of the first.
    if (auto *label = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
    box->setDefaultButton(content.preset);
    const int button = box->exec();
    delete box;
    *gone = hadParent && !guard;
    return button;
}

Answer ask(QWidget *parent, const BoxContent &content, QMessageBox::StandardButton accepting)
{
    bool gone = false;
    const int button = run(parent, content, &gone);
    if (gone)
        return Answer::Gone;
    return button == accepting ? Answer::Accepted : Answer::Declined;
}

} // namespace

Answer yesNo(QWidget *parent, const QString &title, const QString &text,
             const QString &informativeText)
{
    return ask(parent,
               {QMessageBox::Warning, title, text, informativeText,
                QMessageBox::Yes | QMessageBox::No, QMessageBox::No},
               QMessageBox::Yes);
}

Answer okCancel(QWidget *parent, const QString &title, const QString &text,
                const QString &informativeText)
{
    return ask(parent,
               {QMessageBox::Warning, title, text, informativeText,
                QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel},
               QMessageBox::Ok);
}

bool warning(QWidget *parent, const QString &title, const QString &text)
{
    bool gone = false;
    run(parent, {QMessageBox::Warning, title, text, {}, QMessageBox::Ok, QMessageBox::Ok}, &gone);
    return !gone;
}

bool information(QWidget *parent, const QString &title, const QString &text)
{
    bool gone = false;
    run(parent, {QMessageBox::Information, title, text, {}, QMessageBox::Ok, QMessageBox::Ok},
        &gone);
    return !gone;
}

} // namespace UserQuestion
