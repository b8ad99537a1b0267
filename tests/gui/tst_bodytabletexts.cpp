#include "administrationfixture.h"

#include <QHeaderView>

namespace {

struct BodyTable {
    const char *form;
    const char *name;
    const char *accessibleName;
    QStringList headers;
    QVector<int> hidden; ///< columns
    int stretched;       ///< column
    QString firstId;
};

} // namespace

Q_DECLARE_METATYPE(BodyTable)

/**
 * The common properties of all tables of bodies: headers, hidden columns, texts for screen readers.
 */
class tst_BodyTableTexts : public AdministrationFixture {
    Q_OBJECT

private slots:
    void columns_data();
    void columns();
    void buttonsSayWhatTheyDo_data();
    void buttonsSayWhatTheyDo();

private:
    static void addTables();
    /** Opens the dialog with a state in which every table is shown, at the page of the table. */
    void visit(const BodyTable &tested, const std::function<void(QTableWidget *)> &look);
};

void tst_BodyTableTexts::addTables()
{
    QTest::addColumn<BodyTable>("tested");
    const auto row = [](const BodyTable &tested) { QTest::newRow(tested.name) << tested; };
    row({standardPage,
         "tableWidget_standard",
         "Available standard bodies",
         {"ID", "Active", "Reference", "Name", "Model", "Device ID", "Calibration", "Filter",
          "Delete", "Reset"},
         {4, 5},
         3,
         "1"});
    row({joywandPage,
         "tableWidget_joywand",
         "Available joywands",
         {"ID", "Active", "Name", "Model", "Serial", "Calibration", "Filter", "Delete", "Reset"},
         {},
         2,
         "F1"});
    row({joywandPage,
         "tableWidget_head",
         "Available joywand MultiUser head targets",
         {"ID", "Calibration", "Delete", "Reset"},
         {3},
         1,
         "1"});
    row({handsPage,
         "tableWidget_fingertracking",
         "Available hands",
         {"ID", "Active", "Name", "Calibration", "Delete", "Reset"},
         {},
         2,
         "H1"});
    row({toolsPage,
         "tableWidget_mt",
         "Available Measurement Tools",
         {"ID", "Active", "Reference ID", "Calibration", "Delete", "Reset"},
         {},
         3,
         "M1"});
    row({toolsPage,
         "tableWidget_ref",
         "Available Measurement Tool references",
         {"ID", "Active", "Name", "Calibration", "Delete", "Reset"},
         {5},
         2,
         "MR1"});
}

void tst_BodyTableTexts::visit(const BodyTable &tested,
                               const std::function<void(QTableWidget *)> &look)
{
    ControllerState state = studio();
    const ControllerState several = TestHost::scenario(QStringLiteral("multiuser"));
    state.multiUserAvailable = several.multiUserAvailable;
    state.multiUserWithHeadAvailable = several.multiUserWithHeadAvailable;
    state.multiUser = several.multiUser;
    state.multiUserWithHead = several.multiUserWithHead;
    const QString heads = QStringLiteral("multiuserjoywand_head");
    state.bodyTypes[heads] = several.bodyTypes[heads];
    for (BodyState &body : state.bodyTypes["standard"].bodies)
        body.sensor.clear();
    TestHost host(state);
    openAt(host, tested.form, [&](QWidget *shown) { look(table(shown, tested.name)); });
}

void tst_BodyTableTexts::columns_data()
{
    addTables();
}

void tst_BodyTableTexts::columns()
{
    QFETCH(BodyTable, tested);
    visit(tested, [&](QTableWidget *bodies) {
        QVERIFY(bodies->isVisible());
        QCOMPARE(bodies->accessibleName(), QString::fromLatin1(tested.accessibleName));
        QStringList headers;
        QVector<int> hidden;
        for (int column = 0; column < bodies->columnCount(); ++column) {
            headers.append(bodies->horizontalHeaderItem(column)->text());
            if (bodies->isColumnHidden(column))
                hidden.append(column);
            QCOMPARE(bodies->horizontalHeader()->sectionResizeMode(column),
                     column == tested.stretched ? QHeaderView::Stretch
                                                : QHeaderView::ResizeToContents);
        }
        QCOMPARE(headers, tested.headers);
        QCOMPARE(hidden, tested.hidden);
        QVERIFY(!bodies->horizontalHeader()->sectionsClickable());
        QVERIFY(!bodies->verticalHeader()->isVisible());
        QCOMPARE(bodies->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(bodies->selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(Drive::cell(bodies, 0, 0), tested.firstId);
    });
}

void tst_BodyTableTexts::buttonsSayWhatTheyDo_data()
{
    addTables();
}

void tst_BodyTableTexts::buttonsSayWhatTheyDo()
{
    QFETCH(BodyTable, tested);
    visit(tested, [&](QTableWidget *bodies) {
        QVERIFY(bodies->rowCount() > 1);
        for (int row = 0; row < bodies->rowCount(); ++row) {
            for (int column = 0; column < bodies->columnCount(); ++column) {
                const QString header = tested.headers.at(column);
                const QString spoken =
                        bodies->item(row, column)->data(Qt::AccessibleTextRole).toString();
                if (header == "Active" || header == "Reference")
                    QVERIFY2(spoken.startsWith(header) || spoken.isEmpty(), qPrintable(spoken));
                else
                    QCOMPARE(spoken, header == "Delete" || header == "Reset" ? header : QString());
            }
        }
    });
}

TRACKING_TEST_MAIN(tst_BodyTableTexts)
#include "tst_bodytabletexts.moc"
