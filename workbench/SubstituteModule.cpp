#include "SubstituteModule.h"

#include "ControllerRules.h"
#include "ModuleRequest.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"
#include "SubstituteDialog.h"

namespace {

constexpr int logKind = 1;
const char handEyeOfCalibration[] = "0.000 0.000 0.000 1.000 0.000 0.000 0.000";

struct WorkTexts {
    const char *channel;
    const char *verb;
    const char *announcement; ///< null when the module announces nothing
};

WorkTexts textsOf(SubstituteModule::Work work)
{
    switch (work) {
    case SubstituteModule::Work::Calibrate:
        return {"BodyCalModule", "OpenBodyCalDialog", "bodycalibration available"};
    case SubstituteModule::Work::CalibrateHybrid:
        return {"HybridBodyCalibration", "OpenHybridBodyCalibration", nullptr};
    case SubstituteModule::Work::Adjust:
        break;
    }
    return {"BodyAdjustmentModule", "OpenBodyAdjustmentDialog", "bodyadjustment available"};
}

/** Carries out the work; returns the reason when it cannot, otherwise an empty text. */
QString workOn(SubstituteModule::Work work, ControllerState &state, const ModuleRequest &request)
{
    BodyState *body = request.isValid()
                              ? ControllerRules::body(state, request.bodyType, request.bodyNumber)
                              : nullptr;
    if (!body)
        return SubstituteModule::tr("The controller has no such body.");
    switch (work) {
    case SubstituteModule::Work::Calibrate:
        ControllerRules::calibrate(*body);
        return QString();
    case SubstituteModule::Work::CalibrateHybrid:
        if (SensorState *sensor = ControllerRules::sensor(state, body->sensor)) {
            sensor->handEye = QLatin1String(handEyeOfCalibration);
            return QString();
        }
        return SubstituteModule::tr("The body carries no inertial sensor.");
    case SubstituteModule::Work::Adjust:
        if (!body->calibrated)
            return SubstituteModule::tr("The body is not calibrated.");
        body->recalibrated = true;
        return QString();
    }
    return QString();
}

QString effectOf(SubstituteModule::Work work)
{
    switch (work) {
    case SubstituteModule::Work::Calibrate:
        return SubstituteModule::tr("calibrates the body with a geometry of its own");
    case SubstituteModule::Work::CalibrateHybrid:
        return SubstituteModule::tr("gives the body's sensor a hand-eye calibration");
    case SubstituteModule::Work::Adjust:
        break;
    }
    return SubstituteModule::tr("moves the body's coordinate system; it counts as re-calibrated");
}

} // namespace

SubstituteModule::SubstituteModule(Work work, SimulatedController *controller,
                                   SimulatedIOManager *io, QObject *parent)
    : QObject(parent), m_work(work), m_controller(controller), m_io(io)
{
    m_io->register_receiver(textsOf(m_work).channel, this);
}

SubstituteModule::~SubstituteModule()
{
    m_io->unregister_receiver(textsOf(m_work).channel, this);
    dismiss();
}

QByteArray SubstituteModule::channel() const
{
    return textsOf(m_work).channel;
}

void SubstituteModule::announce()
{
    const WorkTexts texts = textsOf(m_work);
    if (texts.announcement)
        m_io->send_message("GlobalEvent", texts.channel, logKind, texts.announcement);
}

SubstituteDialog *SubstituteModule::dialog() const
{
    return m_dialog;
}

int SubstituteModule::transmit_message(int, const char *, const char *text)
{
    const QString requestText = QString::fromUtf8(text);
    const ModuleRequest request =
            ModuleRequest::parse(requestText, QLatin1String(textsOf(m_work).verb));
    ControllerState trial = m_controller->state();
    const QString problem = request.isValid() ? workOn(m_work, trial, request)
                                              : tr("The request is not understood.");
    dismiss();
    m_dialog =
            new SubstituteDialog(QString::fromLatin1(channel()), requestText,
                                 problem.isEmpty() ? effectOf(m_work) : problem, problem.isEmpty());
    connect(m_dialog, &SubstituteDialog::applied, this, [this, request] {
        ControllerState state = m_controller->state();
        const QString refusal = workOn(m_work, state, request);
        if (refusal.isEmpty())
            m_controller->setState(state);
        if (m_dialog)
            m_dialog->setResult(refusal.isEmpty() ? tr("applied") : refusal);
    });
    connect(m_dialog, &SubstituteDialog::closed, this, &SubstituteModule::reopen);
    m_dialog->show();
    return 0;
}

void SubstituteModule::reopen()
{
    m_io->send_message("BodyAdministrationModule", textsOf(m_work).channel, logKind, "reopen");
}

void SubstituteModule::dismiss()
{
    if (!m_dialog)
        return;
    m_dialog->disconnect(this);
    delete m_dialog;
}
