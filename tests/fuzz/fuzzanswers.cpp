#include "BackendVersions.h"
#include "answeringmanager.h"
#include "bodies/adminbodytype.h"
#include "bodies/bodycommands.h"
#include "bodies/bodyreader.h"
#include "bodies/bodyregistry.h"
#include "filterdialog.h"
#include "fuzztargets.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QComboBox>
#include <QTimer>

namespace {

BackendVersions newestVersions()
{
    BackendVersions versions;
    versions.prot = VersionInfo(1, 24, 0);
    return versions;
}

} // namespace

void FuzzTargets::library(const QByteArray &input)
{
    AnsweringManager manager(input);
    BackendVersions versions = newestVersions();
    const Targetlibrary library(&manager, &versions);
    for (auto target = library.targets().cbegin(); target != library.targets().cend(); ++target) {
        const QString id = target.key();
        expect(target.value() && target.value()->id() == id, "a target is kept by its identifier");
        expect(library.getLongNameFromTid(id) == target.value()->longName(),
               "a name is found by its identifier");
        const QString shortName = target.value()->shortName();
        expect(library.target(library.getTidFromShortname(shortName)) != nullptr,
               "an identifier is found by its short name");
        library.getGroupFromTid(id);
        library.isOfType(*target.value(), QStringLiteral("measurementtool"));
    }
}

void FuzzTargets::bodies(const QByteArray &input)
{
    AnsweringManager manager(input);
    BackendVersions versions = newestVersions();
    const BodyReader reader(ControllerLink(&manager, &versions));
    const QString type = QStringLiteral("standard");
    BodyRegistry registry;
    reader.readType(registry[type], type);
    reader.readMaximum(registry, type);
    reader.readBodies(registry, type);
    const int count = registry.type(type).bodies.size();
    expect(count >= 0 && count <= 9999, "a count that can be shown");
    reader.isWarmupRuleMet();
}

void FuzzTargets::sensors(const QByteArray &input)
{
    const QString sensor = QString::fromUtf8(input).section(QLatin1Char('\n'), 0, 0);
    AnsweringManager manager(input.mid(input.indexOf('\n') + 1));
    BackendVersions versions = newestVersions();
    const BodyCommands commands(ControllerLink(&manager, &versions));
    const BodyCommands::SensorReset reset = commands.sensorReset(sensor);
    expect(!(reset.hasStorage && reset.hasHandEye), "one way to reset a sensor");
    commands.resetSensor(sensor, reset);
}

void FuzzTargets::filters(const QByteArray &input)
{
    AnsweringManager manager(input);
    BackendVersions versions = newestVersions();
    FilterDialog dialog(&manager, nullptr, &versions);
    QTimer::singleShot(0, &dialog, [&dialog] {
        for (QComboBox *box : dialog.findChildren<QComboBox *>()) {
            if (box->isEnabled() && box->count() > 1)
                box->setCurrentIndex(box->count() - 1);
        }
        dialog.reject();
    });
    dialog.update_and_exec(0, 0);
}
