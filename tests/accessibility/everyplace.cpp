#include "everyplace.h"

#include "TrackingDlg.h"
#include "bodysettingsdlg.h"
#include "filterdialog.h"
#include "filterhelp.h"
#include "fixedangledlg.h"
#include "helpdialog.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QProgressBar>

namespace {

const char *const pageForms[] = {"StandardAdministrationClass", "JoywandAdministrationClass",
                                 "FingertrackingAdministrationClass", "MtAdministrationClass"};
const char *const dialogs[] = {"FilterDialog",  "FilterHelp",      "TrackingDlg",
                               "FixedAngleDlg", "BodySettingsDlg", "HelpDialog"};

void execute(const QString &dialog, TestHost &host)
{
    QWidget *const parent = &host.mainWindow;
    if (dialog == QLatin1String("FilterDialog"))
        FilterDialog(&host.io, parent, &host.versions).update_and_exec(0, 0);
    else if (dialog == QLatin1String("FilterHelp"))
        FilterHelp().exec();
    else if (dialog == QLatin1String("TrackingDlg"))
        TrackingDlg(&host.io, parent, &host.versions, QStringLiteral("v3.0.6")).update_and_exec();
    else if (dialog == QLatin1String("FixedAngleDlg"))
        FixedAngleDlg(&host.io, parent, &host.versions).update_and_exec();
    else if (dialog == QLatin1String("BodySettingsDlg"))
        BodySettingsDlg(&host.io, parent, &host.versions, QString()).update_and_exec();
    else if (dialog == QLatin1String("HelpDialog"))
        HelpDialog(parent).exec();
}

} // namespace

void EveryPlace::addPlaces()
{
    QTest::addColumn<QString>("place");
    for (const char *form : pageForms)
        QTest::newRow(form) << QString::fromLatin1(form);
    for (const char *dialog : dialogs)
        QTest::newRow(dialog) << QString::fromLatin1(dialog);
}

void EveryPlace::addPlacesAndLanguages()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("language");
    for (const char *language : {"en", "de"}) {
        for (const char *form : pageForms)
            QTest::addRow("%s, %s", form, language)
                    << QString::fromLatin1(form) << QString::fromLatin1(language);
        for (const char *dialog : dialogs)
            QTest::addRow("%s, %s", dialog, language)
                    << QString::fromLatin1(dialog) << QString::fromLatin1(language);
    }
}

void EveryPlace::openPlace(const QString &place,
                           const std::function<void(QWidget *, QWidget *)> &look)
{
    TestHost host(TestHost::scenario(QStringLiteral("full")));
    if (!place.endsWith(QLatin1String("AdministrationClass"))) {
        robot().expectDialog(place, [&](QWidget *window) {
            QApplication::setActiveWindow(window);
            look(window, window);
        });
        execute(place, host);
        robot().verify();
        return;
    }
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [&](QWidget *window) {
        QApplication::setActiveWindow(window);
        const QByteArray form = place.toLatin1();
        goTo(window, form);
        for (QTableWidget *bodies : page(window, form)->findChildren<QTableWidget *>()) {
            if (bodies->isVisible() && bodies->rowCount() > 0)
                Drive::clickCell(bodies, 0, 0);
        }
        Drive::settle();
        look(window, page(window, form));
    });
}

QList<QWidget *> EveryPlace::visible(QWidget *window, QWidget *page)
{
    QList<QWidget *> widgets;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        // The scroll buttons of a tab bar, with their texts and explanations, belong to Qt.
        if (widget->isVisible() && widget->window() == window && page->window() == window
            && !qobject_cast<QTabBar *>(widget->parentWidget()))
            widgets << widget;
    }
    return widgets;
}

QList<QWidget *> EveryPlace::interactive(QWidget *window, QWidget *page)
{
    QList<QWidget *> widgets;
    for (QWidget *widget : visible(window, page)) {
        // The editor of a spin box and the corner button of a table are parts of those widgets.
        const QWidget *parent = widget->parentWidget();
        if (qobject_cast<const QAbstractSpinBox *>(parent)
            || qobject_cast<const QAbstractItemView *>(parent))
            continue;
        if (qobject_cast<QAbstractButton *>(widget) || qobject_cast<QAbstractSpinBox *>(widget)
            || qobject_cast<QComboBox *>(widget) || qobject_cast<QTableWidget *>(widget)
            || qobject_cast<QLineEdit *>(widget) || qobject_cast<QProgressBar *>(widget))
            widgets << widget;
    }
    return widgets;
}

QString EveryPlace::described(const QWidget *widget)
{
    if (!widget->objectName().isEmpty())
        return widget->objectName();
    return QStringLiteral("%1 in %2")
            .arg(QString::fromLatin1(widget->metaObject()->className()),
                 widget->parentWidget() ? widget->parentWidget()->objectName() : QString());
}
