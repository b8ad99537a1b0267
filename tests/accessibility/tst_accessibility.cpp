#include "everyplace.h"
#include "messageline.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QProgressBar>
#include <QRadioButton>
#include <QSet>
#include <QTranslator>
#include <QWheelEvent>

namespace {

QAccessible::Role roleOf(const QWidget *widget)
{
    if (qobject_cast<const QCheckBox *>(widget))
        return QAccessible::CheckBox;
    if (qobject_cast<const QRadioButton *>(widget))
        return QAccessible::RadioButton;
    if (qobject_cast<const QAbstractButton *>(widget))
        return QAccessible::Button;
    if (qobject_cast<const QAbstractSpinBox *>(widget))
        return QAccessible::SpinBox;
    if (qobject_cast<const QComboBox *>(widget))
        return QAccessible::ComboBox;
    if (qobject_cast<const QTableWidget *>(widget))
        return QAccessible::Table;
    if (qobject_cast<const QProgressBar *>(widget))
        return QAccessible::ProgressBar;
    return QAccessible::NoRole;
}

/** The letter of each access key that works in the window, and its widget. */
QMultiMap<QString, QString> accessKeys(const QList<QWidget *> &widgets)
{
    QMultiMap<QString, QString> keys;
    const auto add = [&keys](const QKeySequence &key, const QString &owner) {
        if (!key.isEmpty())
            keys.insert(key.toString(), owner);
    };
    for (const QWidget *widget : widgets) {
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            add(button->shortcut(), button->objectName());
        else if (const auto *label = qobject_cast<const QLabel *>(widget))
            add(label->buddy() ? QKeySequence::mnemonic(label->text()) : QKeySequence(),
                label->objectName());
        else if (const auto *bar = qobject_cast<const QTabBar *>(widget)) {
            for (int i = 0; i < bar->count(); ++i)
                add(QKeySequence::mnemonic(bar->tabText(i)), bar->tabText(i));
        }
    }
    return keys;
}

/** Turns the wheel as the window system does, which may give the widget the focus. */
void turnWheel(QWidget *widget, int notch)
{
    const QPointF point = widget->rect().center();
    QWheelEvent event(point, widget->mapToGlobal(point.toPoint()), QPoint(), QPoint(0, notch),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
    Drive::settle();
}

} // namespace

/**
 * What each dialog and page says to a screen reader, whether the keyboard reaches everything, and
 * that the wheel changes nothing without the focus.
 */
class tst_Accessibility : public EveryPlace {
    Q_OBJECT

private slots:
    void everythingHasANameAndARole_data() { addPlaces(); }
    void everythingHasANameAndARole();
    void everythingIsExplained_data() { addPlaces(); }
    void everythingIsExplained();
    void labelsWithAnAccessKeyHaveABuddy_data() { addPlaces(); }
    void labelsWithAnAccessKeyHaveABuddy();
    void accessKeysAreUnique_data() { addPlacesAndLanguages(); }
    void accessKeysAreUnique();
    void tabReachesEverything_data() { addPlaces(); }
    void tabReachesEverything();
    void wheelChangesNothingWithoutFocus_data() { addPlaces(); }
    void wheelChangesNothingWithoutFocus();
};

void tst_Accessibility::everythingHasANameAndARole()
{
    QFETCH(QString, place);
    openPlace(place, [](QWidget *window, QWidget *page) {
        int looked = 0;
        for (QWidget *widget : interactive(window, page)) {
            const auto *accessible = QAccessible::queryAccessibleInterface(widget);
            QVERIFY2(accessible, qPrintable(described(widget)));
            QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(), qPrintable(described(widget)));
            QVERIFY2(accessible->role() == roleOf(widget)
                             || accessible->role() == QAccessible::ButtonMenu,
                     qPrintable(described(widget)));
            ++looked;
        }
        QVERIFY(looked > 0);
    });
}

void tst_Accessibility::everythingIsExplained()
{
    QFETCH(QString, place);
    openPlace(place, [](QWidget *window, QWidget *page) {
        for (const QWidget *widget : interactive(window, page)) {
            QVERIFY2(!widget->toolTip().isEmpty() || !widget->whatsThis().isEmpty(),
                     qPrintable(described(widget)));
        }
    });
}

void tst_Accessibility::labelsWithAnAccessKeyHaveABuddy()
{
    QFETCH(QString, place);
    openPlace(place, [](QWidget *window, QWidget *page) {
        for (QWidget *widget : visible(window, page)) {
            const auto *label = qobject_cast<QLabel *>(widget);
            if (!label || QKeySequence::mnemonic(label->text()).isEmpty())
                continue;
            QVERIFY2(label->buddy() && label->buddy()->isVisible(), qPrintable(described(label)));
            const auto *accessible = QAccessible::queryAccessibleInterface(label->buddy());
            bool isLabelled = false;
            for (const auto &relation : accessible->relations(QAccessible::Label))
                isLabelled = isLabelled || relation.first->object() == label;
            QVERIFY2(isLabelled, qPrintable(described(label)));
        }
    });
}

void tst_Accessibility::accessKeysAreUnique()
{
    QFETCH(QString, place);
    QFETCH(QString, language);
    QTranslator translator;
    if (language != QLatin1String("en")) {
        QVERIFY(translator.load(QStringLiteral(TRACKING_TRANSLATIONS_DIR "/trackingsettings_")
                                + language));
        QVERIFY(QCoreApplication::installTranslator(&translator));
    }
    openPlace(place, [](QWidget *window, QWidget *page) {
        const auto keys = accessKeys(visible(window, page));
        for (const QString &key : keys.uniqueKeys()) {
            const QStringList owners = keys.values(key);
            QVERIFY2(owners.size() == 1, qPrintable(key + ": " + owners.join(", ")));
        }
    });
    QCoreApplication::removeTranslator(&translator);
}

void tst_Accessibility::tabReachesEverything()
{
    QFETCH(QString, place);
    openPlace(place, [](QWidget *window, QWidget *page) {
        QSet<const QWidget *> reached;
        constexpr int farMoreThanThereAre = 80;
        for (int i = 0; i < farMoreThanThereAre; ++i) {
            QWidget *focused = window->focusWidget() ? window->focusWidget() : window;
            QTest::keyClick(focused, Qt::Key_Tab);
            reached.insert(window->focusWidget());
        }
        for (QWidget *widget : interactive(window, page)) {
            const bool shows = qobject_cast<QProgressBar *>(widget);
            const bool inGroup = qobject_cast<QRadioButton *>(widget); // the arrow keys go there
            if (shows || inGroup || !widget->isEnabled())
                continue;
            QVERIFY2(reached.contains(widget), qPrintable(described(widget)));
        }
    });
}

void tst_Accessibility::wheelChangesNothingWithoutFocus()
{
    QFETCH(QString, place);
    openPlace(place, [](QWidget *window, QWidget *page) {
        for (QWidget *widget : visible(window, page)) {
            const auto *combo = qobject_cast<QComboBox *>(widget);
            const auto *spin = qobject_cast<QAbstractSpinBox *>(widget);
            if ((!combo && !spin) || !widget->isEnabled())
                continue;
            if (QWidget *focused = window->focusWidget())
                focused->clearFocus();
            const QString before = combo ? combo->currentText() : spin->text();
            for (const int notch : {-120, 120}) {
                turnWheel(widget, notch);
                QVERIFY2(!widget->hasFocus(), qPrintable(described(widget)));
                QCOMPARE(combo ? combo->currentText() : spin->text(), before);
            }
        }
    });
}

TRACKING_TEST_MAIN(tst_Accessibility)
#include "tst_accessibility.moc"
