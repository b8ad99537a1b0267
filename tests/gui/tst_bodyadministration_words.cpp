#include "administrationfixture.h"
#include "waiting.h"

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTranslator>

namespace {

/** An action of the operator on the bodies of a window. */
using Act = std::function<void(QWidget *, QTableWidget *)>;

} // namespace

Q_DECLARE_METATYPE(Act)

/** What questions and cells say about a body, and which state enables the buttons of its page. */
class tst_BodyAdministrationWords : public AdministrationFixture {
    Q_OBJECT

private slots:
    void questionsSayWhichBody_data();
    void questionsSayWhichBody();
    void warningsSayWhichBody_data();
    void warningsSayWhichBody();
    void continueQuestionsSayWhichBody_data();
    void continueQuestionsSayWhichBody();
    void questionsShowNamesLetterByLetter();
    void warningsShowNamesLetterByLetter();
    void checkBoxesHaveNames_data();
    void checkBoxesHaveNames();
    void pageFilterFollowsTheCurrentRow();
    void pageFilterFollowsTheEndOfASearch();
    void calibrationNeedsABody();
    void usedTargetsAreCountedByRecord();
    void slowGesturesAreSeen();
};

void tst_BodyAdministrationWords::questionsSayWhichBody_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("delete") << 5 << int(DeleteColumn) << "Delete geometry of Standard body 06?"
                            << "Crate";
    QTest::newRow("reset") << 1 << int(ResetColumn)
                           << "Reset Standard body 02\nto Target-Library geometry?"
                           << "Glasses round";
    QTest::newRow("sensor") << 3 << int(ResetColumn)
                            << "Reset Standard body 04?\nHand eye calibration will be deleted!"
                            << "Camera rig";
}

void tst_BodyAdministrationWords::questionsSayWhichBody()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, text);
    QFETCH(QString, name);
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle, text + QLatin1Char('\n') + name, QMessageBox::No, [&] {
            const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QCOMPARE(box->text(), text);
            QCOMPARE(box->informativeText(), name);
        });
        press(bodies, row, column);
    });
}

void tst_BodyAdministrationWords::warningsSayWhichBody_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("names");
    QTest::addColumn<Act>("act");
    const Act reset = [](QWidget *, QTableWidget *bodies) { press(bodies, 1, ResetColumn); };
    const Act moveUp = [](QWidget *window, QTableWidget *bodies) {
        press(bodies, 2, IdColumn);
        Drive::click(window, "pushButton_up");
    };
    const Act moveDown = [](QWidget *window, QTableWidget *bodies) {
        press(bodies, 6, IdColumn);
        Drive::click(window, "pushButton_down");
    };
    QTest::newRow("reset") << "command morvek2 body calibrate* refuse"
                           << "Reset Standard body 02\nto Target-Library geometry?\nGlasses round"
                           << "Reset of Standard body 02 failed!"
                           << "Glasses round" << reset;
    QTest::newRow("move") << "command morvek2 body switch* refuse" << QString()
                          << "Switching Standard body 03 and 02 failed!"
                          << "Room frame\nGlasses round" << moveUp;
    QTest::newRow("move beside a body without a name")
            << "command morvek2 body switch* refuse" << QString()
            << "Switching Standard body 07 and 08 failed!"
            << "Helmet" << moveDown;
}

/** The box says type and number, and the body's name below them. */
void tst_BodyAdministrationWords::warningsSayWhichBody()
{
    QFETCH(QString, fault);
    QFETCH(QString, asked);
    QFETCH(QString, text);
    QFETCH(QString, names);
    QFETCH(Act, act);
    TestHost host;
    host.fault(fault);
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        if (!asked.isEmpty())
            robot().expectBox(boxTitle, asked, QMessageBox::Yes);
        robot().expectBox(warning, text + QLatin1Char('\n') + names, QMessageBox::Ok, [&] {
            const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QCOMPARE(box->text(), text);
            QCOMPARE(box->informativeText(), names);
        });
        act(window, bodies);
        Drive::settle();
    });
}

