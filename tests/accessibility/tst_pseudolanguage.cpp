#include "everyplace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QTextDocument>
#include <QTranslator>

#include <cstring>

namespace {

const QChar mark(0x00b7); // a middle dot, which no text of the module contains

/**
 * `text` with accents and two fifths longer, with the addition between marks. Access keys and
 * markup do not change.
 */
QString pseudo(const QString &text)
{
    static const QString plain = QStringLiteral("aeiouAEIOUnc");
    static const QString accented = QString::fromUtf8("àéîõüÀÉÎÕÜñç");
    const bool isMarkup = Qt::mightBeRichText(text);
    QString changed;
    int letters = 0;
    int end = 0;
    bool inTag = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar sign = text.at(i);
        const bool opens = isMarkup && sign == '<';
        const bool shown = !inTag && !opens;
        const bool isPlace = i > 0 && text.at(i - 1) == '%';
        const int place = shown && !isPlace ? plain.indexOf(sign) : -1;
        changed += place < 0 ? sign : accented.at(place);
        if (shown && !sign.isSpace()) {
            ++letters;
            end = changed.size();
        }
        inTag = opens || (inTag && sign != '>');
    }
    return changed.insert(end, mark + QString(qMax(0, (letters * 2 + 4) / 5 - 2), QLatin1Char('~'))
                                       + mark);
}

/** The widget's own texts, without those that come from the controller. */
QStringList textsOf(QWidget *widget)
{
    if (const auto *label = qobject_cast<QLabel *>(widget))
        return {label->text()};
    if (const auto *button = qobject_cast<QAbstractButton *>(widget))
        return {button->text()};
    if (const auto *group = qobject_cast<QGroupBox *>(widget))
        return {group->title()};
    QStringList texts;
    if (const auto *bar = qobject_cast<QTabBar *>(widget)) {
        for (int i = 0; i < bar->count(); ++i)
            texts << bar->tabText(i);
    } else if (const auto *table = qobject_cast<QTableWidget *>(widget)) {
        for (int column = 0; column < table->columnCount(); ++column)
            texts << table->horizontalHeaderItem(column)->text();
    }
    return texts;
}

} // namespace

/** Translates every text of the module into nonsense that differs from the source. */
class PseudoTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        // The texts of Qt's own widgets have Qt's translations.
        const bool ofQt = !context || context[0] == 'Q';
        // These are not words of a language: the host's menu, a key, and axes.
        static const QStringList kept{QStringLiteral("&Tracking"), QStringLiteral("F8"),
                                      QStringLiteral("Alt+A"), QStringLiteral("Alt+C")};
        const QString text = QString::fromUtf8(source);
        return ofQt || text.isEmpty() || kept.contains(text) ? QString() : pseudo(text);
    }
};

/** Every dialog and page in a language whose words are longer and accented. */
class tst_PseudoLanguage : public EveryPlace {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nothingIsUntranslated_data() { addPlaces(); }
    void nothingIsUntranslated();
    void nothingIsClipped_data() { addPlaces(); }
    void nothingIsClipped();
    void statesInCellsAreTranslated();
    void questionsAreTranslated();

private:
    PseudoTranslator m_translator;
};

void tst_PseudoLanguage::init()
{
    EveryPlace::init();
    QVERIFY(QCoreApplication::installTranslator(&m_translator));
}

void tst_PseudoLanguage::cleanup()
{
    QCoreApplication::removeTranslator(&m_translator);
    EveryPlace::cleanup();
}

void tst_PseudoLanguage::nothingIsUntranslated()
{
    QFETCH(QString, place);
    openPlace(place, [](QWidget *window, QWidget *page) {
        QVERIFY2(window->windowTitle().contains(mark), qPrintable(window->windowTitle()));
        int texts = 0;
        for (QWidget *widget : visible(window, page)) {
            QStringList said = textsOf(widget);
            said << widget->toolTip() << widget->whatsThis() << widget->accessibleName();
            for (const QString &text : said) {
                if (text.isEmpty())
                    continue;
                QVERIFY2(text.contains(mark), qPrintable(described(widget) + ": " + text));
                ++texts;
            }
        }
        QVERIFY(texts > 1);
    });
}

