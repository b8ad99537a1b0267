#include "dialogtest.h"
#include "support/administrationtable.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include <cmath>

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
           + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

QPalette dark()
{
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}

QIcon redIcon()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(QColor(200, 0, 0));
    return QIcon(pixmap);
}

} // namespace

/** The readability of the tables of the body administration. */
class tst_AdministrationTable : public DialogTest {
    Q_OBJECT

private slots:
    void saysWhatToDoWhileItIsEmpty();
    void namesHaveALeastWidth();
    void wantsRoomForWholeNames();
    void cutTextsHaveAToolTip_data();
    void cutTextsHaveAToolTip();
    void focusIsSeenOnASelectedRow_data();
    void focusIsSeenOnASelectedRow();
    void iconsKeepTheirColoursOnASelectedRow();

private:
    enum Column { IdColumn, NameColumn, DeleteColumn };

    /** Two rows: ID, a stretched name, an icon. */
    static std::unique_ptr<AdministrationTable> filled(const QString &name);
};

std::unique_ptr<AdministrationTable> tst_AdministrationTable::filled(const QString &name)
{
    auto table = std::make_unique<AdministrationTable>();
    table->setColumnCount(3);
    table->setHorizontalHeaderLabels({"ID", "Name", "Delete"});
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    QHeaderView *header = table->horizontalHeader();
    header->setSectionResizeMode(IdColumn, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(DeleteColumn, QHeaderView::ResizeToContents);
    table->setRowCount(2);
    for (int row = 0; row < 2; ++row) {
        table->setItem(row, IdColumn, new QTableWidgetItem(QString::number(row + 1)));
        table->setItem(row, NameColumn, new QTableWidgetItem(name));
        table->setItem(row, DeleteColumn, new QTableWidgetItem(redIcon(), QString()));
    }
    return table;
}

void tst_AdministrationTable::saysWhatToDoWhileItIsEmpty()
{
    AdministrationTable table;
    table.resize(400, 200);
    table.show();
    const QImage silent = table.grab().toImage();
    table.setHint(QStringLiteral("Start a search to list targets"));
    QVERIFY(table.grab().toImage() != silent);
    QCOMPARE(table.accessibleDescription(), QStringLiteral("Start a search to list targets"));
    QCOMPARE(table.property("hint").toString(), table.accessibleDescription());
    table.setColumnCount(1);
    table.setRowCount(1);
    const QImage withRow = table.grab().toImage();
    table.setHint(QString());
    QCOMPARE(table.grab().toImage(), withRow);
    QCOMPARE(table.accessibleDescription(), QString());
}

void tst_AdministrationTable::namesHaveALeastWidth()
{
    const auto table = filled(QStringLiteral("Left arm of the second actor"));
    table->setMinimumWidth(60);
    table->show();
    QCoreApplication::processEvents();
    table->resize(table->minimumSize());
    QCoreApplication::processEvents();
    QVERIFY(table->columnWidth(NameColumn) >= 16 * table->fontMetrics().averageCharWidth());
    QVERIFY(!table->horizontalScrollBar()->isVisible());
}

void tst_AdministrationTable::wantsRoomForWholeNames()
{
    const QString name(60, QLatin1Char('m'));
    const auto longNamed = filled(name);
    const auto shortNamed = filled(QStringLiteral("Cap"));
    const int needed = longNamed->fontMetrics().horizontalAdvance(name);
    QVERIFY(longNamed->sizeHint().width() > needed);
    QVERIFY(shortNamed->sizeHint().width() < needed);
    longNamed->resize(longNamed->sizeHint());
    longNamed->show();
    QCoreApplication::processEvents();
    QVERIFY(longNamed->columnWidth(NameColumn) > needed);
}

void tst_AdministrationTable::cutTextsHaveAToolTip_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("own");
    QTest::addColumn<int>("visibleHeight");
    QTest::addColumn<QString>("shown");
    constexpr int whole = 100;
    constexpr int part = 12;
    QTest::newRow("short") << "Cap" << QString() << whole << QString();
    QTest::newRow("short, cut by the edge") << "Cap" << QString() << part << "Cap";
    QTest::newRow("none") << QString() << QString() << part << QString();
    const QString name =
            QStringLiteral("Left arm of the second actor, with the long sleeves on it");
    QTest::newRow("long") << name << QString() << whole << name;
    QTest::newRow("long, with a tool tip of its own") << name << "Own" << whole << "Own";
    QTest::newRow("markup") << "<b>" + name + "</b>" << QString() << whole
                            << "<span>&lt;b&gt;" + name + "&lt;/b&gt;</span>";
}

void tst_AdministrationTable::cutTextsHaveAToolTip()
{
    QFETCH(QString, name);
    QFETCH(QString, own);
    QFETCH(int, visibleHeight);
    QFETCH(QString, shown);
    const auto table = filled(name);
    table->item(0, NameColumn)->setToolTip(own);
    table->show();
    table->resize(300, table->horizontalHeader()->height() + visibleHeight);
    QCoreApplication::processEvents();
    const QPoint place = table->visualItemRect(table->item(0, NameColumn)).topLeft() + QPoint(5, 5);
    QHelpEvent help(QEvent::ToolTip, place, table->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(table->viewport(), &help);
    QCOMPARE(QToolTip::text(), shown);
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_AdministrationTable::focusIsSeenOnASelectedRow_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << QApplication::palette();
    QTest::newRow("dark") << dark();
}

void tst_AdministrationTable::focusIsSeenOnASelectedRow()
{
    QFETCH(QPalette, palette);
    const auto table = filled(QStringLiteral("Cap"));
    table->setPalette(palette);
    table->resize(400, 200);
    table->show();
    QApplication::setActiveWindow(table.get());
    table->setFocus();
    table->setCurrentCell(0, NameColumn);
    QCoreApplication::processEvents();
    const QImage picture = table->viewport()->grab().toImage();
    const QRect cell = table->visualItemRect(table->item(0, NameColumn));
    const QColor frame = picture.pixelColor(cell.topLeft() + QPoint(1, cell.height() / 2));
    const QColor row = picture.pixelColor(
            table->visualItemRect(table->item(0, DeleteColumn)).topLeft() + QPoint(30, 4));
    QCOMPARE(row, table->palette().color(QPalette::Highlight));
    QVERIFY2(contrast(frame, row) >= 3.0, qPrintable(frame.name() + ' ' + row.name()));
}

void tst_AdministrationTable::iconsKeepTheirColoursOnASelectedRow()
{
    const auto table = filled(QStringLiteral("Cap"));
    table->resize(400, 200);
    table->show();
    table->setCurrentCell(0, NameColumn);
    QCoreApplication::processEvents();
    const QImage picture = table->viewport()->grab().toImage();
    const auto colour = [&](int row) {
        const QRect cell = table->visualItemRect(table->item(row, DeleteColumn));
        return picture.pixelColor(cell.left() + 10, cell.center().y());
    };
    QCOMPARE(colour(1), QColor(200, 0, 0));
    QCOMPARE(colour(0), QColor(200, 0, 0));
}

TRACKING_TEST_MAIN(tst_AdministrationTable)
#include "tst_administrationtable.moc"