void tst_BodyAdministrationWords::continueQuestionsSayWhichBody_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("name") << "Room frame";
    QTest::newRow("markup") << "<b>x</b>";
    QTest::newRow("no name") << "";
}

/** The informative text does not change; the name has a line of its own above it. */
void tst_BodyAdministrationWords::continueQuestionsSayWhichBody()
{
    QFETCH(QString, name);
    TestHost host(studio([&](ControllerState &state) {
        state.bodyTypes["standard"].bodies[2].description = name;
    }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle,
                          QStringLiteral("After deactivating the reference target,\n"
                                         "all targets will not be tracked.\nContinue?"),
                          QMessageBox::No, [&] {
                              const auto *box = QApplication::activeModalWidget();
                              const auto *subject = box->findChild<QLabel *>("label_subject");
                              QCOMPARE(subject != nullptr, !name.isEmpty());
                              if (!subject)
                                  return;
                              const auto *below =
                                      box->findChild<QLabel *>("qt_msgbox_informativelabel");
                              QCOMPARE(subject->text(), name);
                              QCOMPARE(subject->textFormat(), Qt::PlainText);
                              QVERIFY(subject->isVisible() && below->isVisible());
                              QVERIFY(subject->geometry().bottom() < below->geometry().top());
                              QVERIFY(subject->width() >= subject->sizeHint().width());
                              QVERIFY(box->rect().contains(subject->geometry()));
                          });
        toggle(bodies, 2, ActiveColumn);
    });
}

void tst_BodyAdministrationWords::questionsShowNamesLetterByLetter()
{
    const QString name = QStringLiteral("<b>x</b>");
    TestHost host(studio([&](ControllerState &state) {
        state.bodyTypes["standard"].bodies[5].description = name;
    }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        QCOMPARE(Drive::cell(bodies, 5, NameColumn), name);
        robot().expectBox(
                boxTitle, "Delete geometry of Standard body 06?\n" + name, QMessageBox::No, [] {
                    const auto *box = QApplication::activeModalWidget();
                    for (const char *label : {"qt_msgbox_label", "qt_msgbox_informativelabel"}) {
                        QCOMPARE(box->findChild<QLabel *>(label)->textFormat(), Qt::PlainText);
                    }
                });
        press(bodies, 5, DeleteColumn);
    });
}

void tst_BodyAdministrationWords::warningsShowNamesLetterByLetter()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].description = QStringLiteral("<i>Standard</i>");
    }));
    host.fault(QStringLiteral("set body number_of_marker* refuse"));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle, "Delete geometry of <i>Standard</i> 06?\nCrate",
                          QMessageBox::Yes);
        robot().expectBox(warning,
                          "Unable to reset markers of <i>Standard</i> 06\n"
                          "Delete <i>Standard</i> 06 failed\nCrate",
                          QMessageBox::Ok, [] {
                              const auto *box = QApplication::activeModalWidget();
                              QCOMPARE(box->findChild<QLabel *>("qt_msgbox_label")->textFormat(),
                                       Qt::PlainText);
                          });
        press(bodies, 5, DeleteColumn);
    });
}

void tst_BodyAdministrationWords::checkBoxesHaveNames_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");
    QTest::newRow("active") << 0 << int(ActiveColumn) << "Active, Cap";
    QTest::newRow("reference") << 2 << int(ReferenceColumn) << "Reference, Room frame";
    QTest::newRow("without a name") << 5 << int(ActiveColumn) << "Active, 6";
}

void tst_BodyAdministrationWords::checkBoxesHaveNames()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, name);
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies[5].description.clear();
    }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        const auto *table = QAccessible::queryAccessibleInterface(bodies);
        const auto *cell =
                const_cast<QAccessibleInterface *>(table)->tableInterface()->cellAt(row, column);
        QVERIFY(cell);
        QCOMPARE(cell->text(QAccessible::Name), name);
    });
}

