#include "ControllerRules.h"
#include "ScenarioCheck.h"
#include "ScriptCommand.h"
#include "SecondClientPanel.h"
#include "WorkbenchSession.h"
#include "bodytypes.h"
#include "dialogtest.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

#include <memory>

/** Changes by another client follow the rules of the controller. */
class tst_SecondClient : public QObject {
    Q_OBJECT

private slots:
    void init() { open(QStringLiteral("studio")); }
    void cleanup();
    void droppedBodyIsNoReference();
    void deletedBodyIsNoReference();
    void deletedReferenceLeavesItsTools();
    void swapMovesTheReference();
    void countOfDevicesMovesTheirHeads();
    void newSlotIsThatOfTheCommand();
    void nameThatIsNone();
    void everyChangeInEveryScenario_data();
    void everyChangeInEveryScenario();

private:
    void open(const QString &scenario);
    const ControllerState &state() const { return m_session->state(); }
    /** Carries out one action of a script; returns what is wrong. */
    QString act(const QStringList &words);
    void choose(const QString &type, int number);
    void setCount(int count);
    /** The conflict in the state after a change; empty when the state is consistent. */
    QString conflict() const;

    std::unique_ptr<WorkbenchSession> m_session;
    std::unique_ptr<SecondClientPanel> m_panel;
};

namespace {

const QString references = QStringLiteral("measurementtool_reference");

} // namespace

void tst_SecondClient::open(const QString &name)
{
    m_panel.reset();
    Scenario scenario;
    scenario.name = name;
    scenario.state = TestHost::scenario(name);
    m_session = std::make_unique<WorkbenchSession>(scenario);
    m_panel = std::make_unique<SecondClientPanel>(m_session.get());
    m_panel->show();
}

void tst_SecondClient::cleanup()
{
    m_panel.reset();
    m_session.reset();
}

QString tst_SecondClient::act(const QStringList &words)
{
    ScriptContext context;
    context.session = m_session.get();
    int nameLength = 0;
    return ScriptCommands::find(words, &nameLength)->run(context, words.mid(nameLength));
}

void tst_SecondClient::choose(const QString &type, int number)
{
    Drive::choose(Drive::find<QComboBox>(m_panel.get(), "comboBox_clientType"), type);
    Drive::find<QSpinBox>(m_panel.get(), "spinBox_clientBody")->setValue(number);
}

void tst_SecondClient::setCount(int count)
{
    Drive::find<QSpinBox>(m_panel.get(), "spinBox_clientCount")->setValue(count);
    Drive::click(m_panel.get(), "pushButton_clientCount");
}

QString tst_SecondClient::conflict() const
{
    Scenario scenario;
    scenario.state = state();
    const QString found = scenarioConflict(scenario);
    if (!found.isEmpty() || state().trackingReference.isEmpty())
        return found;
    // Only a calibrated body can be the reference.
    ControllerState copy = state();
    const QString word = copy.trackingReference.section(QLatin1Char(' '), 1);
    const BodyState *body =
            ControllerRules::body(copy, copy.trackingReference.section(QLatin1Char(' '), 0, 0),
                                  ControllerRules::numberOf(word));
    return body && body->calibrated ? QString() : QStringLiteral("the reference is not calibrated");
}

void tst_SecondClient::droppedBodyIsNoReference()
{
    m_session->edit([](ControllerState &changed) {
        changed.trackingReference = QStringLiteral("standard b08");
    });
    choose(standard, 1);
    setCount(6);
    QCOMPARE(state().bodyTypes[standard].bodies.size(), 6);
    QCOMPARE(state().trackingReference, QString());
    // A script can still make an unrelated change.
    QCOMPARE(act({"set", "calculateMarker", "true"}), QString());
    QVERIFY(state().calculateMarker);
}

void tst_SecondClient::deletedBodyIsNoReference()
{
    QCOMPARE(state().trackingReference, QStringLiteral("standard b03"));
    choose(standard, 3);
    Drive::click(m_panel.get(), "pushButton_clientDelete");
    QCOMPARE(state().trackingReference, QString());
    int holder = 0;
    while (state().bodyTypes[standard].bodies[holder].target.isEmpty())
        ++holder;
    const QString target = state().bodyTypes[standard].bodies[holder].target;
    choose(standard, holder + 1);
    Drive::click(m_panel.get(), "pushButton_clientDelete");
    QCOMPARE(ControllerRules::bodyWith(state(), &BodyState::target, target), QString());
    // The freed target can be given to another body.
    const CommandReply reply = m_session->controller()->execute(
            CommandAccess::Action,
            "morvek2 body calibrate_from_targetlib standard b03 " + target.toUtf8());
    QCOMPARE(reply.reason, QString());
}

