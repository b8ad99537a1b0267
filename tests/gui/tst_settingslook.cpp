#include "filterdialogtest.h"
#include "fixedangledlg.h"
#include "settingstable.h"

#include <QApplication>
#include <QHeaderView>
#include <QScopeGuard>
#include <QStyledItemDelegate>

#include <cmath>

/** The settings dialogs are readable with large fonts, in a dark palette, and with any name. */
class tst_SettingsLook : public FilterDialogTest {
    Q_OBJECT

private slots:
    void anglesStayOnOneLine_data();
    void anglesStayOnOneLine();
    void greyRowCanBeRead_data();
    void greyRowCanBeRead();
    void longNameLeavesTheFilterDialogNarrow();
    void namesAreShownAsPlainText();
    void refusedNamesAreShownAsPlainText();

private:
    void openAngles(TestHost *host, const std::function<void(QWidget *)> &user)
    {
        FixedAngleDlg dialog(&host->io, &host->mainWindow, &host->versions);
        robot().expectDialog("FixedAngleDlg", user);
        dialog.update_and_exec();
        robot().verify();
    }

    /** Relative luminance of a colour, from which the contrast is computed. */
    static double luminance(const QColor &color)
    {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
               + 0.0722 * linear(color.blueF());
    }

    static double contrast(const QColor &one, const QColor &other)
    {
        const double a = luminance(one);
        const double b = luminance(other);
        return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
    }

    /** Shows the options of a cell as a delegate sets them before painting. */
    class CellStyle : public QStyledItemDelegate {
    public:
        using QStyledItemDelegate::initStyleOption;
    };
};

void tst_SettingsLook::anglesStayOnOneLine_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("96 dpi") << 1.0;
    QTest::newRow("144 dpi") << 1.5;
    QTest::newRow("192 dpi") << 2.0;
}

void tst_SettingsLook::anglesStayOnOneLine()
{
    QFETCH(double, scale);
    const QFont before = QApplication::font();
    const auto restore = qScopeGuard([&] { QApplication::setFont(before); });
    QFont scaled = before;
    scaled.setPointSizeF(before.pointSizeF() * scale);
    QApplication::setFont(scaled);
    ControllerState state = smallState();
    state.bodyTypes["standard"].bodies[0].fixedAngles[1].degrees = -19.99;
    TestHost host(state);
    openAngles(&host, [](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        QVERIFY(!table->wordWrap());
        const QAbstractItemView *view = table;
        for (int column = 2; column < table->columnCount(); ++column) {
            QVERIFY2(table->columnWidth(column) >= view->sizeHintForColumn(column),
                     qPrintable(QString::number(column)));
        }
        QVERIFY(table->horizontalHeader()->length() <= table->viewport()->width());
        // Even a narrow dialog shows complete numbers.
        shown->resize(shown->minimumSizeHint());
        Drive::settle();
        QVERIFY(table->columnWidth(3) >= view->sizeHintForColumn(3));
    });
}

void tst_SettingsLook::greyRowCanBeRead_data()
{
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("base");
    QTest::newRow("light") << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("dark") << QColor(230, 230, 230) << QColor(35, 35, 35);
}

void tst_SettingsLook::greyRowCanBeRead()
{
    QFETCH(QColor, text);
    QFETCH(QColor, base);
    const QPalette before = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(before); });
    QPalette palette = before;
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Base, base);
    QApplication::setPalette(palette);
    TestHost host(smallState());
    openAngles(&host, [](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        const int greyRow = 2;
        const QModelIndex cell = table->model()->index(greyRow, 2);
        QStyleOptionViewItem option;
        option.initFrom(table);
        CellStyle().initStyleOption(&option, cell);
        QCOMPARE(option.backgroundBrush.color(), QColor(Qt::lightGray));
        QVERIFY(contrast(option.palette.color(QPalette::Text), option.backgroundBrush.color())
                >= 4.5);
    });
}

void tst_SettingsLook::longNameLeavesTheFilterDialogNarrow()
{
    ControllerState state = smallState();
    const QString name = QString(34, QLatin1Char('W')) + QString(34, QLatin1Char(' '))
                         + QString(102, QLatin1Char('M'));
    QCOMPARE(name.toUtf8().size(), 170);
    standardBody(state, 0).description = name;
    TestHost host(state);
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        QVERIFY2(w.dialog->width() <= 480, qPrintable(QString::number(w.dialog->width())));
        QVERIFY(w.dialog->minimumSizeHint().width() <= 480);
        QVERIFY(w.body->currentText().contains(name));
        // The tool tip shows a name that the box cuts.
        QVERIFY(w.body->toolTip().contains(name));
    });
}

void tst_SettingsLook::namesAreShownAsPlainText()
{
    ControllerState state = smallState();
    standardBody(state, 0).description = "<b>x</b>";
    TestHost host(state);
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        QCOMPARE(w.body->currentText(), QString("standard body 01 (<b>x</b>)"));
        QCOMPARE(w.body->toolTip(),
                 QString("<span>standard body 01 (&lt;b&gt;x&lt;/b&gt;)</span>"));
        Drive::choose(w.body, "standard body 02 (Rig)");
        QCOMPARE(w.body->toolTip(), QString("standard body 02 (Rig)"));
    });
    openAngles(&host, [](QWidget *shown) {
        QCOMPARE(Drive::cell(tableOf(shown), 0, 1), QString("<b>x</b>"));
    });
}

void tst_SettingsLook::refusedNamesAreShownAsPlainText()
{
    ControllerState state = smallState();
    standardBody(state, 0).description = "<b>x</b>";
    TestHost host(state);
    host.fault("set standard fixed_angle b01* refuse");
    openAngles(&host, [this](QWidget *shown) {
        robot().expectBox("Fixed Angle", "The controller refused the fixed angles of b01 <b>x</b>.",
                          QMessageBox::Ok, [] {
                              const auto *box = qobject_cast<QMessageBox *>(
                                      QApplication::activeModalWidget());
                              QVERIFY(box);
                              QCOMPARE(box->textFormat(), Qt::PlainText);
                          });
        Drive::click(shown, "pushButton_ok");
        Drive::click(shown, "pushButton_cancel");
    });
}

TRACKING_TEST_MAIN(tst_SettingsLook)
#include "tst_settingslook.moc"