void tst_BodyAdministrationWords::pageFilterFollowsTheCurrentRow()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *filter = Drive::find<QPushButton>(page(window), "pushButton_filter");
        for (const int row : {0, 7, 1}) {
            press(bodies, row, IdColumn);
            QCOMPARE(filter->isEnabled(), body(host, row).calibrated);
            const auto *ofDialog = window->findChild<QPushButton *>(
                    QStringLiteral("pushButton_filter"), Qt::FindDirectChildrenOnly);
            QCOMPARE(filter->isEnabled(), ofDialog->isEnabled());
        }
    });
}

void tst_BodyAdministrationWords::pageFilterFollowsTheEndOfASearch()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *filter = Drive::find<QPushButton>(page(window), "pushButton_filter");
        press(bodies, 7, IdColumn);
        Drive::click(page(window), "pushButton_start");
        QVERIFY(!filter->isEnabled());
        robot().expectBox(boxTitle, "No targets could be identified in library", QMessageBox::Ok);
        Drive::click(page(window), "pushButton_stop");
        QVERIFY(!filter->isEnabled());
        press(bodies, 0, IdColumn);
        Drive::click(page(window), "pushButton_start");
        press(bodies, 1, IdColumn);
        QVERIFY(!filter->isEnabled());
        robot().expectBox(boxTitle, "No targets could be identified in library", QMessageBox::Ok);
        Drive::click(page(window), "pushButton_stop");
        QVERIFY(filter->isEnabled());
    });
}

void tst_BodyAdministrationWords::calibrationNeedsABody()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies.clear();
        state.trackingReference.clear();
    }));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *calibration = Drive::find<QPushButton>(page(window), "pushButton_customCalibration");
        QCOMPARE(bodies->rowCount(), 0);
        QVERIFY(!calibration->isEnabled());
        Drive::typeNumber(Drive::find<QSpinBox>(window, "spinBox_standard_bodies"), "1");
        Drive::settle();
        press(bodies, 0, IdColumn);
        QVERIFY(calibration->isEnabled());
    });
}

void tst_BodyAdministrationWords::usedTargetsAreCountedByRecord()
{
    class InAnotherLanguage : public QTranslator {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char *, const char *source, const char *, int) const override
        {
            return qstrcmp(source, "yes") == 0 ? QStringLiteral("ja") : QString();
        }
    } translator;
    TestHost host;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    open(host, [&](QWidget *window, QTableWidget *) {
        Drive::find<QTabWidget>(window, "tabWidget")->setCurrentIndex(1);
        auto *joywands = Drive::find<QWidget>(window, "JoywandAdministrationClass");
        const auto *listed = Drive::find<QTableWidget>(joywands, "tableWidget_targetlibrary");
        QStringList expected{QStringLiteral("target library calibration started")};
        for (int row = 0; row < listed->rowCount(); ++row) {
            QVERIFY(Drive::cell(listed, row, 3) != QLatin1String("yes"));
            if (Drive::cell(listed, row, 3) == QLatin1String("ja"))
                expected << Drive::cell(listed, row, 1) + QLatin1String(" already calibrated");
        }
        QVERIFY(expected.size() > 1);
        host.clear();
        Drive::click(joywands, "pushButton_start");
        QCOMPARE(host.log(), expected);
        robot().expectBox(boxTitle, "No targets could be identified in library", QMessageBox::Ok);
        Drive::click(joywands, "pushButton_stop");
    });
    QCoreApplication::removeTranslator(&translator);
}

void tst_BodyAdministrationWords::slowGesturesAreSeen()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *line = Drive::find<QLabel>(window, "messageLine");
        QStringList said;
        const auto watching = connect(&host.io, &SimulatedIOManager::recorded, line, [&] {
            if (line->isVisible() && !said.contains(line->text()))
                said << line->text();
        });
        Waiting::setClock([&host] { return host.io.virtualTime(); });
        host.fault(QStringLiteral("* delay 400"));
        toggle(bodies, 0, ActiveColumn);
        Waiting::setClock({});
        disconnect(watching);
        QCOMPARE(said, QStringList("Changing bodies ..."));
        QVERIFY(!line->isVisible());
    });
}

TRACKING_TEST_MAIN(tst_BodyAdministrationWords)
#include "tst_bodyadministration_words.moc"