void tst_SecondClient::deletedReferenceLeavesItsTools()
{
    m_session->edit([](ControllerState &changed) {
        changed.bodyTypes[QStringLiteral("measurementtool")].bodies[0].reference =
                QStringLiteral("b01");
    });
    choose(references, 1);
    Drive::click(m_panel.get(), "pushButton_clientDelete");
    QCOMPARE(state().bodyTypes[QStringLiteral("measurementtool")].bodies[0].reference, QString());
}

void tst_SecondClient::swapMovesTheReference()
{
    QCOMPARE(act({"swap", standard, "3", "5"}), QString());
    QCOMPARE(state().trackingReference, QStringLiteral("standard b05"));
    QCOMPARE(act({"swap", standard, "4", "5"}), QString());
    QCOMPARE(state().trackingReference, QStringLiteral("standard b04"));
}

void tst_SecondClient::countOfDevicesMovesTheirHeads()
{
    open(QStringLiteral("multiuser"));
    choose(QStringLiteral("joywand"), 1);
    setCount(5);
    QCOMPARE(state().bodyTypes[QStringLiteral("multiuserjoywand_head")].bodies.size(), 5);
    setCount(1);
    QCOMPARE(state().bodyTypes[QStringLiteral("multiuserjoywand_head")].bodies.size(), 1);
}

void tst_SecondClient::newSlotIsThatOfTheCommand()
{
    choose(standard, 1);
    setCount(9);
    const QJsonObject byClient = ScenarioFile::toJson(state());
    open(QStringLiteral("studio"));
    QVERIFY(m_session->controller()->execute(CommandAccess::Set, "standard number_of_bodies 9").ok);
    QCOMPARE(byClient, ScenarioFile::toJson(state()));
}

void tst_SecondClient::nameThatIsNone()
{
    const QJsonObject before = ScenarioFile::toJson(state());
    auto *name = Drive::find<QLineEdit>(m_panel.get(), "lineEdit_clientName");
    QTest::keyClicks(name, QStringLiteral("say \"no\""));
    Drive::click(m_panel.get(), "pushButton_clientRename");
    QCOMPARE(Drive::find<QLabel>(m_panel.get(), "label_clientResult")->text(),
             QStringLiteral("Refused: a description cannot hold a quote sign."));
    QCOMPARE(ScenarioFile::toJson(state()), before);
}

void tst_SecondClient::everyChangeInEveryScenario_data()
{
    QTest::addColumn<QString>("scenario");
    const QStringList files = QDir(QStringLiteral(TRACKING_SCENARIO_DIR))
                                      .entryList({QStringLiteral("*.json")}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QString &file : files)
        QTest::newRow(qPrintable(file)) << QFileInfo(file).completeBaseName();
}

void tst_SecondClient::everyChangeInEveryScenario()
{
    QFETCH(QString, scenario);
    open(scenario);
    const ControllerState initial = state();
    // The session emits each change; the test checks only the result of all changes to one type.
    for (auto type = initial.bodyTypes.cbegin(); type != initial.bodyTypes.cend(); ++type) {
        const int bodies = type->bodies.size();
        const int step = qMax(1, bodies / 8);
        for (int number = 1; number <= bodies; number += step) {
            const int other = 1 + (number + step - 1) % bodies;
            const QString place = QStringLiteral("%1 %2").arg(type.key()).arg(number);
            QCOMPARE(act({"swap", type.key(), QString::number(number), QString::number(other)}),
                     QString());
            QVERIFY2(conflict().isEmpty(), qPrintable(place + ": swap: " + conflict()));
            choose(type.key(), number);
            Drive::click(m_panel.get(), "pushButton_clientDelete");
            QVERIFY2(conflict().isEmpty(), qPrintable(place + ": deletion: " + conflict()));
            m_session->controller()->setState(initial);
        }
        for (int count : {type->maximum, bodies / 2, 0, 1}) {
            choose(type.key(), 1);
            setCount(count);
            QCOMPARE(state().bodyTypes[type.key()].bodies.size(), count);
            QVERIFY2(conflict().isEmpty(),
                     qPrintable(QStringLiteral("%1: count %2: ").arg(type.key()).arg(count)
                                + conflict()));
        }
        m_session->controller()->setState(initial);
    }
    for (const char *button : {"pushButton_clientLock", "pushButton_clientConfiguration",
                               "pushButton_clientRestart", "pushButton_clientRename"}) {
        Drive::click(m_panel.get(), button);
        QVERIFY2(conflict().isEmpty(), qPrintable(QLatin1String(button) + ": " + conflict()));
    }
}

TRACKING_TEST_MAIN(tst_SecondClient)
#include "tst_secondclient.moc"
