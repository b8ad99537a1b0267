#include "deletionsweep.h"

#include <QComboBox>

/** A host that deletes its window inside any operation of the body administration. */
class tst_Deletion : public DeletionSweep {
    Q_OBJECT

private slots:
    void opening_data();
    void opening();
    void onThePages_data();
    void onThePages();
};

void tst_Deletion::opening_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::newRow("administration") << Deed{administration};
    Deed missing{administration};
    missing.faults = QStringList{"get targetlib number_of_targets fail",
                                 "get targetlib number_of_groups fail", "get body type_desc* fail",
                                 "get filter6d available* fail"};
    QTest::newRow("with what was not read at first") << missing;
    missing.faults =
            QStringList{"get targetlib target_name t02 fail", "get targetlib group_name g02 fail",
                        "get targetlib group_member g01 m01 fail"};
    QTest::newRow("with targets that were not read at first") << missing;
    QTest::newRow("reopen") << Deed{administration, [](QWidget *, TestHost &host) {
                                        host.io.send_message("BodyAdministrationModule", "Any", 1,
                                                             "reopen");
                                    }};
    QTest::newRow("another configuration")
            << Deed{administration, [](QWidget *, TestHost &host) {
                        announce(host, "ActiveConfigurationChanged", "ConfigurationModule");
                    }};
}

void tst_Deletion::opening()
{
    QFETCH(Deed, deed);
    sweep(deed);
}

void tst_Deletion::onThePages_data()
{
    QTest::addColumn<Deed>("deed");
    for (const char *form : {joywandPage, handsPage, toolsPage})
        QTest::addRow("tab of %s", form) << onFourPages({administration, clickTab(form)});
    // What becomes available after the dialog was made is registered when its page is shown.
    Deed late = onFourPages({administration, clickTab(toolsPage)});
    late.faults = QStringList{"get measurementtool available fail"};
    QTest::newRow("tab of tools that become available") << late;
    late.act = clickTab(handsPage);
    late.faults = QStringList{"get fingertracking available fail"};
    late.protocol = "1.21";
    QTest::newRow("tab of hands that become available") << late;
    const auto letManyUsersIn = [](QWidget *, TestHost &host) {
        host.edit([](ControllerState &state) {
            state.multiUserAvailable = state.multiUserWithHeadAvailable = true;
            state.multiUser = state.multiUserWithHead = true;
        });
    };
    QTest::newRow("tab of joywands with head targets")
            << Deed{administration, clickTab(joywandPage), letManyUsersIn};
    QTest::newRow("next page by key") << Deed{administration, key(Qt::Key_F8)};
    QTest::newRow("back to the first page")
            << Deed{administration, clickTab(standardPage), clickTab(joywandPage)};
    QTest::newRow("page by the tab bar's keys")
            << Deed{administration, [](QWidget *window, TestHost &) {
                        QTabBar *bar = pages(window)->tabBar();
                        bar->setFocus();
                        UserInput::pressKey(bar, Qt::Key_Right);
                    }};
    QTest::newRow("category") << Deed{administration, category("Cross Target")};
    QTest::newRow("category by the mouse")
            << Deed{administration, [](QWidget *window, TestHost &) {
                        auto *box = Drive::find<QComboBox>(page(window), "comboBox_filter");
                        box->showPopup();
                        const QModelIndex entry = box->model()->index(1, 0);
                        UserInput::clickItem(box->view(), entry);
                    }};
    QTest::newRow("category by key")
            << Deed{administration, [](QWidget *window, TestHost &) {
                        auto *box = Drive::find<QComboBox>(page(window), "comboBox_filter");
                        box->setFocus();
                        UserInput::pressKey(box, Qt::Key_Down);
                    }};
    QTest::newRow("count") << Deed{
            administration, [](QWidget *window, TestHost &) {
                Drive::typeNumber(Drive::find<QSpinBox>(window, "spinBox_standard_bodies"),
                                  QStringLiteral("4"));
            }};
    QTest::newRow("exit") << Deed{administration, [](QWidget *window, TestHost &) {
                                      Drive::click(window, "pushButton_exit");
                                  }};
    Deed filter{administration,
                [](QWidget *window, TestHost &) { Drive::click(window, "pushButton_filter"); }};
    filter.opens = "FilterDialog";
    QTest::newRow("filter of the dialog") << filter;
    filter.act = cell("tableWidget_standard", 0, FilterColumn);
    QTest::newRow("filter of the row") << filter;
}

void tst_Deletion::onThePages()
{
    QFETCH(Deed, deed);
    sweep(deed);
}

TRACKING_TEST_MAIN(tst_Deletion)
#include "tst_deletion.moc"
