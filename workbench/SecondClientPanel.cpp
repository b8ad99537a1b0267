#include "SecondClientPanel.h"

#include "ControllerRules.h"
#include "WorkbenchSession.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

constexpr int maximumBodies = 999;

QPushButton *button(const QString &text, const QString &name)
{
    auto *result = new QPushButton(text);
    result->setObjectName(name);
    return result;
}

QHBoxLayout *row(QWidget *editor, QPushButton *action)
{
    auto *layout = new QHBoxLayout;
    layout->addWidget(editor, 1);
    layout->addWidget(action);
    return layout;
}

} // namespace

SecondClientPanel::SecondClientPanel(WorkbenchSession *session, QWidget *parent)
    : QWidget(parent), m_session(session), m_result(new QLabel)
{
    setObjectName(QStringLiteral("secondClient"));
    m_result->setObjectName(QStringLiteral("label_clientResult"));
    m_result->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    buildBodyGroup(layout);
    buildControllerGroup(layout);
    layout->addWidget(m_result);
    layout->addStretch();
    connect(m_session->controller(), &SimulatedController::stateChanged, this,
            &SecondClientPanel::refreshTypes);
    refreshTypes();
}

void SecondClientPanel::buildBodyGroup(QVBoxLayout *layout)
{
    m_type = new QComboBox;
    m_type->setObjectName(QStringLiteral("comboBox_clientType"));
    m_number = new QSpinBox;
    m_number->setObjectName(QStringLiteral("spinBox_clientBody"));
    m_number->setRange(1, maximumBodies);
    m_name = new QLineEdit;
    m_name->setObjectName(QStringLiteral("lineEdit_clientName"));
    m_count = new QSpinBox;
    m_count->setObjectName(QStringLiteral("spinBox_clientCount"));
    m_count->setRange(0, maximumBodies);
    QPushButton *rename = button(tr("&Rename"), QStringLiteral("pushButton_clientRename"));
    QPushButton *remove = button(tr("&Delete body"), QStringLiteral("pushButton_clientDelete"));
    QPushButton *setCount = button(tr("Set c&ount"), QStringLiteral("pushButton_clientCount"));

    auto *group = new QGroupBox(tr("Bodies"));
    auto *form = new QFormLayout(group);
    form->addRow(tr("Body type:"), m_type);
    form->addRow(tr("Body number:"), row(m_number, remove));
    form->addRow(tr("New name:"), row(m_name, rename));
    form->addRow(tr("Number of bodies:"), row(m_count, setCount));
    layout->addWidget(group);

    connect(m_type, &QComboBox::currentTextChanged, this, [this](const QString &word) {
        m_count->setValue(m_session->state().bodyTypes.value(word).bodies.size());
    });
    connect(rename, &QPushButton::clicked, this, &SecondClientPanel::renameBody);
    connect(remove, &QPushButton::clicked, this, &SecondClientPanel::deleteBody);
    connect(setCount, &QPushButton::clicked, this, &SecondClientPanel::changeCount);
}

void SecondClientPanel::buildControllerGroup(QVBoxLayout *layout)
{
    m_protocol = new QLineEdit(m_session->state().protocol);
    m_protocol->setObjectName(QStringLiteral("lineEdit_clientProtocol"));
    QPushButton *restartButton = button(tr("Res&tart"), QStringLiteral("pushButton_clientRestart"));
    QPushButton *lock = button(tr("Lock or &unlock"), QStringLiteral("pushButton_clientLock"));
    QPushButton *configuration = button(tr("Switch active &configuration"),
                                        QStringLiteral("pushButton_clientConfiguration"));
    auto *group = new QGroupBox(tr("Controller"));
    auto *form = new QFormLayout(group);
    form->addRow(lock);
    form->addRow(configuration);
    form->addRow(tr("Protocol:"), row(m_protocol, restartButton));
    layout->addWidget(group);

    connect(lock, &QPushButton::clicked, this, [this] {
        m_session->edit(
                [](ControllerState &state) { state.configChangeable = !state.configChangeable; });
        m_result->setText(m_session->state().configChangeable ? tr("The configuration is unlocked.")
                                                              : tr("The configuration is locked."));
    });
    connect(configuration, &QPushButton::clicked, this, &SecondClientPanel::switchConfiguration);
    connect(restartButton, &QPushButton::clicked, this, &SecondClientPanel::restart);
}

void SecondClientPanel::refreshTypes()
{
    const QStringList types = m_session->state().bodyTypes.keys();
    QStringList shown;
    for (int i = 0; i < m_type->count(); ++i)
        shown << m_type->itemText(i);
    if (shown == types)
        return;
    const QString current = m_type->currentText();
    m_type->clear();
    m_type->addItems(types);
    const QString wanted = current.isEmpty() ? QStringLiteral("standard") : current;
    m_type->setCurrentIndex(qMax(0, m_type->findText(wanted)));
}

int SecondClientPanel::chosenBody()
{
    const BodyTypeState type = m_session->state().bodyTypes.value(m_type->currentText());
    if (m_number->value() <= type.bodies.size())
        return m_number->value();
    m_result->setText(tr("The controller has no body %1 of the type %2.")
                              .arg(m_number->value())
                              .arg(m_type->currentText()));
    return 0;
}

void SecondClientPanel::renameBody()
{
    const int number = chosenBody();
    if (number < 1)
        return;
    QString refusal;
    m_session->edit([&](ControllerState &state) {
        BodyState *body = ControllerRules::body(state, m_type->currentText(), number);
        ControllerRules::rename(*body, m_name->text(), &refusal);
    });
    m_result->setText(refusal.isEmpty()
                              ? tr("Body %1 is named \"%2\" now.").arg(number).arg(m_name->text())
                              : tr("Refused: %1.").arg(refusal));
}

void SecondClientPanel::deleteBody()
{
    const int number = chosenBody();
    if (number < 1)
        return;
    m_session->edit([&](ControllerState &state) {
        ControllerRules::deleteBody(state, m_type->currentText(), number);
    });
    m_result->setText(tr("Body %1 is not calibrated any more.").arg(number));
}

void SecondClientPanel::changeCount()
{
    const QString word = m_type->currentText();
    const int maximum = m_session->state().bodyTypes.value(word).maximum;
    if (m_count->value() > maximum) {
        m_result->setText(tr("The controller takes at most %1 bodies of the type %2.")
                                  .arg(maximum)
                                  .arg(word));
        return;
    }
    m_session->edit([&](ControllerState &state) {
        ControllerRules::setBodyCount(state, word, m_count->value());
    });
    m_result->setText(
            tr("There are %1 bodies of the type %2 now.").arg(m_count->value()).arg(word));
}

void SecondClientPanel::switchConfiguration()
{
    m_session->edit(&ControllerRules::activateConfiguration);
    m_session->announceConfiguration();
    m_result->setText(tr("Another configuration is active."));
}

void SecondClientPanel::restart()
{
    const QString protocol = m_protocol->text().trimmed();
    m_result->setText(m_session->restartWithProtocol(protocol)
                              ? tr("The controller speaks protocol %1 now.").arg(protocol)
                              : tr("Expected a version such as 1.24, found \"%1\".").arg(protocol));
}
