#include "support/userquestion.h"

#include <QGridLayout>
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
    QString subject;
};

/**
 * Puts a line above the informative text without changing that text, which a host or a test may
 * read.
 */
void showAbove(QLabel *informative, const QString &subject)
{
    auto *grid = qobject_cast<QGridLayout *>(informative->parentWidget()->layout());
    const int place = grid ? grid->indexOf(informative) : -1;
    if (place < 0)
        return; // GCOVR_EXCL_LINE: only a box that another toolkit version lays out differently
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(place, &row, &column, &rows, &columns);
    grid->removeWidget(informative);
    auto *name = new QLabel(subject, informative->parentWidget());
    name->setObjectName(QStringLiteral("label_subject"));
    name->setTextFormat(Qt::PlainText);
    name->setWordWrap(true);
    name->setContentsMargins(informative->contentsMargins());
    auto *both = new QVBoxLayout;
    both->addWidget(name);
    both->addWidget(informative);
    grid->addLayout(both, row, column, rows, columns);
}

/**
 * Runs the box and returns the pressed button. Touches nothing when the parent was deleted with the
 * box.
 */
int run(QWidget *parent, const BoxContent &content, bool *gone)
{
    const QPointer<QWidget> guard(parent);
    const bool hadParent = parent != nullptr;
    QPointer<QMessageBox> box =
            new QMessageBox(content.icon, content.title, content.text, content.buttons, parent);
    // Both texts may contain names, which are shown as plain text even when they look like markup.
    box->setTextFormat(Qt::PlainText);
    const bool isInformed = !content.informativeText.isEmpty();
    box->setInformativeText(isInformed ? content.informativeText : content.subject);
    // The box has no function for its second label, which does not follow the format of the first.
    if (auto *label = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"))) {
        label->setTextFormat(Qt::PlainText);
        if (isInformed && !content.subject.isEmpty())
            showAbove(label, content.subject);
    }
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
             const QString &informativeText, const QString &subject)
{
    return ask(parent,
               {QMessageBox::Warning, title, text, informativeText,
                QMessageBox::Yes | QMessageBox::No, QMessageBox::No, subject},
               QMessageBox::Yes);
}

Answer okCancel(QWidget *parent, const QString &title, const QString &text,
                const QString &informativeText)
{
    return ask(parent,
               {QMessageBox::Warning, title, text, informativeText,
                QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel, QString()},
               QMessageBox::Ok);
}

bool warning(QWidget *parent, const QString &title, const QString &text,
             const QString &informativeText)
{
    bool gone = false;
    run(parent,
        {QMessageBox::Warning, title, text, informativeText, QMessageBox::Ok, QMessageBox::Ok,
         QString()},
        &gone);
    return !gone;
}

bool information(QWidget *parent, const QString &title, const QString &text)
{
    bool gone = false;
    run(parent,
        {QMessageBox::Information, title, text, QString(), QMessageBox::Ok, QMessageBox::Ok,
         QString()},
        &gone);
    return !gone;
}

} // namespace UserQuestion
