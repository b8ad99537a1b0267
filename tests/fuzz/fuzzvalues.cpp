#include "BackendVersions.h"
#include "angletablewidget.h"
#include "fuzztargets.h"
#include "settings/trackingpreferences.h"

#include <QFile>
#include <QTemporaryDir>

#include <cmath>

void FuzzTargets::preferences(const QByteArray &input)
{
    static const QTemporaryDir folder;
    const TrackingPreferences preferences(folder.path());
    {
        QFile file(preferences.fileName());
        expect(file.open(QIODevice::WriteOnly), "the file can be written");
        file.write(input);
    }
    QString problem;
    const auto document = preferences.load(&problem);
    expect(document.has_value() || !problem.isEmpty(), "a file that cannot be used is a problem");
    expect(!document || !document->documentElement().isNull(), "a document has a root element");
}

void FuzzTargets::angles(const QByteArray &input)
{
    BackendVersions versions;
    AngleTableWidget table(&versions, nullptr);
    FixedAngleBody body;
    body.body_id = 1;
    body.body_cali = true;
    table.initial_table();
    table.fill_in_table({&body});
    for (int axis = 0; axis < 3; ++axis) {
        table.item(0, 2 + axis)->setText(QString::fromUtf8(input));
        table.changed_cell(0, 2 + axis);
    }
    const auto entered = table.body(0);
    expect(entered.has_value(), "an entered angle is a number");
    for (const double degrees : entered->fixed_angle)
        expect(std::isfinite(degrees) && std::fabs(degrees) <= 20.0, "an angle is within limits");
}