void tst_PseudoLanguage::nothingIsClipped()
{
    QFETCH(QString, place);
    openPlace(place, [](QWidget *window, QWidget *page) {
        Drive::settle();
        for (QWidget *widget : visible(window, page)) {
            const auto *label = qobject_cast<QLabel *>(widget);
            const bool wraps = label && label->wordWrap();
            if (label && !label->text().isEmpty() && !wraps) {
                // One label may not grow beyond a given width.
                QVERIFY2(label->width() >= qMin(label->sizeHint().width(), label->maximumWidth()),
                         qPrintable(described(widget) + ": " + label->text()));
            }
            if (label && wraps) {
                QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                         qPrintable(described(widget)));
            }
            const auto *button = qobject_cast<QAbstractButton *>(widget);
            if (button && !button->text().isEmpty()) {
                QVERIFY2(button->width() >= button->minimumSizeHint().width(),
                         qPrintable(described(widget) + ": " + button->text()));
            }
            if (const auto *table = qobject_cast<QTableWidget *>(widget)) {
                const QHeaderView *header = table->horizontalHeader();
                for (int column = 0; column < table->columnCount(); ++column) {
                    if (!header->isSectionHidden(column)) {
                        QVERIFY2(header->sectionSize(column) >= header->sectionSizeHint(column),
                                 qPrintable(described(widget) + ": "
                                            + table->horizontalHeaderItem(column)->text()));
                    }
                }
            }
        }
    });
}

void tst_PseudoLanguage::statesInCellsAreTranslated()
{
    openPlace(QStringLiteral("StandardAdministrationClass"), [](QWidget *, QWidget *page) {
        const QTableWidget *bodies = table(page, "tableWidget_standard");
        constexpr int calibration = 6;
        constexpr int filter = 7;
        QVERIFY(bodies->rowCount() > 0);
        bool isOneFilterOff = false;
        for (int row = 0; row < bodies->rowCount(); ++row) {
            const QString state = Drive::cell(bodies, row, calibration);
            QVERIFY2(state.contains(mark), qPrintable(state));
            const QString shown = Drive::cell(bodies, row, filter);
            QVERIFY2(!shown.contains(QLatin1String("active")), qPrintable(shown));
            isOneFilterOff = isOneFilterOff || shown.contains(mark);
        }
        QVERIFY(isOneFilterOff);
        const QTableWidget *targets = table(page, "tableWidget_targetlibrary");
        for (int i = 0; i < Drive::find<QComboBox>(page, "comboBox_filter")->count(); ++i) {
            Drive::find<QComboBox>(page, "comboBox_filter")->setCurrentIndex(i);
            for (int row = 0; row < targets->rowCount(); ++row) {
                const QString used = Drive::cell(targets, row, 3);
                QVERIFY2(used.isEmpty() || used.contains(mark), qPrintable(used));
            }
        }
    });
}

/** All texts of a box except those that come from the controller: the names of type and body. */
void tst_PseudoLanguage::questionsAreTranslated()
{
    const QString deletion = pseudo(QStringLiteral("Delete geometry of %1 %2?"));
    const QString failed = pseudo(QStringLiteral("Reset of %1 %2 failed!"));
    const QString reset = pseudo(QStringLiteral("Reset %1 %2\nto Target-Library geometry?"));
    TestHost host;
    host.fault(QStringLiteral("command morvek2 body calibrate* refuse"));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        const QString label = QStringLiteral("Standard body");
        const QString title = pseudo(QStringLiteral("MORVEK3"));
        robot().expectBox(title, deletion.arg(label, "06") + "\nCrate", QMessageBox::No);
        press(bodies, 5, DeleteColumn);
        robot().expectBox(title, reset.arg(label, "02") + "\nGlasses round", QMessageBox::Yes);
        robot().expectBox(pseudo(QStringLiteral("Warning")),
                          failed.arg(label, "02") + "\nGlasses round", QMessageBox::Ok);
        press(bodies, 1, ResetColumn);
    });
}

TRACKING_TEST_MAIN(tst_PseudoLanguage)
#include "tst_pseudolanguage.moc"
